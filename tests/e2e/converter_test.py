"""Uses the converter: its command line, thirty files of which two are damaged, cancel, a drop, an import, the way to the studio.

The controls are found by their names on the accessibility bus.
"""

import os
import shutil
import signal
import subprocess

from bus import ROOT, Node, nodes, open_bus
from desk import DeskWithoutSound, Failure, PATIENCE_S, Program, check, run, wait_until
from score_text import Score

TITLE = "Velorin Converter"
LONG_TEMPO = 1  # a column lasts twelve seconds
KNOWN_LINES = (*Program.KNOWN_LINES, "velorin: ")  # the studio that the converter starts has the same standard error
MADE = 120  # seconds for thirty songs on a busy machine


def song(last=12, tempo=100):
    score = Score(tempo)
    score.note(0, last, 60, 1, 24)
    return score.text()


class Converter:
    """The window as a user of a screen reader meets it."""

    def __init__(self, desk, bus, *files, **options):
        self.desk, self.bus = desk, bus
        self.errors = desk.folder / "converter-errors.txt"
        self.process = desk.start([str(desk.program_folder / "velorin-converter"), *map(str, files)],
                                  stderr=open(self.errors, "wb"), **options)
        self.window = desk.window(TITLE)
        self.root = wait_until(self.find_root, "the converter on the accessibility bus")

    def find_root(self):
        found = [child for child in Node(self.bus, "org.a11y.atspi.Registry", ROOT).children()
                 if child.told("Name") == TITLE]
        return found[-1] if found else None

    def node(self, name):
        """The visible control with that name."""
        def look():
            return next((node for node in nodes(self.root) if node.told("Name") == name and node.is_showing()), None)
        return wait_until(look, f"the control '{name}'")

    def press(self, name):
        self.node(name).object.get_dbus_method("DoAction", "org.a11y.atspi.Action")(0)

    def names(self):
        return [node.told("Name") for node in nodes(self.root) if node.is_showing()]

    def rows(self):
        """What a screen reader says of each file."""
        return [child.told("Name") for child in self.node("Files").children() if child.role() == "list item"]

    def wait_for_rows(self, count):
        wait_until(lambda: "Files" in self.names() and len(self.rows()) == count, f"{count} rows")

    def wait_for_words(self, words, patience=PATIENCE_S):
        try:
            wait_until(lambda: words in self.names(), f"'{words}'", patience)
        except Failure as failure:
            raise Failure(f"{failure}; the window has {self.names()}") from None

    def end(self):
        self.process.send_signal(signal.SIGTERM)
        check(self.process.wait(PATIENCE_S) == 0, f"the converter ended with status {self.process.returncode}")
        lines = [line for line in self.errors.read_text("utf-8", "replace").splitlines() if not line.startswith(KNOWN_LINES)]
        check(not lines, f"on standard error: {lines}")


def command_line(desk, bus):
    """The options answer without a window; behind -- a name may begin with a hyphen."""
    program = desk.program_folder / "velorin-converter"
    for argument, status, printed, complaint in (
            ("--help", 0, "Usage: velorin-converter [FILE...]\n", ""),
            ("--version", 0, "velorin-converter 2.", ""),
            ("--loud", 2, "", "velorin-converter: unknown option --loud (see --help)\n")):
        told = subprocess.run([program, argument], env=desk.environment, capture_output=True, text=True, check=False)
        check(told.returncode == status, f"{argument} ended with status {told.returncode}")
        check(told.stdout.startswith(printed) and bool(told.stdout) == bool(printed), f"{argument} printed {told.stdout!r}")
        check(told.stderr == complaint, f"{argument} complained {told.stderr!r}")
    folder = folder_of(desk, "hyphen")
    (folder / "--help").with_suffix(".sng").write_bytes(song())
    converter = Converter(desk, bus, "--", "--help.sng", cwd=folder)
    converter.wait_for_rows(1)
    check(converter.rows()[0].startswith("--help.sng, "), f"the rows are {converter.rows()}")
    converter.press("Help")
    desk.window("Velorin Help")
    converter.end()


def folder_of(desk, name):
    folder = desk.folder / name
    folder.mkdir()
    return folder


def there(folder):
    return sorted(file.name for file in folder.iterdir())


def thirty_files(desk, bus):
    """The others are made while two fail with their sentences, and nothing that exists is overwritten."""
    folder = folder_of(desk, "thirty")
    names = [f"song-{number:02}" for number in range(28)]
    for name in names:
        (folder / f"{name}.sng").write_bytes(song())
    (folder / "cut.sng").write_bytes(b"\r\n".join(song().split(b"\r\n")[:14]) + b"\r\n")
    (folder / "noise.mid").write_bytes(b"no music")
    (folder / "song-00.mp3").write_bytes(b"mine")
    before = there(folder)
    converter = Converter(desk, bus, folder)
    converter.wait_for_rows(30)
    converter.press("Start")
    converter.wait_for_words("28 of 30 made, 2 failed", MADE)
    rows = converter.rows()
    check("cut.sng, failed, The file ends in line 14; a score has 37 lines." in rows, f"the rows are {rows}")
    check("noise.mid, failed, The file is not a MIDI file." in rows, f"the rows are {rows}")
    check(sum(", done, " in row for row in rows) == 28, f"the rows are {rows}")
    made = sorted(set(there(folder)) - set(before))
    check(made == sorted(["song-00-2.mp3", *[f"{name}.mp3" for name in names[1:]]]), f"made are {made}")
    check((folder / "song-00.mp3").read_bytes() == b"mine", "an existing file was overwritten")
    check(all((folder / name).read_bytes()[:1] == b"\xff" or (folder / name).read_bytes()[:3] == b"ID3"
              for name in made), "a file is no MP3")
    converter.end()


def cancel(desk, bus):
    """One that is stopped, all that are cancelled, and the end of the program leave nothing behind."""
    folder = folder_of(desk, "long")
    for name in ("a", "b", "c"):
        (folder / f"{name}.sng").write_bytes(song(300, LONG_TEMPO))
    before = there(folder)
    converter = Converter(desk, bus, folder)
    converter.wait_for_rows(3)

    def wait_for_work():
        wait_until(lambda: any(name.endswith(".part") for name in there(folder)), "a file that is written")
    converter.press("Start")
    wait_for_work()
    converter.press("Take out")
    wait_until(lambda: "a.sng, stopped; nothing was left behind" in converter.rows(), "the end of one file")
    converter.press("Cancel")
    converter.wait_for_words("0 of 3 made, stopped")
    check(there(folder) == before, f"left behind: {there(folder)}")
    converter.press("Start")
    wait_for_work()
    converter.end()
    check(there(folder) == before, f"left behind at the end: {there(folder)}")


def drop(desk, files, taken):
    """Drags files from another program into the middle of the window."""
    source = desk.start([desk.build / "bin" / "velorin-drag-source", *map(str, files)])
    x, y, *_ = desk.settled(desk.window("Drag source"))
    desk.tool("windowraise", desk.window("Drag source"))
    desk.point(x + 30, y + 30)
    desk.tool("mousedown", 1)
    for step in range(8):
        desk.point(300 + 10 * step, 200 + 10 * step)
        desk.screen.pixel(300, 200)  # waits for the window system
    desk.tool("mouseup", 1)
    desk.window("Dropped" if taken else "Refused")
    return source


def drops(desk, bus):
    folder = folder_of(desk, "dropped")
    (folder / "notes.txt").write_text("not for Velorin")
    album = folder_of(desk, "album")
    for name in ("one", "two"):
        (album / f"{name}.sng").write_bytes(song())
    converter = Converter(desk, bus)
    desk.settled(converter.window)
    source = drop(desk, [folder / "notes.txt"], taken=False)
    source.terminate()
    source.wait()
    source = drop(desk, [folder / "notes.txt", album], taken=True)
    converter.wait_for_rows(2)
    source.terminate()
    source.wait()
    check(converter.rows() == ["one.sng, waiting", "two.sng, waiting"], f"the rows are {converter.rows()}")
    converter.press("Take all out of the list")
    converter.press("Choose files...")
    desk.choose_file("Add files", album / "two.sng")
    converter.wait_for_rows(1)
    converter.end()


def import_with_report(desk, bus):
    """A MIDI file becomes a score, and the studio opens it, started by the converter."""
    folder = folder_of(desk, "import")
    (folder / "dance.sng").write_bytes(song())
    subprocess.run([desk.build / "bin" / "velorin-convert", folder / "dance.sng", "-o", folder / "dance.mid"], check=True)
    (folder / "dance.sng").unlink()
    settings = desk.home / ".config/velorin/Velorin 2.1.ini"
    settings.parent.mkdir(parents=True, exist_ok=True)
    settings.write_text("[Settings]\nconverter%20kind=score\n")
    converter = Converter(desk, bus, folder / "dance.mid")
    converter.wait_for_rows(1)
    converter.press("Start")
    converter.wait_for_words("1 of 1 made")
    check(there(folder) == ["dance.mid", "dance.sng"], f"the folder has {there(folder)}")
    converter.wait_for_words("dance.mid, what became of it")
    converter.wait_for_words("The only note was kept.")
    converter.press("Open in Velorin")
    studio = desk.window("dance - Velorin")
    os.kill(int(desk.tool("getwindowpid", studio)[0]), signal.SIGTERM)
    desk.no_window("dance - Velorin")
    converter.end()


def test(build):
    with DeskWithoutSound(build) as desk:
        shutil.copy2(desk.build / "bin" / "velorin-converter", desk.program_folder)
        bus = open_bus(desk)
        command_line(desk, bus)
        thirty_files(desk, bus)
        cancel(desk, bus)
        drops(desk, bus)
        import_with_report(desk, bus)


run(test)
