"""Undo, redo and the History window, with mouse and keys, and the history from outside after a crash."""

import subprocess

from desk import LEFT, Desk, check, run, wait_until

WINDOW = "History"
LIST = (8, 70)  # in the window
DAY_HEIGHT, ROW_HEIGHT = 22, 24
FILTER = (130, 49)
CLOSE = (651, 14)
GO_BACK = (412 + 126, 36 + 314)
LINES = (20, 24, 28)  # of the notes, below the percussion strip
RED = (255, 0, 0)


def draw_three(desk, program):
    for column, line in enumerate(LINES):
        desk.drag([program.cell(8 * column + step, line) for step in range(3)])
        program.wait_for_colour(end_of(program, column), RED, f"note {column + 1}")


def end_of(program, note):
    """The last cell of a note, which no ring of its start covers."""
    return program.cell(8 * note + 2, LINES[note])


def undo_and_redo(desk, program):
    desk.key("ctrl+z")
    program.wait_for_colour(end_of(program, 2), RED, "the third note taken back", shown=False)
    desk.key("ctrl+z")
    program.wait_for_colour(end_of(program, 1), RED, "the second note taken back", shown=False)
    desk.key("ctrl+y")
    program.wait_for_colour(end_of(program, 1), RED, "the second note made again")
    desk.key("ctrl+shift+z")
    program.wait_for_colour(end_of(program, 2), RED, "the third note made again")
    desk.key("ctrl+y")
    desk.window("Velorin Hint")
    desk.no_window("Velorin Hint")


def row(desk, number):
    """The middle of a row of the list, all of today; 0 is the newest."""
    x, y, *_ = desk.place_of(desk.window(WINDOW))
    return x + LIST[0] + 120, y + LIST[1] + DAY_HEIGHT + number * ROW_HEIGHT + ROW_HEIGHT // 2


def go_back_in_the_window(desk, program):
    desk.key("ctrl+h")
    place = desk.settled(desk.window(WINDOW))
    desk.tool("mousemove", *row(desk, 2), "click", "--repeat", 2, "--delay", 80, LEFT)
    program.wait_for_colour(end_of(program, 2), RED, "the state of the first note", shown=False)
    check(desk.screen.pixel(*end_of(program, 0)) == RED, "the first note has gone")
    # The keys reach the list too: down to the newest state with Home, and Enter goes there.
    desk.click(*row(desk, 2))
    desk.key("Home", "Return")
    program.wait_for_colour(end_of(program, 2), RED, "the newest state")
    # The filter leaves one row; the button goes to the state under the cursor.
    desk.click(place[0] + FILTER[0], place[1] + FILTER[1])
    desk.type("column 1")
    desk.settled(desk.window(WINDOW))
    desk.click(*row(desk, 1))
    desk.click(place[0] + GO_BACK[0], place[1] + GO_BACK[1])
    wait_until(lambda: desk.screen.pixel(*end_of(program, 2)) != RED, "the state that the button goes to")
    desk.click(place[0] + CLOSE[0], place[1] + CLOSE[1])
    desk.no_window(WINDOW)


def clear_and_bring_back(desk, program):
    program.press(1)
    program.wait_for_colour(end_of(program, 0), RED, "the cleared tableau", shown=False)
    desk.window("Velorin Hint")
    desk.click(*program.cell(60, 40))
    program.press(1)
    desk.key("ctrl+z", "ctrl+z", "ctrl+z")
    program.wait_for_colour(end_of(program, 0), RED, "the score from before the clear")


def history_from_outside(desk):
    converter = desk.build / "bin" / "velorin-convert"
    listed = subprocess.run([converter, "--history"], env=desk.environment, capture_output=True, text=True, check=True)
    drawn = [line for line in listed.stdout.splitlines() if "Note drawn on channel 1" in line]
    check(len(drawn) >= 3, f"the history lists:\n{listed.stdout}{listed.stderr}")


def test(build):
    with Desk(build) as desk:
        program = desk.launch()
        program.main_window()
        draw_three(desk, program)
        wait_until(lambda: desk.windows("Untitled • - Velorin"), "the mark in the title")
        undo_and_redo(desk, program)
        go_back_in_the_window(desk, program)
        clear_and_bring_back(desk, program)
        program.process.kill()
        program.process.wait()
        history_from_outside(desk)


run(test)
