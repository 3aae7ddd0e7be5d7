"""Uses every button, menu entry and tab once, and starts again to check that the settings were saved.

A second copy at the same time is refused.
"""

import configparser

from desk import BEATBOX, CELL, LEFT, MUSIC_BOX, RIGHT, Desk, Program, check, run, wait_until

RED = (255, 0, 0)
STRIP_GREEN = (192, 255, 192)

# The positions of menu entries, without separators.
TOOLBARS_MENU = {"Setup Toolbar": 0, "Percussion Tableau": 1, "Polyphonics Tableau": 2}
RIGHT_CLICK_MENU = {"erase": 0, "menu": 1, "polynotes": 2}
TABLEAU_MENU = ["Clear All", "File", "Save", "Erase/Menu toggle", "Rewind", "Play", "Stop Playing", "Stop all sound",
                "Setup Toolbar", "Editing Toolbar", "Recording Toolbar", "Tutorial", "Help", "Exit"]
EDIT_MENU = ["Clear All", "Cut selection", "Copy selection", "Paste (insert)", "Paste (overwrite)", "Open File",
             "Save as", "Save", "Cancel"]
TITLES = {"Editing Toolbar": "Editing Toolbar", "Recording Toolbar": "Recording Toolbar", "Tutorial": " Tutorial Wizard"}


def choose(desk, opened_by, entry):
    """Opens a menu and chooses an entry with the arrow keys, which skip the separators."""
    with desk.popup():
        opened_by()
    desk.key(*["Down"] * (entry + 1))
    before = desk.shown()
    desk.key("Return")
    wait_until(lambda: desk.shown() != before, "the menu to close")


def close_by_key(desk, title):
    """Closes a dialog that has just opened."""
    desk.settled(desk.window(title))
    desk.key("Escape")
    desk.no_window(title)


def close_toolbar(desk, title):
    """Presses the close button in the title of a tool window."""
    x, y, width, _ = desk.settled(desk.window(title))
    desk.click(x + width - 21, y + 14)
    desk.no_window(title)


def shows(program, column, line, shown=True):
    program.wait_for_colour(program.cell(column, line), RED, "a note" if shown else "no note", shown)


def draw(desk, program, column, line):
    desk.click(*program.cell(column, line))
    shows(program, column, line)


# The effect of each button and entry

def try_clear(desk, program, by):
    draw(desk, program, 5, 10)
    by()
    shows(program, 5, 10, shown=False)


def try_dialog(desk, by, title):
    by()
    close_by_key(desk, title)
    desk.window("Setup Toolbar")


def try_play_and_stop(desk, program, play, stop):
    draw(desk, program, 30, 10)
    line = (*program.cell(1, 30), 38 * CELL, 1)
    at_rest = desk.screen.part(*line)
    play()
    wait_until(lambda: desk.screen.part(*line) != at_rest, "the playing marker")
    stop()
    wait_until(lambda: desk.screen.part(*line) == at_rest, "the end of playing")


def try_toolbar(desk, by, title):
    by()
    close_toolbar(desk, title)


def try_help(desk, by):
    by()
    close_by_key(desk, "Velorin Help")


def try_buttons(desk, program):
    def by(index):
        return lambda: program.press(index)
    try_clear(desk, program, by(1))
    try_dialog(desk, by(2), "Open Score File")
    try_dialog(desk, by(3), "Save music file")
    try_right_click_modes(desk, program)
    try_play_and_stop(desk, program, by(6), by(7))
    try_play_and_stop(desk, program, by(6), by(8))
    try_scroll_and_rewind(desk, program)
    try_toolbars_menu(desk, program)
    for index, title in ((10, "Editing Toolbar"), (11, "Recording Toolbar"), (12, " Tutorial Wizard")):
        try_toolbar(desk, by(index), title)
    try_help(desk, lambda: choose(desk, by(13), 0))


def try_scroll_and_rewind(desk, program):
    shows(program, 30, 10)
    x, y, width, height = program.place
    desk.click(x + width - 110, y + height - 34)
    shows(program, 30, 10, shown=False)
    program.press(5)
    shows(program, 30, 10)


def try_right_click_modes(desk, program):
    x, y = program.button(4)
    seen = set()
    for entry in RIGHT_CLICK_MENU.values():
        choose(desk, lambda: program.press(4), entry)
        desk.point(x, y + 200)
        seen.add(desk.still(lambda: desk.screen.part(x - 12, y - 12, 24, 24), "the button"))
    check(len(seen) == 3, f"the button has {len(seen)} pictures for three modes")
    choose(desk, lambda: program.press(4), RIGHT_CLICK_MENU["erase"])


def try_toolbars_menu(desk, program):
    def toggle(name):
        choose(desk, lambda: program.press(9), TOOLBARS_MENU[name])
    toggle("Setup Toolbar")
    desk.no_window("Setup Toolbar")
    toggle("Setup Toolbar")
    desk.settled(desk.window("Setup Toolbar"))
    strip = program.at(BEATBOX, 305, 3)
    toggle("Percussion Tableau")
    program.wait_for_colour(strip, STRIP_GREEN, "no percussion strip", shown=False)
    toggle("Percussion Tableau")
    program.wait_for_colour(strip, STRIP_GREEN, "the percussion strip")
    lanes = program.at((MUSIC_BOX[0], MUSIC_BOX[1]), 200, program.place[3] - 51 - 46 - 100 + 30)
    background = desk.screen.part(*lanes, 60, 12)
    toggle("Polyphonics Tableau")
    wait_until(lambda: desk.screen.part(*lanes, 60, 12) != background, "the polyphonics strip to close")
    toggle("Polyphonics Tableau")
    wait_until(lambda: desk.screen.part(*lanes, 60, 12) == background, "the polyphonics strip")


def try_tableau_menu(desk, program):
    """Uses the menu of the right button on the tableau. Its last entry ends the program."""
    choose(desk, lambda: program.press(4), RIGHT_CLICK_MENU["menu"])

    def by(entry):
        place = program.cell(20, 14)
        return lambda: choose(desk, lambda: desk.click(*place, RIGHT), TABLEAU_MENU.index(entry))
    try_clear(desk, program, by("Clear All"))
    by("File")()
    close_by_key(desk, "Open Score File")
    by("Save")()
    close_by_key(desk, "Save music file")
    by("Erase/Menu toggle")()
    try_play_and_stop(desk, program, by("Play"), lambda: program.press(7))
    by("Stop Playing")()
    by("Stop all sound")()
    by("Rewind")()
    shows(program, 30, 10)
    desk.click(*program.setup("close"))
    by("Setup Toolbar")()
    desk.settled(desk.window("Setup Toolbar"))
    for entry, title in TITLES.items():
        try_toolbar(desk, by(entry), title)
    try_help(desk, by("Help"))


def try_edit_menu(desk, program):
    """Uses the menu of the right button on the tableau in select mode."""
    program.press(10)
    desk.settled(desk.window("Editing Toolbar"))
    desk.click(*program.edit(11))

    def by(entry):
        place = program.cell(20, 14)
        return lambda: choose(desk, lambda: desk.click(*place, RIGHT), EDIT_MENU.index(entry))

    def select(first, last):
        desk.drag([program.cell(column, 25) for column in range(first, last + 1)])
    shows(program, 30, 10)
    select(20, 24)
    by("Cut selection")()
    shows(program, 25, 10)
    select(25, 25)
    by("Copy selection")()
    select(12, 12)
    by("Paste (overwrite)")()
    shows(program, 12, 10)
    select(2, 2)
    by("Paste (insert)")()
    shows(program, 26, 10)
    by("Cancel")()
    by("Open File")()
    close_by_key(desk, "Open Score File")
    for entry in ("Save as", "Save"):
        by(entry)()
        close_by_key(desk, "Save music file")
    by("Clear All")()
    shows(program, 26, 10, shown=False)
    close_toolbar(desk, "Editing Toolbar")


def changes(desk, window, by, what):
    """Does something that changes the window."""
    x, y, width, height = desk.place_of(window)
    before = desk.still(lambda: desk.screen.part(x, y, width, height), what)
    by()
    wait_until(lambda: desk.screen.part(x, y, width, height) != before, what)


def try_tabs(desk, program):
    window = desk.window("Setup Toolbar")

    def press(control):
        changes(desk, window, lambda: desk.click(*program.setup(control)), f"a change by {control}")

    def list_entry(combo, keys):
        with desk.popup():
            desk.click(*program.setup(combo))
        with desk.popup(opens=False):
            desk.key(*keys, "Return")
    for row in range(1, 13):
        press(f"TrackSel({row})")
    press("TrackSel(0)")
    for row in range(1, 13):
        press(f"TrackHide({row})")
        press(f"TrackHide({row})")
    for combo in ("Combo1", "Combo5"):
        list_entry(combo, ["Down"])
    press("polyphonics")
    press("Chkpoly")
    list_entry("Combo3", ["Down"])
    for row in range(8):
        press(f"Ch({row})")
        press(f"Chkstrum({row})")
    press("setup")
    press("tempo")
    press("volume")
    list_entry("Combo2", ["Home"])
    press("rows")


def settings(desk):
    store = configparser.ConfigParser()
    store.read(desk.home / ".config" / "velorin" / "Velorin 2.1.ini")
    return {key.replace("%20", " "): value for key, value in store["settings"].items()}


def resize_and_move(desk, program):
    x, y, width, height = program.place
    place = (x + width - 8, y + height - 8)
    desk.tool("mousemove", *place, "mousedown", LEFT, "sleep", 0.2, "mousemove", place[0] - 90, place[1] - 60,
              "sleep", 0.1, "mouseup", LEFT)
    wait_until(lambda: desk.place_of(program.window) == (x, y, width - 90, height - 60), "the smaller window")
    desk.drag([(x + 300, y + 12), (x + 310, y + 16), (x + 330, y + 32)])
    expected = (x + 30, y + 20, width - 90, height - 60)
    wait_until(lambda: desk.place_of(program.window) == expected, "the window in its new place")
    program.place = desk.settled(program.window)


def check_second_copy(desk):
    """The second copy shows a message box and ends; the first one continues."""
    first = set(desk.windows("Velorin"))
    second = Program(desk)
    desk.programs.append(second)
    box = wait_until(lambda: set(desk.windows("Velorin")) - first, "the message box of the second copy").pop()
    desk.settled(box)
    desk.key("Return")
    second.ended()
    check(set(desk.windows("Velorin")) == first, "the first copy has ended")


def first_start(desk):
    program = desk.launch()
    program.main_window()
    try_buttons(desk, program)
    try_tabs(desk, program)
    resize_and_move(desk, program)
    check_second_copy(desk)
    place = program.place
    toolbar = desk.place_of(desk.window("Setup Toolbar"))
    program.press(1)  # an unsaved score would be recovered
    program.end()
    kept = settings(desk)
    check(kept["devices"] == "-1", f"the device was saved as {kept['devices']}")
    check(kept["polyphonics"] == "False", f"the polyphonics strip was saved as {kept['polyphonics']}")
    check(kept["percussion"] == "True" and kept["form3"] == "True", f"the settings are {kept}")
    return place, toolbar, kept


def second_start(desk, place, toolbar, kept):
    program = desk.launch()
    check(program.main_window() == place, f"the window is at {program.place} instead of {place}")
    found = desk.settled(desk.window("Setup Toolbar"))
    check(found == toolbar, f"the Setup Toolbar is at {found} instead of {toolbar}")
    draw(desk, program, 30, 10)
    try_edit_menu(desk, program)
    draw(desk, program, 30, 10)
    try_tableau_menu(desk, program)
    entry = TABLEAU_MENU.index("Exit")
    choose(desk, lambda: desk.click(*program.cell(20, 14), RIGHT), entry)
    program.ended()
    changed = {key for key, value in settings(desk).items() if key in kept and kept[key] != value}
    check(not changed, f"these settings changed with the second start: {changed}")


def test(build):
    with Desk(build) as desk:
        second_start(desk, *first_start(desk))


run(test)
