"""The controls of a program, as a screen reader sees them."""

from gi.repository import Gio, GLib

from waiting import Gone

ROOT = "/org/a11y/atspi/accessible/root"
ACCESSIBLE = "org.a11y.atspi.Accessible"
STATES = {
    "active": 1, "checked": 4, "enabled": 8, "expandable": 9, "expanded": 10, "focused": 12,
    "showing": 25,
}
SCREEN = 0


class Bus:
    def __init__(self, session_address):
        session = self._connect(session_address)
        address = session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
            Gio.DBusCallFlags.NONE, -1, None,
        ).unpack()[0]
        self.connection = self._connect(address)

    @staticmethod
    def _connect(address):
        flags = Gio.DBusConnectionFlags
        return Gio.DBusConnection.new_for_address_sync(
            address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None
        )

    def call(self, place, interface, method, arguments=None):
        name, path = place
        try:
            return self.connection.call_sync(
                name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 20000, None
            ).unpack()
        except GLib.Error as error:
            raise Gone(f"{method}: {error.message}") from error

    def programs(self):
        registry = ("org.a11y.atspi.Registry", ROOT)
        return [Control(self, place) for place in self.call(registry, ACCESSIBLE, "GetChildren")[0]]


class Control:
    def __init__(self, bus, place):
        self.bus = bus
        self.place = place

    def _ask(self, method, interface=ACCESSIBLE, arguments=None):
        return self.bus.call(self.place, interface, method, arguments)[0]

    def _property(self, name, interface=ACCESSIBLE):
        arguments = GLib.Variant("(ss)", (interface, name))
        return self._ask("Get", "org.freedesktop.DBus.Properties", arguments)

    @property
    def name(self):
        return self._property("Name")

    @property
    def role(self):
        return self._ask("GetRoleName")

    @property
    def children(self):
        return [Control(self.bus, tuple(place)) for place in self._ask("GetChildren")]

    @property
    def text(self):
        everything = GLib.Variant("(ii)", (0, -1))
        return self._ask("GetText", "org.a11y.atspi.Text", everything)

    def has(self, state):
        words = self._ask("GetState")
        bit = STATES[state]
        return bool(words[bit // 32] >> bit % 32 & 1)

    def area(self):
        """Left, top, width and height on the screen."""
        return self._ask("GetExtents", "org.a11y.atspi.Component", GLib.Variant("(u)", (SCREEN,)))

    def all_below(self):
        for child in self.children:
            yield child
            yield from child.all_below()
