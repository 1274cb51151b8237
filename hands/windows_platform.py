"""A Windows of the tests' own under Wine, and a user of the program there. The user sees its
windows through another program, the reader."""

import collections
import fcntl
import itertools
import pathlib
import subprocess

import console_platform
from any_user import AnyUser, Box
from screen import output_of

WINE = pathlib.Path(__file__).with_name("wine.sh")

# What is set in the registry: the devices behind the ports, the adapter that is COM1, and the looks
# of all windows.
SETTINGS = r"""Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\Software\Wine\Ports]
"COM1"="{folder}/com1"
"COM2"="{folder}/com2"
"COM3"="{folder}/com3"
"COM4"="{folder}/com4"

[HKEY_LOCAL_MACHINE\System\CurrentControlSet\Enum\USB\TEST\1]
"ClassGUID"="{{4d36e978-e325-11ce-bfc1-08002be10318}}"
"DeviceDesc"="Test Adapter"

[HKEY_LOCAL_MACHINE\System\CurrentControlSet\Enum\USB\TEST\1\Device Parameters]
"PortName"="COM1"

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="{managed}"

[HKEY_CURRENT_USER\Control Panel\Desktop]
"LogPixels"=dword:{density:08x}

[HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics]
"MessageFont"=hex:{font}

[HKEY_CURRENT_USER\Control Panel\Colors]
"HilightText"="{background}"
"WindowText"="{text}"
"""

# The services of Wine outlive the program that started them and would hold its streams open.
SILENT = {name: subprocess.DEVNULL for name in ("stdin", "stdout", "stderr")}

# The message font, 11 or 27 pixels high.
FACE = "00" * 12 + "90010000" + "00" * 8 + "Tahoma".encode("utf-16-le").hex()
USUAL, LARGE = ((height + "ffffff" + FACE).ljust(184, "0") for height in ("f5", "e5"))


def free_wine(folder):
    """The first Wine of that folder that no other test uses, and a lock on it, which is a file and ends
    when that is closed."""
    folder.mkdir(exist_ok=True)
    for number in itertools.count(1):
        lock = open(folder / f"{number}.lock", "w")
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            return folder / str(number), lock
        except BlockingIOError:
            lock.close()


class Windows:
    """COM1 to COM4 are links in a folder, so that a test can put a device behind a number while
    Windows runs. All four are named, because Wine would give a free number to a real port of the
    computer."""

    densities = [{"density": density} for density in (96, 120, 144, 192)]
    densities += [{"density": 96, "font": LARGE}, {"density": 192, "font": LARGE}]
    # The title bar is held without the window manager, because Windows then draws one of its own.
    holds = [({}, AnyUser.open_menu), ({}, AnyUser.open_menu_of_result),
             ({}, AnyUser.open_system_menu), ({"managed": "N"}, AnyUser.press_title_bar),
             ({"managed": "N"}, AnyUser.hold_title_bar), ({"managed": "N"}, AnyUser.move_with_keys)]
    write_refusal = (
        r"^Unhandled Error number \d+\nCOM1: .* If its adapter has been pulled out, plug it in again\."
        r"\nOccured in LL_Serial_SendMessage$"
    )

    def __init__(self, build):
        self.build = pathlib.Path(build).resolve()
        self.prefix, self.lock = free_wine(self.build / "wine")
        self.folder = self.prefix / "ports"
        self.reader = None

    def close(self):
        self.shut_down()
        self.lock.close()

    def run(self, *command, check=True):
        subprocess.run([WINE, self.prefix, *command], check=check, **SILENT)

    def command(self, program, *arguments):
        return [WINE, self.prefix, "wine", self.build / program, *arguments]

    def launch(self, program, *arguments, **streams):
        return subprocess.Popen(self.command(program, *arguments), **{**SILENT, **streams})

    def assert_passes(self, test, program):
        """A test program ends with success, or the test fails with what the program reports."""
        process = self.launch(program, stdout=subprocess.PIPE, text=True)
        with process.stdout:
            report = process.stdout.read()
        test.assertEqual(process.wait(), 0, report)
        test.assertIn("PASSED", report)

    def set_up(self, density=96, font=USUAL, colors=((255, 255, 255), (0, 0, 0)), managed="Y"):
        """Sets the density, the message font, the colours of the background of the result box and
        of text, and whether the window manager manages the windows. Windows is shut down before, so
        that the next program starts it with these settings."""
        self.managed = managed == "Y"
        background, text = (" ".join(map(str, color)) for color in colors)
        self.shut_down()
        self.folder.mkdir(exist_ok=True)
        wanted, present = self.prefix / "wanted.reg", self.prefix / "present.reg"
        wanted.write_text(SETTINGS.format(
            folder=self.folder, managed=managed, density=density,
            font=bytes.fromhex(font).hex(","), background=background, text=text,
        ), "utf-16")
        if not present.exists() or present.read_bytes() != wanted.read_bytes():
            self.run("wine", "reg", "import", f"Z:{wanted}")
            self.shut_down()
            wanted.replace(present)

    def shut_down(self):
        if self.reader:
            self.reader.close()
            self.reader = None
        self.run("wineserver", "--kill", check=False)  # fails when none runs
        self.run("wineserver", "--wait")

    def port(self, number):
        return self.folder / f"com{number}"

    def attach(self, *devices):
        """Puts the devices behind COM1, COM2 and so on, and nothing behind the other numbers."""
        for number in range(1, 5):
            self.port(number).unlink(missing_ok=True)
        for number, device in enumerate(devices, 1):
            if device:
                self.port(number).symlink_to(device)

    def user(self, *devices):
        """A user of the window with the devices behind Serial Port 1 and on; None is no device."""
        self.attach(*devices)
        self.reader = self.reader or Reader(self)
        process = self.launch("program/windows/ZendorSerialExtractor.exe")
        return User(process, self.reader, self.managed)

    def tooltip(self, _):
        """That of the choice of COM1."""
        return "COM1, Test Adapter"

    def name_adapter(self, name):
        """Gives the adapter that is COM1 another name, until the next set_up()."""
        key = r"HKLM\System\CurrentControlSet\Enum\USB\TEST\1"
        self.run("wine", "reg", "add", key, "/v", "DeviceDesc", "/d", name, "/f")
        (self.prefix / "present.reg").unlink(missing_ok=True)

    def refusals(self, _):
        """Devices that do not open, each with the start of the reason, because the rest is in the
        words of the system. None stands for a holder, because no device is held."""
        return [([], "COM1: "), ([__file__], "COM1: ")], None


class WindowsConsole(Windows):
    """The command for scripts."""

    program = "program/console/ZendorSerialNumber.exe"
    help_options = ["--help", "-?", "/?"]
    listed_ports = "1: COM1, Test Adapter\n" + "".join(
        rf"{number}: (COM{number}|no such port on this computer)\n" for number in range(2, 5)
    ) + "other: a port such as COM5\n"

    def set_up(self):
        """Starts the reader, because the services of Wine would print into the streams of the
        program that starts them."""
        super().set_up()
        self.reader = Reader(self)

    def user(self, *devices):
        self.attach(*devices)
        command = self.command(self.program, "1")
        return console_platform.User(command, self.program, console_platform.PORT)

    def name_port(self, device):
        self.attach(device)
        return "com1"

    def run_command(self, *arguments, stdout=subprocess.PIPE):
        return console_platform.run(self.command(self.program, *arguments), stdout)


Row = collections.namedtuple("Row", "level kind state left top right bottom text")


def place_of(row):
    return row.left, row.top, row.right, row.bottom


class Reader:
    """What the visible windows show, as the reader program lists it. Once it is made, Windows has
    started, which refuses a program now and then that comes before."""

    def __init__(self, windows):
        self.process = windows.launch(
            "hands/window_reader.exe",
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, encoding="utf-8",
        )
        self.windows()

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()

    def click_hastily(self, caption):
        self.process.stdin.write(caption + "\n")
        self.process.stdin.flush()
        self.process.stdout.readline()

    def windows(self):
        """A list of rows for each window: its own, its client area's and its children's."""
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        found = []
        for line in iter(self.process.stdout.readline, "\n"):
            if not line:
                raise EOFError(f"The reader of the windows ended with status {self.process.wait()}")
            level, kind, state, left, top, right, bottom, text = line.rstrip("\n").split("\t")
            text = text.replace("\\r\\n", "\n").replace("\\n", "\n")
            places = map(int, (left, top, right, bottom))
            row = Row(int(level), kind, set(state.split()), *places, text)
            if row.level == 0:
                found.append([])
            found[-1].append(row)
        return found

    def window(self, kind):
        return next((rows for rows in self.windows() if rows[0].kind == kind), None)


class User(AnyUser):
    """Uses the window of the program that runs as the process. Whether the window manager manages
    the window is said by managed."""

    def __init__(self, process, reader, managed):
        super().__init__(process, "zendorserialextractor.exe")
        self.reader = reader
        self.managed = managed

    def wait_for_window(self):
        self.wait_until(self.rows, "The window")
        if self.managed:
            self.wait_until(self.has_keyboard, "The keyboard of the screen")

    def __exit__(self, *error):
        super().__exit__(*error)
        self.wait_until(lambda: not self.rows(), "The end of the window")

    def rows(self):
        return self.reader.window("ZendorForm") or []

    def find(self, text):
        return next(row for row in self.rows()[1:] if row.text == text)

    def title(self):
        return self.rows()[0].text

    def place(self, caption):
        return place_of(self.find(caption))

    def client_place(self):
        return place_of(self.rows()[1])

    def menu_bar(self):
        left, top, right, _ = self.client_place()
        return left, top - 16, right, top

    def result_row(self):
        return next(row for row in self.rows() if row.kind == "Edit")

    def result_place(self):
        return place_of(self.result_row())

    def result(self):
        return self.result_row().text

    def find_box(self):
        rows = self.reader.window("#32770")
        if not rows:
            return None
        texts = [row.text for row in rows if row.kind == "Static" and row.text]
        buttons = {row.text.replace("&", ""): place_of(row) for row in rows if row.kind == "Button"}
        return Box(rows[0].text, "\n".join(texts), buttons, place_of(rows[1]))

    def is_enabled(self, text):
        return "enabled" in self.find(text).state

    def is_selected(self, text):
        return "checked" in self.find(text).state

    def focused(self):
        return next((row.text for row in self.rows() if "focused" in row.state), None)

    def has_tooltip(self, text):
        tips = (rows[0] for rows in self.reader.windows() if rows[0].kind == "tooltips_class32")
        return any(tip.text == text for tip in tips)

    def click_hastily(self, caption):
        """Clicks five times at once, as a program can that operates windows for its user."""
        self.reader.click_hastily(caption)

    def has_keyboard(self):
        """Whether the window manager gives the keys of the screen to the window. The focus within
        the window comes from Windows and does not tell that."""
        command = ["xdotool", "getwindowfocus", "getwindowname"]
        return output_of(*command, check=False).strip() == self.title()
