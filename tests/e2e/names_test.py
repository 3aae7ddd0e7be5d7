"""Checks that the places by which some programs are driven are those of the controls with these names."""

from desk import Desk, check, run
from places import PLACES

OPENED_BY = {"Recording Toolbar": 11}
ON_TAB = {"Auto-Encode to MP3": "Preferences", "Delete WAV file on completion of encoding": "Preferences"}


def check_window(desk, program, title):
    if title in OPENED_BY:
        program.press(OPENED_BY[title])
    for name, place in PLACES[title].items():
        if name in ON_TAB:
            desk.click(*program.place_in(title, ON_TAB[name]))
        x, y, width, height = desk.names.place(program.process.pid, title, name)
        check(0 < place[0] - x < width and 0 < place[1] - y < height,
              f"'{name}' of '{title}' is at {(x, y, width, height)}, without {place}")
        if name in ON_TAB:
            desk.click(*program.place_in(title, "Record/Play"))


def test(build):
    with Desk(build) as desk:
        program = desk.launch()
        program.main_window()
        for title in PLACES:
            check_window(desk, program, title)
        program.end()


run(test)
