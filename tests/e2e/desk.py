"""An environment for the program: a virtual screen, a mouse, a sound server without a card, and a home folder.

It also exports the program and the waiting functions, so that tests import only this module.
"""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

from bus import AccessibilityBus
from names import Names
from pointer import Pointer
from program import BEATBOX, CELL, MUSIC_BOX, Program
from screen import Screen
from waiting import PATIENCE_S, Failure, check, wait_until

__all__ = ["BEATBOX", "CELL", "LEFT", "MUSIC_BOX", "PATIENCE_S", "RIGHT", "WHEEL_DOWN", "WHEEL_UP", "Desk",
           "DeskWithoutSound", "Failure", "Program", "check", "run", "wait_until"]

WIDTH, HEIGHT = 1600, 900
LEFT, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 3, 4, 5


def go_first():
    """Gives the processes of the desk a higher priority than other processes, if that is allowed."""
    try:
        os.nice(-10)
    except OSError:
        pass


def put_first_of_all(process):
    """Gives all threads of the sound server real-time priority, if that is allowed. Desktops do the same."""
    for thread in os.listdir(f"/proc/{process.pid}/task"):
        try:
            os.sched_setscheduler(int(thread), os.SCHED_RR, os.sched_param(4))
        except OSError:
            pass


class Desk:
    """The environment of the program. `with Desk(build) as desk:` removes all of it at the end."""

    hears = True  # a sound server plays, and `recording` is the file of what it played
    # The server keeps so much of a program's stream that a busy machine does not interrupt it. None is the usual time.
    stream_ms = 250
    # Controls are found by their accessible names; if not, by their places.
    by_names = True

    def __init__(self, build, manager=False, size=(WIDTH, HEIGHT)):
        self.build = pathlib.Path(build).resolve()
        self.size = size
        self.has_manager = manager
        self.running = []
        self.programs = []
        self.tips = {}
        self.recorder = None
        self.accessibility = None
        self.names = None

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velorin-desk-"))
        try:
            self.furnish()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, problem=None, *_):
        if problem and "VELORIN_TEST_LEFT" in os.environ:
            self.leave(pathlib.Path(os.environ["VELORIN_TEST_LEFT"]))
        if hasattr(self, "pointer"):
            self.pointer.close()  # before its server ends
        for process in reversed(self.running):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def leave(self, folder):
        """Keeps what helps to find the reason of a failure: the screen, the programs' messages, and the saved files."""
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        if hasattr(self, "screen"):
            self.screen.write_png(folder / "screen.png", *self.size)
        for file in (*self.folder.glob("errors-*.txt"), *self.folder.glob("program/Songs/*")):
            if file.is_file():
                shutil.copy2(file, folder)

    def furnish(self):
        self.home = self.folder / "home"
        self.run_folder = self.folder / "run"
        self.screen_folder = self.folder / "screen"
        self.program_folder = self.folder / "program"
        for made in (self.home, self.run_folder, self.screen_folder, self.program_folder):
            made.mkdir(mode=0o700)
        for name in ("velorin", "velorin-card.so", "velorin-synth.so", "velorin.chm"):
            if (self.build / "bin" / name).exists():
                shutil.copy2(self.build / "bin" / name, self.program_folder)
        self.songs = self.program_folder / "Songs"
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(self.home), "LANG": "C.UTF-8",
                            "XDG_RUNTIME_DIR": str(self.run_folder)}
        if "LLVM_PROFILE_FILE" in os.environ:  # where a build with coverage writes its counters
            self.environment["LLVM_PROFILE_FILE"] = os.environ["LLVM_PROFILE_FILE"]
        self.open_screen()
        self.open_sound()
        if self.by_names:
            self.accessibility = AccessibilityBus(self, has_names=False)
            self.names = Names(self)
        if self.has_manager:
            self.manage()

    def manage(self):
        """Starts a window manager."""
        self.start(["openbox", "--sm-disable"])
        wait_until(lambda: "window id" in self.told(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]),
                   "the window manager")

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.environment, preexec_fn=go_first, **options)
        self.running.append(process)
        return process

    def told(self, command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False).stdout.decode("utf-8", "replace")

    def open_screen(self):
        reads, writes = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writes), "-screen", "0", "%dx%dx24" % self.size, "-nolisten", "tcp",
                    "-noreset", "-fbdir", str(self.screen_folder)], pass_fds=[writes])
        os.close(writes)
        with os.fdopen(reads) as told:
            number = told.readline().strip()
        check(number, "the virtual screen did not start")
        self.environment["DISPLAY"] = ":" + number
        file = self.screen_folder / "Xvfb_screen0"
        wait_until(lambda: file.exists() and file.stat().st_size > self.size[0] * self.size[1] * 4, "the screen's file")
        self.screen = Screen(file)
        self.pointer = Pointer(self.environment["DISPLAY"])

    def open_sound(self):
        socket = self.run_folder / "pulse.sock"
        self.environment.pop("PULSE_LATENCY_MSEC", None)
        self.server = self.start(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                                  "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
                                  "-L", "module-null-sink sink_name=out rate=44100 channels=2 format=s16le "
                                        "sink_properties=device.description=OutSink"])
        self.environment["PULSE_SERVER"] = f"unix:{socket}"
        wait_until(lambda: "out" in self.told(["pactl", "list", "short", "sinks"]), "the sound server")
        put_first_of_all(self.server)
        self.told(["pactl", "set-default-sink", "out"])
        # Started with the server: without a listener of low latency, a null sink begins with two seconds of delay.
        self.recording = self.folder / "recording.raw"
        self.start(["parec", "-d", "out.monitor", "--latency-msec=20", "--format=s16le", "--rate=44100",
                    "--channels=2", "--raw"], stdout=open(self.recording, "wb"))
        if self.stream_ms is not None:
            self.environment["PULSE_LATENCY_MSEC"] = str(self.stream_ms)
        wait_until(lambda: self.recording.stat().st_size > 4 * 44100 * 2.2, "the recorder")

    def lose_sound(self):
        """Kills the sound server. `open_sound` starts another one."""
        self.server.kill()
        self.server.wait()

    # The program

    def launch(self):
        """Starts the program; `main_window` waits for its window."""
        program = Program(self)
        self.programs.append(program)
        return program

    # The mouse and the keyboard

    def tool(self, *words):
        """Runs the tool that moves the mouse, presses keys and finds windows; returns the words that it prints."""
        acts = {"mousemove", "mousedown", "key", "keydown", "type"} & {str(word) for word in words}
        if "VELORIN_TEST_FROZEN" not in os.environ or not acts or "sleep" in words:
            return self.run_tool(words)
        with self.frozen():
            return self.run_tool(words)

    @contextlib.contextmanager
    def frozen(self):
        """The programs stand still inside."""
        processes = [program.process for program in self.programs if program.process.poll() is None]
        for process in processes:
            process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            for process in processes:
                process.send_signal(signal.SIGCONT)

    def run_tool(self, words):
        done = subprocess.run(["xdotool", *map(str, words)], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, check=False)
        return done.stdout.decode().split() if done.returncode == 0 else []

    def point(self, x, y):
        self.tool("mousemove", x, y)

    def click(self, x, y, button=LEFT):
        self.tool("mousemove", x, y, "mousedown", button, "mouseup", button)
        self.wait_for_release()

    def drag(self, places, button=LEFT):
        """Moves from the first place through the others to the last, with the button held."""
        words = ["mousemove", *places[0], "mousedown", button]
        if len(places) > 1:
            self.tool(*words, "mousemove", *places[1])
            wait_until(lambda: self.pointer.look()[:2] == tuple(places[1]), "the pointer at the second place of a drag")
            words = []
        for place in places[2:]:
            words += ["mousemove", *place]
        self.tool(*words, "mouseup", button)
        self.wait_for_release()

    def wait_for_release(self):
        wait_until(lambda: not self.pointer.look()[2], "the release of the mouse button")

    def type(self, text):
        self.tool("type", "--delay", "2", text)

    def key(self, *keys):
        self.tool("key", *keys)

    # Windows

    def windows(self, title):
        """The numbers of the visible windows with exactly this title. "Velorin" is also the main window with a score."""
        escaped = "".join("\\" + sign if sign in ".()*+?[]{}|\\^$" else sign for sign in title)
        score = "(.* - )?" if title == "Velorin" else ""
        return self.tool("search", "--onlyvisible", "--name", f"^{score}{escaped}$")

    def window(self, title):
        return wait_until(lambda: self.windows(title), f"the window '{title}'")[-1]

    def no_window(self, title):
        wait_until(lambda: not self.windows(title), f"the end of the window '{title}'")

    def place_of(self, window):
        """(x, y, width, height) of a window on the screen."""
        told = dict(line.split(":", 1) for line in self.told(["xwininfo", "-id", window]).splitlines()
                    if line.count(":") == 1)
        names = ("  Absolute upper-left X", "  Absolute upper-left Y", "  Width", "  Height")
        return tuple(int(told[name]) for name in names) if all(name in told for name in names) else None

    def choose_file(self, title, name, save_filter=None):
        """Answers the file dialog: types the name and presses Return."""
        dialog = self.window(title)
        x, y, width, height = self.settled(dialog)
        if save_filter is not None:
            self.choose_filter(x, y, width, height, save_filter)
        # The name field is the upper of the two fields at the bottom, below the list of files.
        self.tool("mousemove", x + width // 2, y + height - 56, "click", LEFT)
        self.key("ctrl+a")
        self.type(str(name))
        self.key("Return")
        self.no_window(title)

    def choose_filter(self, x, y, width, height, entry):
        """Chooses an entry of the list of filters, the lower field at the bottom of the dialog."""
        with self.popup():
            self.click(x + width // 2, y + height - 24)
        with self.popup(opens=False):
            self.key("Home", *["Down"] * entry, "Return")

    @contextlib.contextmanager
    def popup(self, opens=True):
        """Waits until the actions inside have opened a list or a menu, or closed it."""
        before = set(self.shown())
        yield
        wait_until(lambda: (set(self.shown()) - before) if opens else (before - set(self.shown())),
                   "a list or a menu that " + ("opens" if opens else "closes"))

    def shown(self):
        """The visible windows of the program, with lists and menus, without those that appear on their own."""
        notices = self.windows("Velorin Notice") + self.windows("Velorin Hint")
        return [window for window in self.tool("search", "--onlyvisible", "--class", "velorin")
                if window not in notices and not self.is_tool_tip(window)]

    def is_tool_tip(self, window):
        """True for a tool tip, which appears on its own. The type of a window does not change, so it is read once."""
        if window not in self.tips:
            self.tips[window] = "TOOLTIP" in self.told(["xprop", "-id", window, "_NET_WM_WINDOW_TYPE"])
        return self.tips[window]

    def settled(self, window):
        """The place of a window, once it is painted and does not move."""
        def look():
            place = self.place_of(window)
            return place and (place, self.screen.part(*self.inside(place)))
        return self.still(look, "a window that does not move")[0]

    def still(self, look, what):
        """The result of `look`, once it stays the same."""
        seen = []

        def same():
            seen.append(look())
            return len(seen) > 4 and seen[-1] and seen[-1] == seen[-4] and seen[-1]
        return wait_until(same, what)

    def inside(self, place):
        x, y, width, height = place
        left, top = max(x, 0), max(y, 0)
        return left, top, max(0, min(x + width, self.size[0]) - left), max(0, min(y + height, self.size[1]) - top)


class DeskWithoutSound(Desk):
    """A desk without a sound server, where no library can start one."""

    hears = False

    def open_sound(self):
        self.environment["PULSE_SERVER"] = f"unix:{self.run_folder}/none"


def run(test):
    """Runs the function of a test script with the build folder. The exit status of the script is the result."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} BUILD_DIR")
    try:
        test(pathlib.Path(sys.argv[1]))
    except Failure as failure:
        print(f"{pathlib.Path(sys.argv[0]).stem}: {failure}")
        sys.exit(1)
