"""The accessibility bus: what a screen reader finds of the program, and what it hears."""

import os
import sys

try:
    import dbus
except ModuleNotFoundError:  # the bindings are installed only for the system's interpreter
    SYSTEM = "/usr/bin/python3"
    if sys.executable == SYSTEM:
        raise
    os.execv(SYSTEM, [SYSTEM, *sys.argv])

from waiting import wait_until

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT = "/org/a11y/atspi/accessible/root"
# The bits of states on the bus.
CHECKED, ENABLED, FOCUSABLE, SHOWING, SENSITIVE = 4, 8, 11, 25, 24


class Node:
    """One object on the bus."""

    def __init__(self, bus, name, path):
        self.bus, self.bus_name, self.path = bus, name, path
        self.object = bus.get_object(name, path, introspect=False)

    def call(self, method, interface=ACCESSIBLE):
        return self.object.get_dbus_method(method, interface)()

    def told(self, what):
        return str(self.object.Get(ACCESSIBLE, what, dbus_interface=dbus.PROPERTIES_IFACE))

    def children(self):
        """The file dialog of Qt lists children that are not there."""
        return [Node(self.bus, name, path) for name, path in self.call("GetChildren") if not path.endswith("/null")]

    def role(self):
        return str(self.call("GetRoleName"))

    def label(self):
        """The name of its label. The name of a list itself is the entry that it shows."""
        labelled_by = 2
        for kind, targets in self.call("GetRelationSet"):
            if kind == labelled_by:
                return Node(self.bus, *targets[0]).told("Name")
        return ""

    def is_showing(self):
        return self.has(SHOWING)

    def is_sensitive(self):
        return self.has(SENSITIVE)

    def has(self, state):
        low, high = self.call("GetState")
        return bool((low | high << 32) >> state & 1)


# A session on which a program can have no name, so that programs find each other as without a session.
NAMELESS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>{address}</listen>
  <standard_session_servicedirs/>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
    <deny own_prefix="org.velorin"/>
  </policy>
</busconfig>
"""


class AccessibilityBus:
    """A session bus, its accessibility bus, and a screen reader that listens to all events."""

    def __init__(self, desk, has_names=True):
        socket = desk.folder / ("session.sock" if has_names else "nameless.sock")
        self.session = f"unix:path={socket}"
        config = desk.folder / "nameless.conf"
        config.write_text(NAMELESS.format(address=self.session))
        kind = ["--session", f"--address={self.session}"] if has_names else [f"--config-file={config}"]
        desk.start(["dbus-daemon", "--nofork", *kind])
        wait_until(socket.exists, "the session bus")
        desk.environment["DBUS_SESSION_BUS_ADDRESS"] = self.session
        desk.start([LAUNCHER, "--launch-immediately"])
        bus = dbus.bus.BusConnection(self.session)
        wait_until(lambda: bus.name_has_owner("org.a11y.Bus"), "the accessibility bus")
        a11y = bus.get_object("org.a11y.Bus", "/org/a11y/bus")

        def enabled():
            a11y.Set("org.a11y.Status", "IsEnabled", True, dbus_interface=dbus.PROPERTIES_IFACE)
            return a11y.Get("org.a11y.Status", "IsEnabled", dbus_interface=dbus.PROPERTIES_IFACE)
        wait_until(enabled, "the accessibility")
        self.address = str(a11y.GetAddress(dbus_interface="org.a11y.Bus"))
        self.bus = dbus.bus.BusConnection(self.address)

    def programs(self):
        """The nodes of the programs in the registry."""
        return Node(self.bus, "org.a11y.atspi.Registry", ROOT).children()

    def process_of(self, program):
        """The number of the process."""
        daemon = self.bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus", introspect=False)
        return int(daemon.GetConnectionUnixProcessID(program.bus_name, dbus_interface="org.freedesktop.DBus"))


def open_bus(desk):
    """Starts a session on which programs can have names. Returns its accessibility bus."""
    desk.accessibility = AccessibilityBus(desk)
    desk.a11y_address = desk.accessibility.address
    return desk.accessibility.bus


def program_on(bus):
    """The node of the program, once it is in the registry."""
    def look():
        try:
            for child in Node(bus, "org.a11y.atspi.Registry", ROOT).children():
                if child.told("Name") == "Velorin":
                    return child
        except dbus.DBusException:
            pass
        return None
    return wait_until(look, "the program on the accessibility bus")


def nodes(node):
    """The object and all below it, without the cells of tables: readers ask for single cells."""
    yield node
    if node.role() != "table":
        for child in node.children():
            yield from nodes(child)


class Announcements:
    """The events that the program sends."""

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
