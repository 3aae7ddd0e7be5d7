"""A sound server without a card, which records what is played."""

import contextlib
import os
import subprocess

from webdriver import end, wait_until


class SoundServer:
    """Browsers find it by `environment`."""

    def __init__(self, folder):
        self.recording = folder / "heard.raw"
        socket = folder / "pulse.sock"
        self.environment = {**os.environ, "PULSE_SERVER": f"unix:{socket}", "HOME": str(folder)}
        self.processes = []
        self.start(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                    "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
                    "-L", "module-null-sink sink_name=out rate=44100 channels=2 format=s16le"])
        wait_until(lambda: b"out" in self.ask("pactl", "list", "short", "sinks"), "the sound server")
        with open(self.recording, "ab") as file:
            self.start(["parec", "-d", "out.monitor", "--format=s16le", "--rate=44100", "--channels=2", "--raw"], stdout=file)

    def start(self, command, stdout=subprocess.DEVNULL):
        self.processes.append(subprocess.Popen(command, env=self.environment, stdout=stdout, stderr=subprocess.DEVNULL,
                                               start_new_session=True))

    def ask(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False).stdout

    def hears(self):
        """True if any sound has been recorded since the last call."""
        data = self.recording.read_bytes()
        with open(self.recording, "r+b") as file:
            file.truncate(0)
        return any(data)

    def close(self):
        for process in self.processes:
            with contextlib.suppress(OSError):
                end(process)
