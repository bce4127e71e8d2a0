"""Quernstoke as the person at the desktop works it."""

import subprocess

from accessibility import Bus
from waiting import LIMIT, Failed, unless_gone, wait_for


class Program:
    def __init__(self, desktop, binary, environment, pictures):
        self.desktop = desktop
        self.scale = int(environment.get("QT_SCALE_FACTOR", 1))
        self.pictures = pictures
        self.process = desktop.run(binary, **environment)
        self.bus = Bus(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])

    def windows(self):
        return [
            Window(self, window)
            for program in self.bus.programs()
            if program.name == "Quernstoke"
            for window in program.children
            if window.has("showing")
        ]

    def window(self, title):
        """The window of this title, when it is there and has the keyboard."""

        def look():
            for window in self.windows():
                if window.control.name == title and window.control.has("active"):
                    return window
            return None

        return wait_for(f"the window '{title}'", lambda: self._alive(look))

    def window_with(self, text):
        """The window that shows this text, whatever its title."""

        def look():
            for window in self.windows():
                if any(c.name == text and c.has("showing") for c in window.control.all_below()):
                    return window
            return None

        return wait_for(f"a window with '{text}'", lambda: self._alive(look))

    def shows(self, title):
        return unless_gone(
            lambda: any(window.control.name == title for window in self.windows())
        )

    def _alive(self, look):
        found = unless_gone(look)
        if not found and self.process.poll() is not None:
            raise Failed(f"the program has ended with status {self.process.returncode}")
        return found

    def wait_for_end(self):
        try:
            status = self.process.wait(LIMIT)
        except subprocess.TimeoutExpired as error:
            raise Failed("the program goes on after Exit") from error
        if status != 0:
            raise Failed(f"the program has ended with status {status}")

    def keys(self, *keys):
        self.desktop.keys(*keys)

    def type(self, text):
        self.desktop.type(text)


def has_focus(control):
    return control.has("focused")


# Position 0 is one, too.
def at(position):
    return None if position is None else (position,)


class Window:
    def __init__(self, program, control):
        self.program = program
        self.control = control
        self.title = control.name

    def texts(self):
        return [control.name for control in self.control.all_below() if control.has("showing")]

    def find(self, name, role=None):
        """A control that is to be seen. Of several of one name, the first."""

        def look():
            for control in self.control.all_below():
                if control.name == name and (role is None or control.role == role):
                    if control.has("showing"):
                        return control
            return None

        return wait_for(f"'{name}' in the window '{self.title}'", look)

    def place(self, control):
        """Its middle, in dots of the screen."""
        left, top, width, height = control.area()
        scale = self.program.scale
        return (left + width // 2) * scale, (top + height // 2) * scale

    def click(self, name, role="push button"):
        control = self.find(name, role)
        wait_for(f"'{name}' to be enabled", lambda: control.has("enabled"))
        self.program.desktop.click(*self.place(control))

    def choose(self, name, entry):
        """Opens a list and chooses with the keyboard."""
        box = self.find(name, "combo box")
        entries = [c.name for c in box.all_below() if c.role == "list item"]
        self.program.desktop.click(*self.place(box))
        self.program.keys("Home", *["Down"] * entries.index(entry), "Return")

    def enter(self, name, text, role="text"):
        """Replaces the text of a field."""
        field = self.find(name, role)
        self.program.desktop.click(*self.place(field))
        wait_for(f"the keyboard in '{name}'", lambda: field.has("focused"))
        self.program.keys("ctrl+a")
        self.program.type(text)
        wait_for(f"'{text}' in '{name}'", lambda: field.text == text)

    def open_branch(self, names):
        """Walks down a tree with the keyboard, from its root."""
        tree = self.find("Directories", "tree")

        def items():
            return [item for item in tree.children if item.role == "tree item"]

        def position(condition):
            return next((i for i, item in enumerate(items()) if condition(item)), None)

        for name in names:
            here = wait_for("the current directory", lambda: at(position(has_focus)))
            current = items()[here[0]]
            if not current.has("expanded"):
                self.program.keys("Right")
            below = wait_for(f"'{name}' in the tree", lambda: at(position(lambda i: i.name == name)))
            self.program.keys(*["Down"] * (below[0] - here[0]))
            wait_for(
                f"'{name}' to be the current directory",
                lambda: at(position(lambda i: i.name == name and has_focus(i))),
            )

    def rows(self, grid="Files"):
        return [row for row in self.find(grid, "list").children]

    def row(self, part, grid="Files"):
        def look():
            return next((row for row in self.rows(grid) if part in row.name), None)

        return wait_for(f"a row with '{part}'", look)

    def click_row(self, part, grid="Files"):
        """On its name, which selects it."""
        left, top, width, height = self.row(part, grid).area()
        scale = self.program.scale
        self.program.desktop.click((left + width // 4) * scale, (top + height // 2) * scale)

    def tick_row(self, part):
        left, top, _, height = self.row(part).area()
        scale = self.program.scale
        self.program.desktop.click((left + 8) * scale, (top + height // 2) * scale)

    def wait_gone(self):
        title = f"the window '{self.title}' to go"
        wait_for(title, lambda: not self.program.shows(self.title))

    def picture(self, name):
        left, top, _, _ = (length * self.program.scale for length in self.control.area())
        self.program.desktop.point(left + 2, top + 2)  # On no control, which might show its help.
        self.program.desktop.picture(self.program.pictures / f"{name}.png", self.title)
