"""Opens scores as a file manager does: over the session bus, with the program running and with the bus starting it."""

import os
import re
import sys
import time

try:
    import dbus
except ModuleNotFoundError:  # the bindings are installed only for the system's interpreter
    SYSTEM = "/usr/bin/python3"
    if sys.executable == SYSTEM:
        raise
    os.execv(SYSTEM, [SYSTEM, *sys.argv])

from desk import PATIENCE_S, Desk, Program, check, run, wait_until
from score_text import Score

NAME, PATH, INTERFACE = "org.velorin.velorin", "/org/velorin/velorin", "org.freedesktop.Application"
RED = (255, 0, 0)
TOP_PITCH = 55  # the pitch index of line 0
DIFFICULT_NAME = "100% f\u00fcr \u00c9lise #2.sng"

BUS = """<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
SERVICE = """[D-BUS Service]
Name={name}
Exec={program}
"""


class BusDesk(Desk):
    """A desk with a session bus that can start the program."""

    by_names = False  # the bus starts it with the user's environment

    def furnish(self):
        super().furnish()
        self.scores = self.folder / "scores"
        services = self.folder / "services"
        for made in (self.scores, services):
            made.mkdir()
        (services / f"{NAME}.service").write_text(SERVICE.format(name=NAME, program=self.program_folder / "velorin"))
        config = self.folder / "bus.conf"
        config.write_text(BUS.format(folder=self.folder))
        self.bus_errors = self.folder / "bus-errors.txt"
        self.start(["dbus-daemon", f"--config-file={config}", "--nofork"], stderr=open(self.bus_errors, "wb"))
        wait_until((self.folder / "bus").exists, "the session bus")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.folder}/bus"
        self.bus = dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])

    def score(self, name, pitch):
        """The URI of a score with a note of three columns at the beginning."""
        score = Score()
        score.note(0, 0, pitch, 3, 0)
        file = self.scores / name
        file.write_bytes(score.text())
        return file.as_uri()

    def ask(self, method, *arguments):
        """Calls the program, which the bus starts if it does not run."""
        target = self.bus.get_object(NAME, PATH, introspect=False)
        data = dbus.Dictionary({}, signature="sv")
        return target.get_dbus_method(method, INTERFACE)(*arguments, data, timeout=PATIENCE_S)

    def open(self, *uris):
        self.ask("Open", dbus.Array(uris, signature="s"))

    def activate_at_click(self):
        """As a desktop does at a click of this moment: the time of the X server is in the startup id."""
        target = self.bus.get_object(NAME, PATH, introspect=False)
        click_ms = int(time.monotonic() * 1000) & 0xFFFFFFFF
        data = dbus.Dictionary({"desktop-startup-id": f"menu-1_TIME{click_ms}"}, signature="sv")
        target.get_dbus_method("Activate", INTERFACE)(data)

    def owner(self):
        return self.bus.get_name_owner(NAME) if self.bus.name_has_owner(NAME) else None

    def active_window(self):
        return int((re.findall(r"0x[0-9a-f]+", self.told(["xprop", "-root", "_NET_ACTIVE_WINDOW"])) or ["0"])[0], 16)


class BusProgram(Program):
    """A run that the bus has started, and that writes its errors among those of the bus."""

    KNOWN_LINES = (*Program.KNOWN_LINES, "dbus-daemon[")

    def __init__(self, desk):
        self.desk = desk
        self.errors = desk.bus_errors
        self.number = wait_until(self.find, "the program on the bus")

    def find(self):
        return self.desk.owner() and self.desk.bus.call_blocking(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID", "s",
            (NAME,))

    def ended(self, status=0):
        wait_until(lambda: not os.path.exists(f"/proc/{self.number}"), "the end of the program")
        check(not self.complaints(), f"on standard error: {self.complaints()}")


def shows(program, pitch, what, shown=True):
    """The last column of a score's note, which no ring of its start covers."""
    program.wait_for_colour(program.cell(2, pitch - TOP_PITCH), RED, what, shown)


def open_while_it_runs(desk, program):
    program.desk.drag([program.cell(step, 30) for step in range(3)])
    shows(program, TOP_PITCH + 30, "a drawn note")
    desk.open(desk.score(DIFFICULT_NAME, 60))
    shows(program, 60, "the score of a running program")
    shows(program, TOP_PITCH + 30, "the end of the drawn note", shown=False)
    title = DIFFICULT_NAME.lower().removesuffix(".sng")
    wait_until(lambda: desk.windows(f"{title} - Velorin"), "the name in the title")
    desk.click(*program.cell(40, 40))
    desk.key("ctrl+z", "ctrl+z")
    shows(program, TOP_PITCH + 30, "the drawn note from the history")


def open_several(desk, program):
    desk.open(desk.score("first.sng", 62), desk.score("second.sng", 64))
    shows(program, 62, "the first of two scores")
    desk.window("Velorin Hint")
    desk.no_window("Velorin Hint")


def open_missing(desk, program):
    desk.open("file:///no/such/folder/lost%20song.sng")
    notice = desk.window("Velorin Notice")
    shows(program, 62, "the score from before")
    check('"lost song.sng" is not there any more' in program.complaints(), f"reported: {program.complaints()}")
    x, y, width, _ = desk.settled(notice)
    desk.click(x + width - 15, y + 15)
    desk.no_window("Velorin Notice")
    program.errors.write_text("")


def open_while_it_plays(desk, program):
    line = (*program.cell(1, 30), 38 * 12, 1)
    at_rest = desk.screen.part(*line)
    program.press(6)
    wait_until(lambda: desk.screen.part(*line) != at_rest, "the playing marker")
    desk.open(desk.score("played.sng", 65))
    shows(program, 65, "a score that is opened while a song plays")
    program.press(7)


def open_beside_a_dialog(desk, program):
    """A score does not change under a save dialog."""
    program.press(3)
    desk.settled(desk.window("Save music file"))
    desk.open(desk.score("waiting.sng", 67))
    desk.settled(desk.window("Save music file"))
    check(desk.windows("played - Velorin") and not desk.windows("waiting - Velorin"),
          "the score was opened under a dialog")
    desk.key("Escape")
    desk.no_window("Save music file")
    shows(program, 67, "the score that waited for the dialog")


def come_to_front(desk, program):
    """Another window covers the program and has the keyboard, or the program is minimised."""
    main = int(program.window)
    for activate in (desk.activate_at_click, lambda: desk.ask("Activate")):
        other = desk.start(["xev", "-geometry", "900x700+200+100", "-name", "other"])
        desk.settled(desk.window("other"))
        wait_until(lambda: desk.active_window() not in (0, main), "another window with the keyboard")
        activate()
        wait_until(lambda: desk.active_window() == main, "the program with the keyboard")
        shows(program, 67, "the program above the other window")
        other.terminate()
        desk.no_window("other")
        x, y, width, _ = program.place
        desk.click(x + width - 83, y + 13)
        desk.no_window("Velorin")
        activate()
        program.main_window()
        wait_until(lambda: desk.active_window() == main, "the restored program with the keyboard")


def start_a_second_copy(desk, program):
    """It shows its message and leaves the bus to the first."""
    first, owner = set(desk.windows("Velorin")), desk.owner()
    second = desk.launch()
    box = wait_until(lambda: set(desk.windows("Velorin")) - first, "the message box of the second copy").pop()
    desk.settled(box)
    check(desk.owner() == owner, "the second copy has taken the name")
    desk.key("Return")
    second.ended()
    check(desk.owner() == owner, "the first copy has lost the name")
    desk.open(desk.score("after.sng", 70))
    shows(program, 70, "a score after a second copy has ended")


def refuse_an_action(desk):
    try:
        desk.ask("ActivateAction", "print", dbus.Array([], signature="v"))
    except dbus.DBusException as error:
        check("print" in error.get_dbus_message(), f"the answer is {error}")
    else:
        check(False, "an action that does not exist was accepted")


def use_a_running_program(desk):
    program = desk.launch()
    program.main_window()
    open_while_it_runs(desk, program)
    open_several(desk, program)
    open_missing(desk, program)
    open_while_it_plays(desk, program)
    open_beside_a_dialog(desk, program)
    come_to_front(desk, program)
    start_a_second_copy(desk, program)
    refuse_an_action(desk)
    program.end()
    wait_until(lambda: desk.owner() is None, "the release of the name")


def start_by_the_bus(desk):
    desk.open(desk.score("started.sng", 61))
    program = BusProgram(desk)
    program.main_window()
    shows(program, 61, "the score that the program was started for")
    # As soon as its windows are gone, another copy can be started.
    program.press(14)
    desk.no_window("Velorin")
    desk.ask("Activate")
    wait_until(lambda: not os.path.exists(f"/proc/{program.number}"), "the end of the first copy")
    program = BusProgram(desk)
    program.main_window()
    program.end()


def test(build):
    with BusDesk(build, manager=True) as desk:
        use_a_running_program(desk)
        start_by_the_bus(desk)


run(test)
