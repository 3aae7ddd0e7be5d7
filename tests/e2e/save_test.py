"""Saves with the real dialog: checks the question before a file is replaced, and the notice of a failed save."""

import shutil

from desk import RIGHT, DeskWithoutSound, check, run, wait_until

DIALOG = "Save music file"
MIDI, SCORE = 0, 1
OLD = b"of the user"
RED = (255, 0, 0)


def type_name(desk, program, name, kind):
    """Opens the dialog, chooses the kind, types the name and presses Return."""
    program.press(3)
    x, y, width, height = desk.settled(desk.window(DIALOG))
    desk.choose_filter(x, y, width, height, kind)
    desk.tool("mousemove", x + width // 2, y + height - 56, "click", 1)
    desk.key("ctrl+a")
    desk.type(name)
    desk.key("Return")


def test_question(desk, program, name, kind, file):
    """If the typed name has no ending, or another one, the question is about the file that would be replaced."""
    path = desk.songs / file
    path.write_bytes(OLD)
    type_name(desk, program, name, kind)
    wait_until(lambda: len(desk.windows(DIALOG)) == 2, f"the question about {file}")
    desk.key("Escape")
    wait_until(lambda: len(desk.windows(DIALOG)) == 1, "the question to close")
    check(path.read_bytes() == OLD, f"{file} was replaced before the answer")
    desk.key("Escape")
    desk.no_window(DIALOG)
    check(path.read_bytes() == OLD, f"{file} was replaced after a no")

    type_name(desk, program, name, kind)
    wait_until(lambda: len(desk.windows(DIALOG)) == 2, f"the question about {file} again")
    desk.key("alt+y")
    desk.no_window(DIALOG)
    begin = b"MThd" if kind == MIDI else b"-1\r\n"
    wait_until(lambda: path.read_bytes().startswith(begin), f"the new {file}")


def test_new_names(desk, program):
    """There is no question for a new name, even if it differs from an existing one only in case."""
    (desk.songs / "Tune.sng").write_bytes(OLD)
    type_name(desk, program, "tune", SCORE)
    desk.no_window(DIALOG)
    wait_until((desk.songs / "tune.sng").exists, "the new file")
    check((desk.songs / "Tune.sng").read_bytes() == OLD, "the file whose name differs in case was replaced")
    (desk.songs / "a\\b.sng").write_bytes(OLD)
    type_name(desk, program, "a\\b", SCORE)
    wait_until(lambda: len(desk.windows(DIALOG)) == 2, "the question about a name with a backslash")
    desk.key("alt+y")
    desk.no_window(DIALOG)
    wait_until(lambda: (desk.songs / "a\\b.sng").read_bytes().startswith(b"-1"), "the file with a backslash")


def test_again(desk, program):
    """Ctrl+Shift+S writes the file again, the list of a right click opens it, and the dialog proposes its name."""
    path = desk.songs / "mine.sng"
    type_name(desk, program, "mine", SCORE)
    desk.no_window(DIALOG)
    wait_until(path.exists, "the new file")
    empty = path.read_bytes()
    note = program.cell(8, 20)
    desk.click(*note)
    program.wait_for_colour(note, RED, "the note")
    desk.key("ctrl+shift+s")
    wait_until(lambda: path.read_bytes() != empty, "the score that is saved again")
    saved = path.read_bytes()
    program.press(1)
    program.wait_for_colour(note, RED, "the cleared tableau", shown=False)
    with desk.popup():
        desk.click(*program.button(2), RIGHT)
    with desk.popup(opens=False):
        desk.key("Down", "Return")
    program.wait_for_colour(note, RED, "the score opened from the list")
    check(path.read_bytes() == saved, "opening has changed the file")

    opened = path.stat().st_ino
    program.press(3)
    desk.choose_filter(*desk.settled(desk.window(DIALOG)), SCORE)
    desk.key("alt+s")
    wait_until(lambda: len(desk.windows(DIALOG)) == 2, "the question about the proposed name")
    desk.key("alt+y")
    desk.no_window(DIALOG)
    wait_until(lambda: path.stat().st_ino != opened, "another file under the proposed name")
    check(path.read_bytes() == saved, "the file under the proposed name is not the score")


def test_failure(desk, program):
    """The folder is deleted while the dialog is open."""
    program.press(3)
    x, y, width, height = desk.settled(desk.window(DIALOG))
    desk.choose_filter(x, y, width, height, SCORE)
    desk.tool("mousemove", x + width // 2, y + height - 56, "click", 1)
    desk.key("ctrl+a")
    desk.type("late")
    shutil.rmtree(desk.songs)
    desk.key("Return")
    desk.no_window(DIALOG)
    told = '"late.sng" was not saved: its folder is not there. Save it in another folder.'
    wait_until(lambda: told in program.complaints(), "the notice")


def left_over(desk):
    return [path for path in desk.songs.iterdir() if path.name.startswith(".") or path.suffix == ".bak"]


def test(build):
    with DeskWithoutSound(build) as desk:
        program = desk.launch()
        program.main_window()
        wait_until(desk.songs.exists, "the folder of songs")
        test_question(desk, program, "song", SCORE, "song.sng")
        test_question(desk, program, "song", MIDI, "song.mid")
        test_question(desk, program, "no. 3.sng", MIDI, "no. 3.sng.mid")
        test_new_names(desk, program)
        test_again(desk, program)
        wait_until(lambda: not left_over(desk), "the end of the temporary files")
        test_failure(desk, program)


run(test)
