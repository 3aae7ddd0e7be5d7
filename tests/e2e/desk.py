"""A desk to use the program at: a virtual screen, a mouse, a sound server without a card, a home of its own.

Tests take all that they need of the desk from here, the program and the waiting included.
"""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

from program import BEATBOX, CELL, EDIT, MUSIC_BOX, SETUP, Program
from screen import Screen
from waiting import PATIENCE_S, Failure, check, wait_until

__all__ = ["BEATBOX", "CELL", "EDIT", "LEFT", "MUSIC_BOX", "PATIENCE_S", "RIGHT", "SETUP", "WHEEL_DOWN", "WHEEL_UP",
           "Desk", "DeskWithoutSound", "Failure", "Program", "check", "run", "wait_until"]

WIDTH, HEIGHT = 1600, 900
LEFT, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 3, 4, 5


def go_first():
    """Where it is allowed, what belongs to the desk comes before whatever else the machine is busy with."""
    try:
        os.nice(-10)
    except OSError:
        pass


def put_first_of_all(process):
    """As a desktop does for its sound server, where the system lets it: all its threads, a sink has one of its own."""
    for thread in os.listdir(f"/proc/{process.pid}/task"):
        try:
            os.sched_setscheduler(int(thread), os.SCHED_RR, os.sched_param(4))
        except OSError:
            pass


class Desk:
    """Everything around the program; `with Desk(build) as desk:` clears all of it away again."""

    hears = True  # a sound server plays, and `recording` is what it has played

    def __init__(self, build, manager=False, size=(WIDTH, HEIGHT)):
        self.build = pathlib.Path(build).resolve()
        self.size = size
        self.has_manager = manager
        self.running = []
        self.programs = []
        self.tips = {}
        self.recorder = None

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velorin-desk-"))
        try:
            self.furnish()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, problem=None, *_):
        # Whoever looks for the reason of a failure asks for a picture of it.
        if problem and "VELORIN_TEST_PICTURE" in os.environ:
            self.screen.write_png(os.environ["VELORIN_TEST_PICTURE"], *self.size)
        for process in reversed(self.running):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def furnish(self):
        self.home = self.folder / "home"
        self.run_folder = self.folder / "run"
        self.screen_folder = self.folder / "screen"
        self.program_folder = self.folder / "program"
        for made in (self.home, self.run_folder, self.screen_folder, self.program_folder):
            made.mkdir(mode=0o700)
        for name in ("velorin", "velorin.chm"):
            if (self.build / "bin" / name).exists():
                shutil.copy2(self.build / "bin" / name, self.program_folder)
        self.songs = self.program_folder / "Songs"
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(self.home), "LANG": "C.UTF-8",
                            "XDG_RUNTIME_DIR": str(self.run_folder)}
        self.open_screen()
        self.open_sound()
        if self.has_manager:
            self.manage()

    def manage(self):
        """From now on there is a window manager."""
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

    def open_sound(self):
        socket = self.run_folder / "pulse.sock"
        self.server = self.start(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                                  "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
                                  "-L", "module-null-sink sink_name=out rate=44100 channels=2 format=s16le "
                                        "sink_properties=device.description=OutSink"])
        self.environment["PULSE_SERVER"] = f"unix:{socket}"
        wait_until(lambda: "out" in self.told(["pactl", "list", "short", "sinks"]), "the sound server")
        put_first_of_all(self.server)
        self.told(["pactl", "set-default-sink", "out"])
        # It listens from the first moment on: without a quick listener a null sink begins with two seconds of delay.
        self.recording = self.folder / "recording.raw"
        self.start(["parec", "-d", "out.monitor", "--latency-msec=20", "--format=s16le", "--rate=44100",
                    "--channels=2", "--raw"], stdout=open(self.recording, "wb"))
        wait_until(lambda: self.recording.stat().st_size > 4 * 44100 * 2.2, "the recorder")

    def lose_sound(self):
        """The sound server dies; `open_sound` brings another one."""
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
        done = subprocess.run(["xdotool", *map(str, words)], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, check=False)
        return done.stdout.decode().split() if done.returncode == 0 else []

    def point(self, x, y):
        self.tool("mousemove", x, y)

    def click(self, x, y, button=LEFT):
        self.tool("mousemove", x, y, "mousedown", button, "mouseup", button)

    def drag(self, places, button=LEFT):
        """From the first place over the others to the last, with the button held."""
        words = ["mousemove", *places[0], "mousedown", button]
        for place in places[1:]:
            words += ["mousemove", *place]
        self.tool(*words, "mouseup", button)

    def type(self, text):
        self.tool("type", "--delay", "2", text)

    def key(self, *keys):
        self.tool("key", *keys)

    # Windows

    def windows(self, title):
        """The numbers of the windows on the screen whose title is just this."""
        escaped = "".join("\\" + sign if sign in ".()*+?[]{}|\\^$" else sign for sign in title)
        return self.tool("search", "--onlyvisible", "--name", f"^{escaped}$")

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
        """Answers the file dialog: the name into its field, and Return."""
        dialog = self.window(title)
        x, y, width, height = self.settled(dialog)
        if save_filter is not None:
            self.choose_filter(x, y, width, height, save_filter)
        # The field of the name is the upper one of the two at the foot; the folder's list ends above it.
        self.tool("mousemove", x + width // 2, y + height - 56, "click", LEFT)
        self.key("ctrl+a")
        self.type(str(name))
        self.key("Return")
        self.no_window(title)

    def choose_filter(self, x, y, width, height, entry):
        """Chooses an entry of the list of filters, the lower field at the dialog's foot."""
        with self.popup():
            self.click(x + width // 2, y + height - 24)
        with self.popup(opens=False):
            self.key("Home", *["Down"] * entry, "Return")

    @contextlib.contextmanager
    def popup(self, opens=True):
        """What is done inside opens a list or a menu, or closes it again."""
        before = len(self.shown())
        yield
        wait_until(lambda: (len(self.shown()) > before) if opens else (len(self.shown()) < before),
                   "a list or a menu that " + ("opens" if opens else "closes"))

    def shown(self):
        """The program's windows on the screen, its lists and menus among them; notices come by themselves."""
        notices = self.windows("Velorin Notice")
        return [window for window in self.tool("search", "--onlyvisible", "--class", "velorin")
                if window not in notices and not self.is_tool_tip(window)]

    def is_tool_tip(self, window):
        """A tool tip comes and goes by itself. What a window is does not change, and is asked once."""
        if window not in self.tips:
            self.tips[window] = "TOOLTIP" in self.told(["xprop", "-id", window, "_NET_WM_WINDOW_TYPE"])
        return self.tips[window]

    def settled(self, window):
        """A window's place once it is painted and stands still."""
        def look():
            place = self.place_of(window)
            return place and (place, self.screen.part(*self.inside(place)))
        return self.still(look, "a window that stands still")[0]

    def still(self, look, what):
        """What is to be seen, once it stays the same."""
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
    """No sound server, and none that a library could start."""

    hears = False

    def open_sound(self):
        self.environment["PULSE_SERVER"] = f"unix:{self.run_folder}/none"


def run(test):
    """Runs a test script's function with the build's folder; the script's exit status tells the result."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} BUILD_DIR")
    try:
        test(pathlib.Path(sys.argv[1]))
    except Failure as failure:
        print(f"{pathlib.Path(sys.argv[0]).stem}: {failure}")
        sys.exit(1)
