"""Finds the controls of the program by their accessible names."""

from bus import dbus
from waiting import wait_until

COMPONENT = "org.a11y.atspi.Component"
ON_SCREEN = 0
KINDS = {"push button", "check box", "radio button", "page tab", "combo box", "text", "scroll bar"}


class Names:
    """For the programs on the accessibility bus of a desk."""

    def __init__(self, desk):
        self.desk = desk
        self.windows = {}  # (process, title): (the window, [(the names of a control, the control)])
        self.places = {}  # (process, title, name): (the control, its place)

    def place(self, process, title, name):
        """(x, y, width, height) of a control in its window, in pixels. Waits until the control is shown."""
        def look():
            try:
                return self.look(process, title, name)
            except dbus.DBusException:  # the window has been closed
                self.windows.pop((process, title), None)
                self.places.pop((process, title, name), None)
                return None
        return wait_until(look, f"'{name}' in the window '{title}'")

    def look(self, process, title, name):
        known = self.places.get((process, title, name))
        if not known:
            known = self.search(process, title, name)
        if not known or not known[0].is_showing():
            return None
        self.places[process, title, name] = known
        return known[1]

    def search(self, process, title, name):
        """The control with its place. A window is read again if it has no such control, or does not show it."""
        for _ in range(2):
            if (process, title) not in self.windows:
                self.windows[process, title] = self.read(process, title)
            window, controls = self.windows[process, title]
            for names, control in controls:
                if name in names and control.is_showing():
                    return control, place_in(control, window)
            del self.windows[process, title]
        return None

    def read(self, process, title):
        bus = self.desk.accessibility
        for program in bus.programs():
            if bus.process_of(program) == process:
                for window in program.children():
                    if is_titled(window, title):
                        return window, list(controls_of(window))
        return None, []


def is_titled(window, title):
    """The main window may have the name of a score before its own."""
    return (" - " + window.told("Name")).endswith(" - " + title)


def controls_of(node):
    """The controls below a node, each with its names. A list of entries has the name of its label."""
    role = node.role()
    if role in KINDS:
        yield (node.told("Name"), node.label() if role == "combo box" else None), node
    if role not in ("table", "list", "combo box"):
        for child in node.children():
            yield from controls_of(child)


def place_in(control, window):
    x, y, width, height = extents(control)
    left, top, *_ = extents(window)
    return x - left, y - top, width, height


def extents(node):
    return tuple(map(int, node.object.GetExtents(ON_SCREEN, dbus_interface=COMPONENT)))
