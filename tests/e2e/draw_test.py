"""Draws notes, beats and chord marks with the mouse, scrolls and resizes. Checks the saved score and the sound.

Runs once without and once with a window manager.
"""

import listen
import score_text
import tune
from desk import BEATBOX, CELL, LEFT, MUSIC_BOX, RIGHT, WHEEL_DOWN, Desk, check, run, wait_until

OCARINA, BASS_DRUM = 79, 128
COLUMN_S = 0.12  # at tempo 100

# (column, pitch index, columns) of the phrase, drawn with the view at the start: line 0 is pitch index 55.
PHRASE = [(0, 60, 2), (3, 64, 1), (4, 67, 2), (8, 62, 4)]
ERASED = (6, 70, 2)
CHORD_AT = 8
CHORD = [3, 7, 12]  # semitones above the root: the default chord
LATE = (16, 65, 3)  # drawn after a scroll by four columns to the right and three lines down
BEATS = [0, 4, 8]


def draw_note(desk, program, column, line, length):
    desk.drag([program.cell(column + step, line) for step in range(length)])


def draw_phrase(desk, program):
    for column, pitch, length in PHRASE + [ERASED]:
        draw_note(desk, program, column, pitch - 55, length)
    last = program.cell(ERASED[0], ERASED[1] - 55)
    program.wait_for_colour(last, (255, 0, 0), "the last note")
    # On a held cell: this erases the whole note.
    desk.click(*program.cell(ERASED[0] + 1, ERASED[1] - 55), RIGHT)
    program.wait_for_colour(last, (255, 0, 0), "the erased note's end", shown=False)


def draw_beats(desk, program):
    # The first press only switches to the percussion group, which gets the sound of its list.
    place = program.cell(BEATS[0], 0, BEATBOX)
    desk.click(*place)
    for column in BEATS:
        desk.click(*program.cell(column, 0, BEATBOX))
    last = program.cell(BEATS[-1], 0, BEATBOX)
    program.wait_for_colour(last, (192, 0, 192), "the last beat")
    # Back to the notes: this press draws nothing.
    desk.click(*program.cell(30, 20))


def lower_part(program):
    """The height of the music tableau: the window without what is above and below it."""
    return program.place[3] - 51 - 46 - 100


def mark_chord(desk, program):
    top = MUSIC_BOX[1] + lower_part(program) + 1
    place = program.at((MUSIC_BOX[0], top), CHORD_AT * CELL + 5, 3)
    desk.click(*place)
    program.wait_for_colour(place, (255, 0, 0), "the chord mark")


def scroll_and_draw(desk, program):
    _, _, width, _ = program.place
    columns = (width - 70) // CELL - 1
    bar = MUSIC_BOX[1] + lower_part(program) + 1 + 58 + 1 + 7
    right_arrow = program.at((MUSIC_BOX[0], bar), (columns + 1) * CELL + 1 - 35 - 7, 0)
    head = program.cell(0, 60 - 55)
    for _ in range(4):
        desk.click(*right_arrow)
    program.wait_for_colour(program.cell(4, 62 - 55), (255, 0, 0), "the scroll to the right")
    desk.tool("mousemove", *head, "click", WHEEL_DOWN)
    program.wait_for_colour(program.cell(4, 62 - 58), (255, 0, 0), "the scroll down")
    column, pitch, length = LATE
    draw_note(desk, program, column - 4, pitch - 58, length)
    program.wait_for_colour(program.cell(column - 4, pitch - 58), (255, 0, 0), "the late note")
    program.press(5)
    program.wait_for_colour(program.cell(8, 62 - 58), (255, 0, 0), "the start of the song")


def drag_handle(desk, program, start, dx, dy, expected):
    """Drags from a place of the window, which must then be at the expected place."""
    x, y = start
    # The program reads the pointer's place when it handles the press, so the pointer must wait there.
    desk.tool("mousemove", x, y, "mousedown", LEFT, "sleep", 0.2, "mousemove", x + dx // 2, y + dy // 2,
              "mousemove", x + dx, y + dy, "sleep", 0.1, "mouseup", LEFT)
    wait_until(lambda: desk.place_of(program.window) == expected,
               f"the window at {expected}; it is at {desk.place_of(program.window)}")
    program.place = desk.settled(program.window)


def resize_and_move(desk, program):
    x, y, width, height = program.place
    drag_handle(desk, program, (x + width - 5, y + height // 2), -120, 0, (x, y, width - 120, height))
    width -= 120
    drag_handle(desk, program, (x + width - 8, y + height - 8), 60, -90, (x, y, width + 60, height - 90))
    width, height = width + 60, height - 90
    drag_handle(desk, program, (x + 4, y + height // 2), 24, 0, (x + 24, y, width - 24, height))
    x, width = x + 24, width - 24
    drag_handle(desk, program, (x + 300, y + 12), 30, 40, (x + 30, y + 40, width, height))
    program.wait_for_colour(program.cell(8, 62 - 58), (255, 0, 0), "the notes in the new place")


def expected_score():
    notes = {(0, column): (pitch, length, OCARINA) for column, pitch, length in PHRASE + [LATE]}
    notes.update({(8, column): (55, 1, BASS_DRUM) for column in BEATS})
    return notes, {(1, CHORD_AT + 1)}


def check_saved(desk, program, name):
    program.press(3)
    desk.choose_file("Save music file", name, save_filter=1)
    file = desk.songs / f"{name}.sng"
    wait_until(lambda: file.exists() and file.read_bytes().count(b"\r\n") == 37, "the saved score")
    notes, marks = score_text.runs(file.read_bytes())
    expected_notes, expected_marks = expected_score()
    check(notes == expected_notes, f"{expected_notes} were drawn, but {notes} were saved")
    check(marks == expected_marks, f"the chord marks {marks} were saved")


def check_heard(sound):
    columns = listen.Columns(sound, COLUMN_S)
    at = columns.at
    for column, pitch, length in PHRASE + [LATE]:
        place = column + length - 0.85
        check(columns.finds(place, lambda piece, key=127 - pitch: listen.key_of(piece) == key),
              f"in column {column} key {listen.key_of(at(place))} sounded instead of {127 - pitch}")
    for interval in CHORD:
        check(listen.has_key(at(CHORD_AT + 1.2), 127 - 62 + interval), f"no chord note {interval} above")
        check(not listen.has_key(at(1.1), 127 - 60 + interval), f"a chord note {interval} above, without a mark")
    check(listen.loudness(at(7)) < 0.25 * listen.loudness(sound), "the erased note still sounds")
    check(listen.loudness(at(14.5)) < 0.25 * listen.loudness(sound), "the phrase does not end")
    drum = [listen.strength(at(column, 3000), 60) for column in (0, 4, 8, 16)]
    check(min(drum[:3]) > 5 * drum[3], f"the level of the drum, in three columns with a beat and one without: {drum}")


def draw_everything(desk, name):
    program = desk.launch()
    program.main_window()
    program.choose_instrument(str(OCARINA))
    draw_phrase(desk, program)
    draw_beats(desk, program)
    mark_chord(desk, program)
    scroll_and_draw(desk, program)
    resize_and_move(desk, program)
    check_heard(tune.play(desk, program, 21 * COLUMN_S + 1))
    check_saved(desk, program, name)
    program.end()


def test(build):
    with Desk(build) as desk:
        draw_everything(desk, "bare")
        desk.manage()
        (desk.home / ".config" / "velorin" / "Velorin 2.1.ini").unlink()
        draw_everything(desk, "managed")


run(test)
