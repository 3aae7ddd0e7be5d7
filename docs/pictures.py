#!/usr/bin/env python3
"""Takes the pictures of this folder from the program on a virtual screen: docs/pictures.py BUILD_DIR"""

import pathlib
import shutil
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests" / "e2e"))

from desk import Desk, run, wait_until  # noqa: E402  (it lies in the folder named above)

SONG = HERE.parent / "src" / "resources" / "songs" / "harbour-lights.sng"
SIZE = (1280, 800)
CONVERTER = (760, 572)
RETURN_TO_START = 5
EDITING, RECORDING = 10, 11  # the buttons of the toolbars
TOOLBARS = ("Setup Toolbar", "Editing Toolbar", "Recording Toolbar")

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
    desk.still(lambda: desk.screen.part(0, 0, *SIZE), "a picture that does not change")
    desk.screen.write_png(HERE / name, *SIZE)


def open_all_rows(desk, program):
    """The notes of a row show once it has been selected. The first row is selected again at the end."""
    for row in (1, 2, 3, 4, 5, 6, 7, 0):
        desk.click(*program.setup(f"TrackSel({row})"))


def take_converter(desk):
    """Without a window manager the window is in the corner of the screen."""
    folder = desk.folder / "Music"
    shutil.copytree(SONG.parent, folder)
    desk.start([desk.build / "bin" / "velorin-converter", folder])
    desk.settled(desk.window("Velorin Converter"))
    desk.click(700, 545)
    wait_until(lambda: len(list(folder.glob("*.mp3"))) == len(list(folder.glob("*.sng"))), "the files")
    desk.click(200, 120)
    desk.point(SIZE[0] - 4, SIZE[1] - 4)
    desk.still(lambda: desk.screen.part(0, 0, *CONVERTER), "a picture that does not change")
    desk.screen.write_png(HERE / "converter.png", *CONVERTER)


def test(build):
    with Desk(build, size=SIZE) as desk:
        take_converter(desk)
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
        program.press(EDITING)
        program.press(RECORDING)
        for title in TOOLBARS:
            desk.settled(desk.window(title))
        take(desk, "toolbars.png")
        for title in TOOLBARS:
            desk.click(*program.place_in(title, "Close"))
            desk.no_window(title)
        program.press(RETURN_TO_START)  # ends the sentence about the last row
        take(desk, "velorin.png")


run(test)
