"""Selects with the mouse, copies, pastes, inserts, cuts, plays a selection once and in a loop, and duplicates."""

import listen
import score_text
from desk import Desk, check, run, wait_until

OCARINA = 79
COLUMN_S = 0.1  # at tempo 120
RED = (255, 0, 0)
MOUSE_LINE = 25  # the line on which the mouse selects, far below the notes

# Two notes and a rest: a note that sounds when the loop starts again continues until its key is played again.
SELECTED = (13, 18)
SELECTED_KEYS = [127 - 62, 127 - 64]

# (column, pitch index), each note of two columns.
BEFORE = [(0, 60), (2, 62), (4, 64), (6, 65)]
EDITED = [(0, 62), (2, 64), (4, 65), (6, 60), (13, 62), (15, 64)]
DUPLICATED = [(0, 62), (2, 64), (4, 65), (6, 60), (20, 62), (22, 64), (24, 65), (26, 60)]


def as_runs(notes):
    return {(0, column): (pitch, 2, OCARINA) for column, pitch in notes}


def open_score(desk, program):
    score = score_text.Score(tempo=120)
    score.row_instruments[0] = OCARINA
    for column, pitch in BEFORE:
        score.note(0, column, pitch, 2, OCARINA)
    desk.songs.mkdir(exist_ok=True)
    (desk.songs / "before.sng").write_bytes(score.text())
    program.press(2)
    desk.choose_file("Open Score File", "before.sng")
    shows(program, 6, 65)


def shows(program, column, pitch, shown=True):
    program.wait_for_colour(program.cell(column, pitch - 55), RED,
                            f"{'a' if shown else 'no'} note in column {column}", shown)


def select(desk, program, first, last):
    desk.drag([program.cell(column, MOUSE_LINE) for column in range(first, last + 1)])


def press_edit(desk, program, control):
    desk.click(*program.edit(control))


def write_box(desk, program, box, text):
    desk.tool("mousemove", *program.edit(box), "click", "--repeat", 2, "--delay", 40, 1)
    desk.key("ctrl+a")
    desk.type(text)


def edit(desk, program):
    select(desk, program, 2, 5)
    press_edit(desk, program, 12)
    select(desk, program, 10, 10)
    press_edit(desk, program, 14)  # the copied notes over columns 10 to 13
    shows(program, 12, 64)
    write_box(desk, program, "Text1", "3")
    select(desk, program, 8, 8)
    press_edit(desk, program, 16)  # three columns in front of them
    shows(program, 15, 64)
    select(desk, program, 0, 1)
    press_edit(desk, program, 13)  # removes the first note, and everything else moves left by two
    shows(program, 13, 64)
    select(desk, program, 6, 6)
    press_edit(desk, program, 15)  # inserts it again after the others
    shows(program, 15, 64)


def save(desk, program, name, expected):
    press_edit(desk, program, 3)
    desk.choose_file("Save music file", name, save_filter=1)
    file = desk.songs / f"{name}.sng"
    wait_until(lambda: file.exists() and file.read_bytes().count(b"\r\n") == 37, "the saved score")
    notes, marks = score_text.runs(file.read_bytes())
    check(notes == as_runs(expected), f"{as_runs(expected)} were expected, but {notes} were saved")
    check(not marks, f"chord marks were saved: {marks}")


def heard_from(desk, program, control, seconds):
    """The sound after a press of a button of the Editing Toolbar."""
    start = listen.frames_in(desk.recording)
    press_edit(desk, program, control)
    wait_until(lambda: listen.frames_in(desk.recording) > start + listen.RATE * (seconds + 0.8), "the sound", 30)
    sound = listen.samples(desk.recording, start)
    first = listen.first_sound(sound)
    check(first is not None, "the selection was not heard")
    return sound[max(0, first - 100):]


def play_once(desk, program):
    sound = heard_from(desk, program, 5, 1.4)
    keys = listen.melody_of(sound, SELECTED_KEYS)
    check(keys == SELECTED_KEYS, f"the selection sounded as the keys {keys}")
    rest = sound[int(9 * COLUMN_S * listen.RATE):]
    check(listen.loudness(rest) < 0.2 * listen.loudness(sound), "the selection does not end")


def play_in_a_loop(desk, program):
    press_edit(desk, program, 10)
    sound = heard_from(desk, program, 5, 3.0)
    press_edit(desk, program, 7)
    press_edit(desk, program, 10)
    keys = listen.melody_of(sound, SELECTED_KEYS)
    check(keys[:8] == 4 * SELECTED_KEYS, f"the looped selection sounded as the keys {keys}")
    stopped = listen.frames_in(desk.recording)
    wait_until(lambda: listen.frames_in(desk.recording) > stopped + 2.2 * listen.RATE, "the sound after the stop")
    after = listen.samples(desk.recording, stopped + 2 * listen.RATE)
    check(listen.is_quiet(after), "it still sounds after the stop")


def duplicate(desk, program):
    for box, text in (("Text4", "20"), ("Text5", "8"), ("Text3", "30")):
        write_box(desk, program, box, text)
    press_edit(desk, program, 17)
    shows(program, 26, 60)
    shows(program, 13, 62, shown=False)


def move_window(desk, title, dx, dy):
    """Drags a window by its title."""
    window = desk.window(title)
    x, y, width, height = desk.place_of(window)
    desk.drag([(x + 250, y + 14), (x + 250 + dx // 2, y + 14 + dy // 2), (x + 250 + dx, y + 14 + dy)])
    wait_until(lambda: desk.place_of(window) == (x + dx, y + dy, width, height), f"the move of '{title}'")


def test(build):
    with Desk(build) as desk:
        program = desk.launch()
        program.main_window()
        open_score(desk, program)
        # Away from the other toolbar.
        move_window(desk, "Setup Toolbar", 450, -300)
        program.press(10)
        desk.settled(desk.window("Editing Toolbar"))
        press_edit(desk, program, 11)
        edit(desk, program)
        save(desk, program, "edited", EDITED)
        select(desk, program, *SELECTED)
        play_once(desk, program)
        play_in_a_loop(desk, program)
        duplicate(desk, program)
        save(desk, program, "duplicated", DUPLICATED)
        desk.click(*program.edit("close"))
        desk.no_window("Editing Toolbar")
        program.end()


run(test)
