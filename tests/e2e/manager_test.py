"""Uses the windows under a window manager. A drag ends with the button, the help opens above the tool windows, and the
tool windows are minimised and restored with the main window."""

import contextlib
import re
import signal

from desk import Desk, check, run, wait_until

TITLE_PLACE = (300, 12)  # in the main window, where no control takes the press
EDGE_PLACE = (14, 300)  # of the main window's frame, inside the handle
TOOL_TITLE_PLACE = (250, 14)
TOOL_FOOT = (250, 248)  # of the Setup Toolbar, below the help
HELP = "Velorin Help"


@contextlib.contextmanager
def busy(program):
    """Stops the program until the actions inside are done."""
    program.process.send_signal(signal.SIGSTOP)
    try:
        yield
    finally:
        program.process.send_signal(signal.SIGCONT)


def move(place, by):
    return place[0] + by[0], place[1] + by[1], *place[2:]


def stands_at(desk, window, place, what):
    """The window stops when the button is released, even if the pointer moves on."""
    wait_until(lambda: desk.place_of(window) == place, what)
    desk.point(700, 860)
    desk.point(720, 870)
    check(desk.settled(window) == place, f"{what}: it followed the pointer to {desk.place_of(window)}")


def click_title(desk, program, window, title):
    """A click that is over before the program handles it moves nothing."""
    place = desk.settled(window)
    with busy(program):
        desk.click(place[0] + title[0], place[1] + title[1])
        desk.point(place[0] + title[0] + 200, place[1] + title[1] + 50)
    stands_at(desk, window, place, "a window whose title was clicked")


def drag_title(desk, window, title, by):
    place = desk.settled(window)
    start = (place[0] + title[0], place[1] + title[1])
    desk.drag([start, move(start, (4, 3)), move(start, by)])
    stands_at(desk, window, move(place, by), "a window that was dragged")


def flick_title(desk, program, window, title, by):
    """A whole drag before the program handles the press."""
    place = desk.settled(window)
    start = (place[0] + title[0], place[1] + title[1])
    with busy(program):
        desk.drag([start, move(start, by)])
    stands_at(desk, window, move(place, by), "a window that was dragged in a moment")


def stacking(desk):
    """The titles of the windows, from the lowest to the highest."""
    numbers = re.findall(r"0x[0-9a-f]+", desk.told(["xprop", "-root", "_NET_CLIENT_LIST_STACKING"]))
    return [" ".join(desk.tool("getwindowname", number)) for number in numbers]


def is_highest(desk, title):
    order = stacking(desk)
    return bool(order) and order[-1] == title


def open_help(desk, program):
    """Minimises with the button in the title of the main window."""
    x, y, width, _ = program.place
    desk.click(x + width - 111, y + 13)


def read_help(desk, program):
    """The help opens above the tool windows, and a tool window comes above it when it is used."""
    open_help(desk, program)
    desk.settled(desk.window(HELP))
    wait_until(lambda: is_highest(desk, HELP), "the help above all windows")
    desk.click(*program.place_in("Setup Toolbar", TOOL_FOOT))
    wait_until(lambda: is_highest(desk, "Setup Toolbar"), "the tool window above the help")
    open_help(desk, program)
    wait_until(lambda: is_highest(desk, HELP), "the help above all windows again")
    desk.key("Escape")
    desk.no_window(HELP)


def minimise(desk, program):
    """The button in the title minimises, and a task bar restores the window."""
    x, y, width, _ = program.place
    desk.click(x + width - 83, y + 13)
    desk.no_window("Velorin")
    desk.no_window("Setup Toolbar")
    desk.tool("windowmap", program.window)
    desk.window("Setup Toolbar")
    program.place = desk.settled(program.window)


def open_beside(desk, program):
    """Tool windows that have no saved place do not overlap."""
    program.press(10)
    x, y, width, height = desk.settled(desk.window("Editing Toolbar"))
    left, top, wide, high = desk.place_of(desk.window("Setup Toolbar"))
    check(x >= left + wide or left >= x + width or y >= top + high or top >= y + height,
          f"the toolbars overlap: {(x, y, width, height)} and {(left, top, wide, high)}")
    desk.click(*program.edit("close"))
    desk.no_window("Editing Toolbar")


def test(build):
    with Desk(build, manager=True) as desk:
        program = desk.launch()
        program.main_window()
        setup = desk.window("Setup Toolbar")
        for window, title in ((program.window, TITLE_PLACE), (setup, TOOL_TITLE_PLACE)):
            click_title(desk, program, window, title)
            drag_title(desk, window, title, (-40, -20))
            flick_title(desk, program, window, title, (30, 15))
        drag_title(desk, program.window, EDGE_PLACE, (25, -10))
        program.place = desk.settled(program.window)
        open_beside(desk, program)
        read_help(desk, program)
        minimise(desk, program)
        program.end()


run(test)
