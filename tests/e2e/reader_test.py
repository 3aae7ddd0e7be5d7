"""Reads the windows as a screen reader does, over the accessibility bus: every control has a name and a kind.

With VELORIN_PRINT_TREE set in the environment it prints what it has read.
"""

import os
import sys

try:
    import dbus
except ModuleNotFoundError:  # the bindings belong to the system's own interpreter
    SYSTEM = "/usr/bin/python3"
    if sys.executable == SYSTEM:
        raise
    os.execv(SYSTEM, [SYSTEM, *sys.argv])

from desk import Desk, check, run, wait_until

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT = "/org/a11y/atspi/accessible/root"
# States by their bits, as the bus gives them.
CHECKED, ENABLED, FOCUSABLE, SHOWING, SENSITIVE = 4, 8, 11, 25, 24

# What only holds or shows other things needs no name.
HOLDERS = {"filler", "panel", "layered pane", "page tab list", "label", "unknown", "frame", "scroll pane", "viewport"}
# What stands in each window, by kind and name; a few of each.
EXPECTED = {
    "Velorin": {("push button", "Clear all notes"), ("push button", "Stop"), ("push button", "Exit"), ("canvas", "Music Tableau"),
                ("canvas", "Percussion Tableau"), ("canvas", "Polyphonics Tableau"), ("scroll bar", "Columns"),
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


class Node:
    """One thing on the bus."""

    def __init__(self, bus, name, path):
        self.bus, self.bus_name, self.path = bus, name, path
        self.object = bus.get_object(name, path, introspect=False)

    def call(self, method, interface=ACCESSIBLE):
        return self.object.get_dbus_method(method, interface)()

    def told(self, what):
        return str(self.object.Get(ACCESSIBLE, what, dbus_interface=dbus.PROPERTIES_IFACE))

    def children(self):
        return [Node(self.bus, name, path) for name, path in self.call("GetChildren")]

    def role(self):
        return str(self.call("GetRoleName"))

    def label(self):
        """The name of what labels it: a list's own name is the entry that it shows."""
        labelled_by = 2
        for kind, targets in self.call("GetRelationSet"):
            if kind == labelled_by:
                return Node(self.bus, *targets[0]).told("Name")
        return ""

    def has(self, state):
        low, high = self.call("GetState")
        return bool((low | high << 32) >> state & 1)


def open_bus(desk):
    """A session bus, the accessibility bus on it, and a screen reader that has asked for everything."""
    session = desk.folder / "session.sock"
    desk.start(["dbus-daemon", "--session", "--nofork", f"--address=unix:path={session}"])
    wait_until(session.exists, "the session bus")
    desk.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={session}"
    desk.start([LAUNCHER, "--launch-immediately"])
    bus = dbus.bus.BusConnection(desk.environment["DBUS_SESSION_BUS_ADDRESS"])
    wait_until(lambda: bus.name_has_owner("org.a11y.Bus"), "the accessibility bus")
    a11y = bus.get_object("org.a11y.Bus", "/org/a11y/bus")
    a11y.Set("org.a11y.Status", "IsEnabled", True, dbus_interface=dbus.PROPERTIES_IFACE)
    desk.a11y_address = str(a11y.GetAddress(dbus_interface="org.a11y.Bus"))
    return dbus.bus.BusConnection(desk.a11y_address)


def program_on(bus):
    """The program's own node, once it has told the registry of itself."""
    def look():
        try:
            for child in Node(bus, "org.a11y.atspi.Registry", ROOT).children():
                if child.told("Name") == "Velorin":
                    return child
        except dbus.DBusException:
            pass
        return None
    return wait_until(look, "the program on the accessibility bus")


def read(node, depth, lines, found):
    """Walks through what is to be seen, and notes kinds, names and what has neither."""
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
          f"no kind: {lines[-1].strip()}")
    found.add((role, (node.label() or name).strip()))
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
    check(not missing, f"the window '{title}' does not tell of {sorted(missing)}; it tells of {sorted(found)}")


class Announcements:
    """What the program says of its own accord, since someone has asked to be told."""

    def __init__(self, desk, bus):
        registry = bus.get_object("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", introspect=False)
        registry.get_dbus_method("RegisterEvent", "org.a11y.atspi.Registry")("object:")
        self.heard = desk.folder / "announcements.txt"
        desk.start(["dbus-monitor", "--address", desk.a11y_address,
                    "type='signal',interface='org.a11y.atspi.Event.Object'"], stdout=open(self.heard, "wb"))

    def wait_for(self, member, detail):
        def has_come():
            signals = self.heard.read_text("utf-8", "replace").split("\nsignal ")
            return any(f"member={member}" in signal and f'"{detail}"' in signal for signal in signals)
        wait_until(has_come, f"{member} {detail}")


def press_by_reader(program, name):
    """A reader's press does what the mouse's does, whichever of the windows is active."""
    def nodes(node):
        yield node
        for child in node.children():
            yield from nodes(child)
    setup = next(child for child in program.children() if child.told("Name") == "Setup Toolbar")
    row = next(node for node in nodes(setup) if node.told("Name") == name)
    check(not row.has(CHECKED), f"{name} is selected at the start")
    row.object.get_dbus_method("DoAction", "org.a11y.atspi.Action")(0)
    wait_until(lambda: row.has(CHECKED), f"{name} is selected")


def test(build):
    with Desk(build) as desk:
        bus = open_bus(desk)
        announcements = Announcements(desk, bus)
        program = desk.launch()
        program.main_window()
        tree = program_on(bus)
        for title in EXPECTED:
            if title in OPENED_BY:
                program.press(OPENED_BY[title])
            read_window(tree, title)
            if title == "Setup Toolbar":
                press_by_reader(tree, "Channel 3")
                announcements.wait_for("StateChanged", "checked")
        # A press on its toolbar has made the main window the active one.
        press_by_reader(tree, "Channel 4")
        program.end()


run(test)
