"""Drops files on the main window: a score, a MIDI file, a sound, several at once, and what cannot be opened."""

import contextlib
import subprocess

from desk import DeskWithoutSound, check, run, wait_until
from score_text import Score

HINT = "Velorin Hint"
RED = (255, 0, 0)


@contextlib.contextmanager
def drop(desk, program, *files, taken=True):
    """Drags files from another program onto the tableau. That program gives them away when it is asked for them, so it
    goes on running for the actions inside, which wait for what the drop does."""
    source = desk.start([desk.build / "bin" / "velorin-drag-source", *files])
    x, y, *_ = desk.settled(desk.window("Drag source"))
    desk.point(x + 30, y + 30)
    desk.tool("mousedown", 1)
    for step in range(8):  # a drag begins after some pixels, and each window is asked as it is reached
        place = program.cell(2 + step, 20 + step)
        desk.point(*place)
        desk.screen.pixel(*place)  # waits for the window system
    desk.tool("mouseup", 1)
    desk.window("Dropped" if taken else "Refused")
    yield
    source.terminate()
    source.wait()
    program.take_keyboard()


def write_songs(desk, folder):
    """A score, and another one as a MIDI file and as sound."""
    for name, pitch in (("My Song", 60), ("dance", 64)):
        score = Score(100)
        score.note(0, 8, pitch, 4, 24)
        (folder / f"{name}.sng").write_bytes(score.text())
    converter = desk.build / "bin" / "velorin-convert"
    for ending in ("mid", "wav"):
        subprocess.run([converter, folder / "dance.sng", "-o", folder / f"dance.{ending}"], check=True)


def drop_a_score(desk, program, folder):
    with drop(desk, program, folder / "My Song.sng"):
        wait_until(lambda: desk.windows("my song - Velorin"), "the title of the dropped score")


def drop_a_midi_file(desk, program, folder):
    with drop(desk, program, folder / "dance.mid"):
        desk.window(HINT)
        wait_until(lambda: desk.windows("Untitled • - Velorin"), "the title of the imported score")
    desk.key("ctrl+z")
    wait_until(lambda: desk.windows("my song - Velorin"), "the score from before the import")


def drop_several(desk, program, folder):
    with drop(desk, program, folder / "notes.txt", folder / "dance.mid", folder / "My Song.sng"):
        wait_until(lambda: desk.windows("Untitled • - Velorin"), "the first file that can be opened")


def drop_a_sound(desk, program, folder):
    with drop(desk, program, folder / "dance.wav"):
        desk.window("Recording Toolbar")


def test(build):
    with DeskWithoutSound(build) as desk:
        folder = desk.folder / "files of the user"
        folder.mkdir()
        (folder / "notes.txt").write_text("not for Velorin")
        write_songs(desk, folder)
        program = desk.launch()
        program.main_window()
        drop_a_score(desk, program, folder)
        drop_a_midi_file(desk, program, folder)
        drop_several(desk, program, folder)
        with drop(desk, program, folder / "notes.txt", taken=False):
            check(desk.windows("Untitled • - Velorin"), "a file of no use has changed the score")
        drop_a_sound(desk, program, folder)


run(test)
