#!/usr/bin/env python3
"""Takes the pictures of this folder anew, from the program on a virtual screen: docs/pictures.py BUILD_DIR"""

import pathlib
import shutil
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "e2e"))

from desk import Desk, run  # noqa: E402  (it lies in the folder named above)

SONG = HERE.parent / "src" / "resources" / "songs" / "harbour-lights.sng"
SIZE = (1280, 800)
SETTING_UP, EDITING, RECORDING = 9, 10, 11  # the buttons of the toolbars

SETTINGS = """[settings]
form1%20left=0
form1%20top=0
form1%20width=19200
form1%20height=12000
form3%20left=10200
form3%20top=7900
form2%20left=750
form2%20top=5400
record%20left=750
record%20top=7350
"""


def take(desk, name):
    desk.point(SIZE[0] - 4, SIZE[1] - 4)
    desk.still(lambda: desk.screen.part(0, 0, *SIZE), "a picture that stands still")
    desk.screen.write_png(HERE / name, *SIZE)


def open_all_rows(desk, program):
    """The notes of a row show once it has been chosen; the first is chosen again at the end."""
    for row in (1, 2, 3, 4, 5, 6, 7, 0):
        desk.click(*program.setup(f"TrackSel({row})"))


def test(build):
    with Desk(build, size=SIZE) as desk:
        settings = desk.home / ".config" / "velorin" / "Velorin 2.1.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text(SETTINGS)
        desk.songs.mkdir()
        shutil.copy(SONG, desk.songs)
        program = desk.launch()
        program.main_window()
        program.press(2)
        desk.choose_file("Open Score File", SONG.name)
        desk.no_window("Open Score File")
        open_all_rows(desk, program)
        desk.click(*program.setup("close"))
        desk.no_window("Setup Toolbar")
        take(desk, "velorin.png")
        with desk.popup():
            program.press(SETTING_UP)
        desk.key("Down", "Return")
        program.press(EDITING)
        program.press(RECORDING)
        for title in ("Setup Toolbar", "Editing Toolbar", "Recording Toolbar"):
            desk.settled(desk.window(title))
        take(desk, "toolbars.png")



run(test)
