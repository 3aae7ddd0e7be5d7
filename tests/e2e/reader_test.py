"""Reads the windows over the accessibility bus, as a screen reader does: every control has a name and a role.

If VELORIN_PRINT_TREE is set, it prints what it read.
"""

import os

from bus import CHECKED, ENABLED, FOCUSABLE, SHOWING, Announcements, dbus, nodes, open_bus, program_on
from desk import Desk, check, run, wait_until

# Containers need no name.
HOLDERS = {"filler", "panel", "layered pane", "page tab list", "label", "unknown", "frame", "scroll pane", "viewport"}
# Some controls of each window, by role and name.
EXPECTED = {
    "Velorin": {("push button", "Clear all notes"), ("push button", "Stop"), ("push button", "Exit"), ("table", "Music Tableau"),
                ("table", "Percussion Tableau"), ("table", "Polyphonics Tableau"), ("scroll bar", "Columns"),
                ("tool bar", "Main Toolbar")},
    "Setup Toolbar": {("radio button", "Channel 1"), ("check box", "Hide Channel 2"), ("combo box", "Instrument"),
                      ("page tab", "Polyphonics"), ("push button", "Close")},
    "Editing Toolbar": {("check box", "Loop song"), ("push button", "Paste (Insert)"),
                        ("text", "Total duplicated notes"), ("check box", "Duplicate Percussion section")},
    "Recording Toolbar": {("push button", "Start Recording"), ("push button", "Record"), ("push button", "Encode File"),
                          ("radio button", "Record from MID file"), ("progress bar", "Progress")},
    "Tutorial Wizard": {("check box", "Show Tips"), ("page tab", "Midi"), ("push button", "3. Open Channel 2........"), ("push button", "Close")},
}
OPENED_BY = {"Editing Toolbar": 10, "Recording Toolbar": 11, "Tutorial Wizard": 12}


def read(node, depth, lines, found):
    """Walks through the visible objects and collects their roles and names, and those that have neither."""
    role, name = node.role(), node.told("Name")
    if not node.has(SHOWING) and depth > 0:
        return
    marks = [mark for mark, state in (("checked", CHECKED), ("takes the keyboard", FOCUSABLE)) if node.has(state)]
    if not node.has(ENABLED):
        marks.append("disabled")
    description = node.told("Description")
    lines.append("  " * depth + f"{role} '{name}'" + (f" - {description}" if description else "") +
                 (f" [{', '.join(marks)}]" if marks else ""))
    check(name or role in HOLDERS, f"no name: {' / '.join(line.strip() for line in lines[-3:])}")
    check(not (node.has(FOCUSABLE) and depth > 0 and role in ("filler", "unknown", "label")),
          f"no role: {lines[-1].strip()}")
    found.add((role, (node.label() or name).strip()))
    if role != "table":  # thousands of cells; reader_tune_test reads them
        for child in node.children():
            read(child, depth + 1, lines, found)


def read_window(program, title):
    window = wait_until(lambda: next((child for child in program.children() if child.told("Name").strip() == title), None),
                        f"the window '{title}' on the bus")
    lines, found = [], set()
    read(window, 0, lines, found)
    if "VELORIN_PRINT_TREE" in os.environ:
        print("\n".join(lines))
    missing = EXPECTED[title] - found
    check(not missing, f"the window '{title}' lacks {sorted(missing)}; it has {sorted(found)}")


def press_by_reader(program, name):
    """A press by a screen reader acts like a click, whichever window is active."""
    setup = next(child for child in program.children() if child.told("Name") == "Setup Toolbar")
    row = next(node for node in nodes(setup) if node.told("Name") == name)
    check(not row.has(CHECKED), f"{name} is already selected at the start")
    row.object.get_dbus_method("DoAction", "org.a11y.atspi.Action")(0)
    wait_until(lambda: row.has(CHECKED), f"{name} is selected")


def speaks_english(program):
    """A screen reader asks which voice to use."""
    locale = str(program.object.get_dbus_method("GetLocale", "org.a11y.atspi.Application")(dbus.UInt32(0)))
    check(locale == "en_GB", f"the program says that it speaks '{locale}'")


def test(build):
    with Desk(build) as desk:
        desk.environment["LC_ALL"] = "de_DE.UTF-8"
        bus = open_bus(desk)
        announcements = Announcements(desk, bus)
        program = desk.launch()
        program.main_window()
        tree = program_on(bus)
        speaks_english(tree)
        for title in EXPECTED:
            if title in OPENED_BY:
                program.press(OPENED_BY[title])
            read_window(tree, title)
            if title == "Setup Toolbar":
                press_by_reader(tree, "Channel 3")
                announcements.wait_for("StateChanged", "checked")
        # The press on its toolbar has activated the main window.
        press_by_reader(tree, "Channel 4")
        program.end()


run(test)
