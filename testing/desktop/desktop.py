"""A desktop of its own for one program: screen, window manager, buses, mouse and keyboard."""

import os
import re
import signal
import subprocess

from waiting import LIMIT, Failed, wait_for


class Desktop:
    """Everything that is started here ends with it."""

    def __init__(self, home, size):
        self.home = home
        self.processes = []
        self.environment = self._clean_environment()
        try:
            self._start_screen(size)
            self._start_session_bus()
            self._start("openbox", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            wait_for("the window manager", self._has_window_manager)
        except BaseException:
            self.close()
            raise

    def close(self):
        for process in reversed(self.processes):
            self.end(process)

    def _clean_environment(self):
        runtime = self.home / ".runtime"
        runtime.mkdir(mode=0o700)
        return {
            "HOME": str(self.home),
            "LANG": "C.UTF-8",
            "PATH": f"{self.home}/.local/bin:{os.environ['PATH']}",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_QPA_PLATFORM": "xcb",
            "XDG_RUNTIME_DIR": str(runtime),
        }

    # In a session of its own, so that it goes together with all that it starts itself.
    def _start(self, *command, environment=None, **options):
        process = subprocess.Popen(
            command,
            env=self.environment | (environment or {}),
            cwd=self.home,
            start_new_session=True,
            **options,
        )
        self.processes.append(process)
        return process

    def run(self, program, environment):
        return self._start(str(program), environment=environment)

    @staticmethod
    def end(process):
        for number in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(process.pid, number)
                process.wait(5)
            except ProcessLookupError:
                break
            except subprocess.TimeoutExpired:
                continue
        process.poll()

    def _start_screen(self, size):
        told, tells = os.pipe()
        self._start(
            "Xvfb", "-displayfd", str(tells), "-screen", "0", "%dx%dx24" % size, "-nolisten", "tcp",
            pass_fds=[tells], stderr=subprocess.DEVNULL,
        )
        os.close(tells)
        with os.fdopen(told) as number:
            display = number.readline().strip()
        if not display:
            raise Failed("Xvfb has not started")
        self.environment["DISPLAY"] = f":{display}"

    def _start_session_bus(self):
        bus = self._start(
            "dbus-daemon", "--session", "--nofork", "--print-address",
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
        )
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def _has_window_manager(self):
        return self._run("xdotool", "get_desktop").returncode == 0

    def _run(self, *command):
        return subprocess.run(
            command, env=self.environment, capture_output=True, text=True, timeout=LIMIT
        )

    def tool(self, *command, check=True):
        done = self._run(*command)
        if check and done.returncode != 0:
            raise Failed(f"{' '.join(command)}: {done.stderr}")
        return done.stdout.strip()

    # Mouse and keyboard.

    def click(self):
        self.tool("xdotool", "click", "1")

    def keys(self, *keys):
        self.tool("xdotool", "key", "--delay", "20", *keys)

    def type(self, text):
        self.tool("xdotool", "type", "--delay", "20", text)

    def point(self, x, y):
        self.tool("xdotool", "mousemove", str(x), str(y))

    # Pictures.

    def picture(self, file, title=None):
        """What a window shows, or the screen, once two looks at it are the same. What moves on is
        taken as it is."""
        window = "root" if title is None else self._window(title)
        before = None
        for _ in range(10):
            now = self._photograph(file, window)
            if now and now == before:
                return
            before = now
        if not before:
            raise Failed(f"the window '{title}' shows nothing")

    def _photograph(self, file, window):
        """A text that tells one picture from another; empty if nothing is drawn yet."""
        self.tool("import", "-window", window, str(file), check=False)
        if not file.exists():
            return ""
        colours, signature = self.tool("identify", "-format", "%k %#", str(file)).split()
        return signature if int(colours) > 1 else ""

    def _window(self, title):
        search = ("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$")
        found = wait_for(f"'{title}' on the screen", lambda: self.tool(*search, check=False))
        return found.splitlines()[-1]
