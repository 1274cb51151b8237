"""A Windows of the tests' own under Wine, and a user of the program on it: sees its windows through
a reader program, as a screen reader does, and acts with the screen's own mouse and keyboard."""

import collections
import os
import pathlib
import shutil
import subprocess
import tempfile

from captions import BUTTON
from screen import wait_for, xdotool

PORTS = r"HKLM\Software\Wine\Ports"
DESKTOP = r"HKCU\Control Panel\Desktop"
METRICS = DESKTOP + r"\WindowMetrics"
COLORS = r"HKCU\Control Panel\Colors"

# The services of Wine outlive the program that started them and would hold its streams open.
SILENT = {name: subprocess.DEVNULL for name in ("stdin", "stdout", "stderr")}


class Windows:
    """COM1 to COM4 are links in a folder, so that a test puts a device behind a number while Windows
    runs. All four are named: Wine gives free numbers to the real ports of the machine."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="windows-"))
        self.environment = dict(
            os.environ,
            WINEPREFIX=str(self.folder / "prefix"),
            WINEDLLOVERRIDES="mscoree,mshtml=",
            WINEDEBUG="-all",
        )
        self.run("wineboot", "--init")
        for number in range(1, 5):
            self.set(PORTS, f"COM{number}", str(self.port(number)))
        self.shut_down()

    def remove(self):
        self.shut_down()
        shutil.rmtree(self.folder)

    def run(self, *command, check=True):
        subprocess.run(command, env=self.environment, check=check, **SILENT)

    def start(self, program, **streams):
        return subprocess.Popen(["wine", program], env=self.environment, **{**SILENT, **streams})

    def set(self, key, name, value, kind="REG_SZ"):
        self.run("wine", "reg", "add", key, "/v", name, "/t", kind, "/d", value, "/f")

    def shut_down(self):
        """Windows starts anew, with its settings, with the next program."""
        self.run("wineserver", "--kill", check=False)  # fails when none runs
        self.run("wineserver", "--wait")

    def port(self, number):
        return self.folder / f"com{number}"

    def attach(self, **devices):
        """attach(com1=path) puts that device behind COM1, and nothing behind the other numbers."""
        for number in range(1, 5):
            self.port(number).unlink(missing_ok=True)
            if f"com{number}" in devices:
                self.port(number).symlink_to(devices[f"com{number}"])


Row = collections.namedtuple("Row", "level kind state left top right bottom text")


class Reader:
    """What the visible windows show, as the reader program lists it."""

    def __init__(self, windows, program):
        self.process = windows.start(
            program, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8"
        )

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()

    def ask(self, question):
        self.process.stdin.write(question + "\n")
        self.process.stdin.flush()
        lines = []
        for line in self.process.stdout:
            if line == "\n":
                return lines
            lines.append(line.rstrip("\n"))
        raise EOFError("The reader of the windows has ended")

    def clipboard(self):
        return "\n".join(self.ask("clipboard"))

    def windows(self):
        """A list of rows for each window: its own, then those of its children."""
        found = []
        for line in self.ask("windows"):
            level, kind, state, left, top, right, bottom, text = line.split("\t")
            text = text.replace("\\r\\n", "\n").replace("\\n", "\n")
            places = map(int, (left, top, right, bottom))
            row = Row(int(level), kind, set(state.split()), *places, text)
            if row.level == 0:
                found.append([])
            found[-1].append(row)
        return found

    def window(self, kind):
        for rows in self.windows():
            if rows[0].kind == kind:
                return rows
        return None


def click_row(row):
    xdotool("mousemove", (row.left + row.right) // 2, (row.top + row.bottom) // 2, "click", 1)


class Box:
    """An open message box."""

    def __init__(self, rows):
        self.rows = rows
        self.title = rows[0].text
        labels = [row for row in rows if row.kind == "Static"]
        self.text = "\n".join(row.text for row in labels if row.text)
        top = min(row.top for row in labels)
        self.inside = (rows[0].left, top, rows[0].right, rows[0].bottom)  # without the title bar
        self.buttons = [row.text.replace("&", "") for row in rows if row.kind == "Button"]


class User:
    """Starts the program and uses its window; the program is killed at the end of a with block."""

    def __init__(self, windows, reader, program):
        self.reader = reader
        self.process = windows.start(program)
        wait_for(lambda: self.focused(), "The keyboard focus")
        wait_for(self.has_keyboard, "The keyboard of the screen")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        wait_for(lambda: None if self.rows() else True, "The end of the window")

    def rows(self):
        return self.reader.window("ZendorForm")

    def find(self, text):
        for row in self.rows() or []:
            if row.text == text:
                return row
        return None

    def result_row(self):
        return next(row for row in self.rows() if row.kind == "Edit")

    def result(self):
        return self.result_row().text

    def focused(self):
        for row in self.rows() or []:
            if "focused" in row.state:
                return row.text
        return None

    def has_keyboard(self):
        """Windows gives the focus within the window; the window manager gives it the keys."""
        command = ["xdotool", "getwindowfocus", "getwindowname"]
        name = subprocess.run(command, capture_output=True, text=True).stdout.strip()
        return True if name == self.rows()[0].text else None

    def is_enabled(self, text):
        return "enabled" in self.find(text).state

    def is_selected(self, text):
        return "checked" in self.find(text).state

    def click(self, text):
        click_row(self.find(text))

    def press(self, *keys):
        xdotool("key", *keys)

    def box(self):
        return Box(wait_for(lambda: self.reader.window("#32770"), "A message box"))

    def answer(self, box):
        click_row(next(row for row in box.rows if row.kind == "Button"))
        wait_for(lambda: None if self.reader.window("#32770") else True, "The end of the box")

    def wait_for_result(self, earlier=""):
        def look():
            now = self.result()
            return now if now not in ("", earlier) else None

        return wait_for(look, "A result")

    def wait_until_focused(self, text):
        wait_for(lambda: self.focused() == text or None, f'The focus on "{text}"')

    def wait_until_selected(self, text):
        wait_for(lambda: self.is_selected(text) or None, f'"{text}" selected')

    def wait_until_enabled(self, enabled=True):
        wait_for(lambda: self.is_enabled(BUTTON) == enabled or None, f"Button enabled: {enabled}")

    def wait_for_end(self, seconds=10.0):
        """The exit status of the program."""
        return self.process.wait(seconds)
