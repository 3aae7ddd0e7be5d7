"""The lists of instruments: typing, hearing an entry before it is taken, taking it, and leaving without a choice."""

import listen
import score_text
from desk import Desk, check, run, wait_until

SEARCH_HEIGHT, ROW_HEIGHT = 38, 24
GUITAR_HARMONICS, FLUTE = 31, 73
MIDDLE_C = 60
LINES = (20, 24)  # of the notes, below the percussion strip


def open_list(desk, program, combo="Combo1"):
    """Opens a list and returns its window."""
    before = desk.shown()
    with desk.popup():
        desk.click(*program.setup(combo))
    return next(window for window in desk.shown() if window not in before)


def row(desk, popup, number):
    """The middle of a row of the open list, headings counted; 0 is the first that is shown."""
    x, y, *_ = desk.place_of(popup)
    return x + 120, y + SEARCH_HEIGHT + number * ROW_HEIGHT + ROW_HEIGHT // 2


def heard_by_pointing(desk, place):
    """The sound after the pointer has come to rest, from its first frame on."""
    start = listen.frames_in(desk.recording)
    desk.point(place[0] + 3, place[1])
    desk.point(*place)
    wait_until(lambda: listen.first_sound(listen.samples(desk.recording, start)) is not None, "the sound of the entry")
    start += listen.first_sound(listen.samples(desk.recording, start))
    wait_until(lambda: listen.frames_in(desk.recording) > start + listen.RATE // 2, "half a second of sound")
    return listen.samples(desk.recording, start, listen.RATE // 2)


def wait_for_silence(desk):
    def is_silent():
        end = listen.frames_in(desk.recording)
        return listen.is_quiet(listen.samples(desk.recording, end - listen.RATE // 4))
    wait_until(is_silent, "the end of the sound")


def type_and_hear(desk, program):
    popup = open_list(desk, program)
    desk.type("gui")
    desk.settled(popup)
    # Below the heading: 24 Nylon, 25 Steel, 26 Jazz, 27 Clean Guitar.
    sound = heard_by_pointing(desk, row(desk, popup, 4))
    check(listen.has_key(sound, MIDDLE_C), f"not the middle C, but key {listen.key_of(sound)}")
    wait_for_silence(desk)
    # 28 Muted, 29 Overdriven, 30 Distortion Guitar, 31 Guitar Harmonics.
    with desk.popup(opens=False):
        desk.click(*row(desk, popup, 8))


def leave_with_escape(desk, program):
    popup = open_list(desk, program)
    desk.type("flute")
    desk.settled(popup)
    desk.key("Escape")
    desk.settled(popup)
    check(popup in desk.shown(), "the first Escape has closed the list")
    with desk.popup(opens=False):
        desk.key("Escape")


def hear_a_drum(desk, program):
    wait_for_silence(desk)
    popup = open_list(desk, program, "Combo5")
    desk.type("snare")
    desk.settled(popup)
    heard_by_pointing(desk, row(desk, popup, 1))
    with desk.popup(opens=False):
        desk.key("Escape", "Escape")


def draw_and_check(desk, program, column, line, instrument, name):
    """Draws a note, which gets the channel's instrument, and looks for it in the saved score."""
    desk.click(*program.cell(column, line))
    program.wait_for_colour(program.cell(column, line), (255, 0, 0), "the note")
    program.press(3)
    desk.choose_file("Save music file", name, save_filter=1)
    file = desk.songs / f"{name}.sng"
    wait_until(lambda: file.exists() and file.read_bytes().count(b"\r\n") == 37, "the saved score")
    notes, _ = score_text.runs(file.read_bytes())
    check(notes[0, column][2] == instrument, f"the note has the instrument {notes[0, column][2]}, not {instrument}")


def test(build):
    with Desk(build) as desk:
        program = desk.launch()
        program.main_window()
        type_and_hear(desk, program)
        draw_and_check(desk, program, 8, LINES[0], GUITAR_HARMONICS, "taken")
        leave_with_escape(desk, program)
        hear_a_drum(desk, program)
        draw_and_check(desk, program, 16, LINES[1], GUITAR_HARMONICS, "left")
        program.choose_instrument("flut")
        draw_and_check(desk, program, 24, LINES[1], FLUTE, "typed")
        program.end()


run(test)
