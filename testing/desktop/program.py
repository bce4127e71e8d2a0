"""Quernstoke as the person at the desktop works it."""

import itertools
import subprocess

from accessibility import Bus
from waiting import LIMIT, Failed, unless_gone, wait_for


class Program:
    def __init__(self, desktop, binary, environment, pictures):
        self.desktop = desktop
        self.scale = int(environment.get("QT_SCALE_FACTOR", 1))
        self.pictures = pictures
        self.process = desktop.run(binary, environment)
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
        return unless_gone(lambda: any(window.title == title for window in self.windows()))

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

    def _point_at(self, control, right=None):
        """So far to the right of its left edge, or else in its middle."""
        left, top, width, height = control.area()
        x = left + (width // 2 if right is None else right)
        scale = self.program.scale
        self.program.desktop.point(x * scale, (top + height // 2) * scale)

    def click_on(self, control, right=None):
        self._point_at(control, right)
        self.program.desktop.click()

    def click(self, name, role="push button"):
        control = self.find(name, role)
        wait_for(f"'{name}' to be enabled", lambda: control.has("enabled"))
        self.click_on(control)

    def choose(self, name, entry):
        """Opens a list and chooses with the keyboard."""
        box = self.find(name, "combo box")
        entries = [c.name for c in box.all_below() if c.role == "list item"]
        self.click_on(box)
        self.program.keys("Home", *["Down"] * entries.index(entry), "Return")

    def enter(self, name, text):
        """Replaces the text of a field."""
        field = self.find(name, "text")
        self.click_on(field)
        wait_for(f"the keyboard in '{name}'", lambda: field.has("focused"))
        self.program.keys("ctrl+a")
        self.program.type(text)
        wait_for(f"'{text}' in '{name}'", lambda: field.text == text)

    def open_branch(self, names):
        """Walks down a tree with the keyboard, from its root."""
        for name in names:
            current = wait_for("the current directory", self._tree_from_current)[0]
            if not current.has("expanded"):
                wait_for(f"a mark to open '{current.name}'", lambda: current.has("expandable"))
                self.program.keys("Right")
                wait_for(f"'{current.name}' to open", lambda: current.has("expanded"))
            below = [item.name for item in self._tree_from_current()]
            self.program.keys(*["Down"] * below.index(name))
            wait_for(
                f"'{name}' to be the current directory",
                lambda: [item.name for item in self._tree_from_current()][:1] == [name],
            )

    def _tree_from_current(self):
        items = [c for c in self.find("Directories", "tree").children if c.role == "tree item"]
        return list(itertools.dropwhile(lambda item: not item.has("focused"), items))

    def rows(self, grid="Files"):
        return self.find(grid, "list").children

    def row(self, part, grid="Files"):
        def look():
            return next((row for row in self.rows(grid) if part in row.name), None)

        return wait_for(f"a row with '{part}'", look)

    def click_row(self, part, grid="Files"):
        """On its name, which selects it."""
        self.click_on(self.row(part, grid), 60)

    def tick_row(self, part):
        self.click_on(self.row(part), 8)

    def wait_gone(self):
        title = f"the window '{self.title}' to go"
        wait_for(title, lambda: not self.program.shows(self.title))

    def picture(self, name, help_on=None):
        """With the help on a field, or else the pointer on nothing that has help."""
        if help_on:
            self._point_at(self.find(help_on, "text"))
        else:
            left, top, _, _ = (length * self.program.scale for length in self.control.area())
            self.program.desktop.point(left + 2, top + 2)
        self.program.desktop.picture(self.program.pictures / f"{name}.png", self.title)
