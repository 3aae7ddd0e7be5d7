"""A desk for end-to-end tests: a virtual display, a sound server without a sound card, the real program, a mouse."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

SINK_RATE_HZ = 44100


class Failure(AssertionError):
    """What a test found to be otherwise than it must be."""


def check(condition, text):
    if not condition:
        raise Failure(text)


def wait_for(what, seconds=15.0, step=0.05):
    """Polls until `what` gives something true, and returns that."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = what()
        if found:
            return found
        time.sleep(step)
    raise Failure(f"nothing came within {seconds} s of: {what.__doc__ or what.__name__}")


class Desk:
    """Use as a context: everything that was started is ended, and the folder is removed."""

    def __init__(self, build, width=1600, height=900, sound=True, manager=True, scale=None):
        self.build = pathlib.Path(build).resolve()
        self.size = (width, height)
        self.with_sound = sound
        self.with_manager = manager
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velorin-e2e-"))
        self.processes = []
        self.env = dict(os.environ)
        self.env.pop("WAYLAND_DISPLAY", None)
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        home = self.folder / "home"
        home.mkdir()
        self.home = home
        self.env.update(HOME=str(home), XDG_RUNTIME_DIR=str(runtime), QT_QPA_PLATFORM="xcb",
                        JACK_NO_START_SERVER="1", LC_ALL="C.UTF-8")
        for key in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"):
            self.env.pop(key, None)
        if scale:
            self.env["QT_SCALE_FACTOR"] = str(scale)

    def __enter__(self):
        try:
            self._start_display()
            if self.with_sound:
                self._start_sound_server()
        except BaseException:
            self.__exit__(None, None, None)
            raise
        return self

    def __exit__(self, kind, value, trace):
        for process in reversed(self.processes):
            with contextlib.suppress(ProcessLookupError):
                process.terminate()
        for process in reversed(self.processes):
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(5)
            if process.poll() is None:
                process.kill()
        if kind is None:
            shutil.rmtree(self.folder, ignore_errors=True)
        else:
            print(f"what the test left: {self.folder}")

    def start(self, *command, log=None):
        out = open(self.folder / log, "wb") if log else subprocess.DEVNULL
        process = subprocess.Popen(command, env=self.env, stdout=out, stderr=out)
        self.processes.append(process)
        return process

    def output(self, *command):
        return subprocess.run(command, env=self.env, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False).stdout.decode()

    def _start_display(self):
        number = 90
        while pathlib.Path(f"/tmp/.X11-unix/X{number}").exists() or pathlib.Path(f"/tmp/.X{number}-lock").exists():
            number += 1
        self.env["DISPLAY"] = f":{number}"
        self.start("Xvfb", f":{number}", "-screen", "0", f"{self.size[0]}x{self.size[1]}x24", "-nolisten", "tcp")
        wait_for(lambda: pathlib.Path(f"/tmp/.X11-unix/X{number}").exists())
        if self.with_manager:
            self.start("openbox")
            wait_for(lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in self.output(
                "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def _start_sound_server(self):
        socket = self.folder / "runtime" / "pulse.sock"
        self.start("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                   "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
                   "-L", f"module-null-sink sink_name=out rate={SINK_RATE_HZ} channels=2 format=s16le "
                         "sink_properties=device.description=OutSink")
        self.env["PULSE_SERVER"] = f"unix:{socket}"
        wait_for(lambda: "out" in self.output("pactl", "list", "short", "sinks"))
        self.output("pactl", "set-default-sink", "out")
        # A recorder with a low latency: a null sink starts with two seconds of it and stalls its first client.
        self.sound_file = self.folder / "heard.raw"
        self.start("parec", "-d", "out.monitor", "--latency-msec=20", "--format=s16le",
                   f"--rate={SINK_RATE_HZ}", "--channels=2", "--raw", str(self.sound_file))
        time.sleep(2.5)

    def start_program(self, *arguments):
        """Starts Velorin and waits for its main window; returns the process."""
        program = self.start(str(self.build / "bin" / "velorin"), *arguments, log="velorin.log")
        self.program = program
        self.main = wait_for(lambda: self.window("^Velorin$"))
        return program

    def window(self, title):
        """The number of the visible window with that title, or nothing."""
        found = self.output("xdotool", "search", "--onlyvisible", "--name", title).split()
        return found[0] if found else None

    def geometry(self, window):
        """x, y, width and height on the screen."""
        values = dict(line.split("=", 1) for line in
                      self.output("xdotool", "getwindowgeometry", "--shell", window).splitlines() if "=" in line)
        return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def mouse(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.env, check=True)

    def click(self, window, x, y, button=1):
        left, top, _, _ = self.geometry(window)
        self.mouse("mousemove", left + x, top + y, "sleep", "0.05", "click", button)
        time.sleep(0.1)

    def drag(self, window, x1, y1, x2, y2, button=1, steps=6):
        left, top, _, _ = self.geometry(window)
        words = ["mousemove", left + x1, top + y1, "mousedown", button]
        for step in range(1, steps + 1):
            words += ["sleep", "0.03", "mousemove", left + x1 + (x2 - x1) * step // steps,
                      top + y1 + (y2 - y1) * step // steps]
        self.mouse(*words, "sleep", "0.05", "mouseup", button)
        time.sleep(0.1)

    def type_line(self, text):
        self.mouse("type", "--delay", "5", text)
        self.mouse("key", "Return")

    def picture(self, name):
        self.output("import", "-window", "root", str(self.folder / name))
        return self.folder / name

    def end_program(self, seconds=10):
        """Closes the main window as a user does; returns the exit status."""
        self.program.send_signal(signal.SIGTERM)
        return self.program.wait(seconds)

    def log(self):
        return (self.folder / "velorin.log").read_text(errors="replace")


def heard(path):
    """The left channel of what was recorded so far, as floats in [-1, 1]."""
    import array
    samples = array.array("h")
    data = pathlib.Path(path).read_bytes()
    samples.frombytes(data[: len(data) // 4 * 4])
    return [value / 32768.0 for value in samples[::2]]
