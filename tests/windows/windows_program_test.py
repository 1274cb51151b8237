#!/usr/bin/python3
"""The Windows program under Wine: the real program, a simulated pod on a pseudo-terminal behind COM1,
clicked with the mouse and read through its windows.

Usage: windows_program_test.py BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import functools
import os
import pathlib
import re
import subprocess
import sys
import termios
import threading
import time
import tty
import unittest
import zipfile

from screen import wait_for, xdotool
from simulated_pod import BUILD_CODE, POLL, SERIAL, SimulatedPod
from windows_machine import BUTTON, COLORS, DESKTOP, HEADING, METRICS
from windows_machine import Reader, User, Windows

BUILD = pathlib.Path(sys.argv[1])
Pod = functools.partial(SimulatedPod, sys.argv[2])
PROGRAM = BUILD / "platform/win32/ZendorSerialExtractor.exe"
READER = BUILD / "tools/window_reader.exe"
LINE_TEST = BUILD / "tests/windows/win32_line_test.exe"
SOURCES = pathlib.Path(__file__).resolve().parents[2]

CAPTION = "Zendor Serial Number Extractor V1.0.1"
OPTIONS = [f"Serial Port {number}" for number in range(1, 5)]

# Left, top, width and height in twips, by caption.
PLACES = {
    HEADING: (240, 120, 5172, 372),
    "": (240, 720, 5172, 612),
    OPTIONS[0]: (480, 1560, 1572, 372),
    OPTIONS[1]: (480, 1920, 1572, 372),
    OPTIONS[2]: (3720, 1560, 1572, 372),
    OPTIONS[3]: (3720, 1920, 1572, 372),
    BUTTON: (120, 2400, 5292, 492),
}

# Files that every Windows 10 has.
SYSTEM_LIBRARIES = {
    "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "user32.dll", "advapi32.dll",
    "shell32.dll",
}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class Picture:
    """A part of the screen as rows of (red, green, blue)."""

    def __init__(self, left, top, right, bottom):
        area = f"{right - left}x{bottom - top}+{left}+{top}"
        data = subprocess.run(
            ["import", "-window", "root", "-crop", area, "-depth", "8", "ppm:-"],
            check=True, capture_output=True,
        ).stdout
        size = re.match(rb"P6\s(\d+)\s(\d+)\s255\s", data)
        width, pixels = int(size[1]), data[size.end():]
        points = [tuple(pixels[i:i + 3]) for i in range(0, len(pixels), 3)]
        self.rows = [points[i:i + width] for i in range(0, len(points), width)]

    def edges(self):
        """The sets of colours along the left, top, right and bottom edge."""
        left, right = ({row[side] for row in self.rows} for side in (0, -1))
        return left, set(self.rows[0]), right, set(self.rows[-1])

    def colors(self):
        return {point for row in self.rows for point in row}


def luminance(color):
    linear = [
        c / 12.92 if c <= 0.03928 else ((c + 0.055) / 1.055) ** 2.4 for c in (v / 255 for v in color)
    ]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    darker, lighter = sorted((luminance(one), luminance(other)))
    return (lighter + 0.05) / (darker + 0.05)


class ProgramFile(unittest.TestCase):
    def test_needs_nothing_but_windows(self):
        headers = output_of("x86_64-w64-mingw32-objdump", "-p", str(PROGRAM))
        imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", headers)}
        self.assertEqual(imported - SYSTEM_LIBRARIES, set())
        self.assertIn("user32.dll", imported)

    def test_is_small_stripped_and_hardened(self):
        self.assertLess(PROGRAM.stat().st_size, 1_500_000)
        headers = output_of("x86_64-w64-mingw32-objdump", "-p", str(PROGRAM))
        for flag in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT", "(Windows GUI)"):
            self.assertIn(flag, headers)
        self.assertIn(b"stack smashing detected", PROGRAM.read_bytes())
        self.assertNotIn(".debug", output_of("x86_64-w64-mingw32-objdump", "-h", str(PROGRAM)))

    def test_carries_the_icon_of_every_machine_in_16_colours(self):
        icon = SOURCES / "platform/win32/zendor_serial_extractor.ico"
        drawn = SOURCES / "platform/shared/icon/zendor_serial_extractor.xpm"
        data = icon.read_bytes()
        self.assertIn(data[22:], PROGRAM.read_bytes())
        self.assertEqual((data[6], data[7], data[36]), (32, 32, 4))
        command = ["compare", "-metric", "AE", str(drawn), str(icon), "null:"]
        self.assertEqual(subprocess.run(command, capture_output=True).returncode, 0)

    def test_tells_windows_its_version_and_that_it_scales_itself(self):
        data = PROGRAM.read_bytes()
        self.assertIn("FileVersion\0\0".encode("utf-16-le") + "1.0.1\0".encode("utf-16-le"), data)
        self.assertIn(b">PerMonitorV2<", data)

    def test_is_carried_away_with_a_few_words(self):
        with zipfile.ZipFile(next(BUILD.glob("*.zip"))) as archive:
            names = {pathlib.PurePath(name).name for name in archive.namelist()}
        self.assertEqual(names, {PROGRAM.name, "README.txt"})


class OnWindows(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.windows = Windows()
        cls.addClassCleanup(cls.windows.remove)

    def restart(self, *settings):
        """Starts Windows anew with registry settings, each of key, name, kind and value."""
        for key, name, kind, value in settings:
            self.windows.set(key, name, value, kind)
        self.windows.shut_down()
        self.reader = Reader(self.windows, READER)

    def user(self, **devices):
        self.windows.attach(**devices)
        return User(self.windows, self.reader, PROGRAM)


class Line(OnWindows):
    def test_carries_bytes_as_they_are_at_9600_8n1_without_flow_control(self):
        near, far = os.openpty()
        tty.setraw(far)
        wrong = termios.tcgetattr(far)
        wrong[0] |= termios.IXON | termios.IXOFF
        wrong[2] |= termios.CSTOPB | termios.CRTSCTS
        wrong[4] = wrong[5] = termios.B1200
        termios.tcsetattr(far, termios.TCSANOW, wrong)
        self.windows.attach(com1=os.ttyname(far))

        def send_back():
            while received := os.read(near, 1024):
                os.write(near, received)

        threading.Thread(target=send_back, daemon=True).start()
        test = self.windows.start(LINE_TEST, stdout=subprocess.PIPE, text=True)
        with test.stdout:
            report = test.stdout.read()
        self.assertEqual(test.wait(), 0, report)
        self.assertIn("PASSED", report)
        input_flags, _, line_flags, _, input_speed, output_speed, _ = termios.tcgetattr(far)
        self.assertEqual(input_flags & (termios.IXON | termios.IXOFF), 0)
        self.assertEqual(line_flags & (termios.CSTOPB | termios.CRTSCTS), 0)
        self.assertEqual((input_speed, output_speed), (termios.B9600, termios.B9600))


class Request(OnWindows):
    def setUp(self):
        self.restart()
        self.addCleanup(lambda: self.reader.close())

    def test_shows_the_number(self):
        rows = [
            (("--build-code", "Customer", "--serial-number", "1234567"), "C-1234567"),
            (("--build-code", "Engineer", "--serial-number", "42"), "E-42"),
        ]
        for options, caption in rows:
            with self.subTest(caption), Pod(*options) as pod, self.user(com1=pod.device) as user:
                self.assertEqual(user.rows()[0].text, CAPTION)
                self.assertEqual(user.result(), "")
                self.assertTrue(user.is_selected(OPTIONS[0]))
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), caption)
                user.wait_until_enabled()
                self.assertEqual(pod.requests(), [POLL, BUILD_CODE, SERIAL])

    def test_opens_a_menu_that_offers_nothing(self):
        with self.user() as user:
            button = user.find(BUTTON)
            client_top = button.top - round(PLACES[BUTTON][1] / 15)
            xdotool("mousemove", button.left + 20, client_top - 8, "click", 1)
            menu = wait_for(lambda: self.reader.window("#32768"), "The menu")[0]
            self.assertLess(menu.bottom - menu.top, 20)  # the height of a separator, not of a text
            user.press("Escape", "Escape")
            wait_for(lambda: None if self.reader.window("#32768") else True, "The end of the menu")

    def test_asks_the_chosen_port(self):
        with Pod("--serial-number", "1") as first, Pod("--serial-number", "4") as fourth:
            with self.user(com1=first.device, com4=fourth.device) as user:
                user.click(OPTIONS[3])
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), "C-4")
                user.wait_until_enabled()
                user.click(OPTIONS[0])
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result("C-4"), "C-1")

    def test_says_once_that_no_pod_answers_and_stays_usable(self):
        faults = ("--fault", "echo-only:254:2")  # nobody answers the first poll
        with Pod(*faults, "--serial-number", "7") as pod, self.user(com1=pod.device) as user:
            user.click(BUTTON)
            user.click(OPTIONS[1])  # the window is alive meanwhile
            user.wait_until_selected(OPTIONS[1])
            self.assertFalse(user.is_enabled(BUTTON))
            box = user.box()
            self.assertEqual(
                (box.title, box.text, box.buttons),
                ("Error", "You Must Attach The Zendor!", ["OK"]),
            )
            user.answer(box)
            user.wait_until_focused(BUTTON)
            self.assertEqual(user.result(), "")
            user.click(OPTIONS[0])
            user.click(BUTTON)
            self.assertEqual(user.wait_for_result(), "C-7")
            self.assertEqual(pod.requests(), [POLL, POLL, POLL, BUILD_CODE, SERIAL])

    def test_says_why_a_port_does_not_open_and_ends(self):
        for devices in ({}, {"com2": __file__}):  # gone, and not a serial port
            with self.subTest(devices), self.user(**devices) as user:
                user.click(OPTIONS[1])
                user.click(BUTTON)
                box = user.box()
                self.assertEqual(box.title, "Error opening/closing Serial Port 2")
                self.assertRegex(
                    box.text, r"^COM2: .+\nPlease free the port or choose another$"
                )
                user.answer(box)
                self.assertEqual(user.wait_for_end(), 0)

    def test_ends_after_a_faulty_pod(self):
        with Pod("--build-code", "customer") as pod, self.user(com1=pod.device) as user:
            user.click(BUTTON)
            box = user.box()
            self.assertEqual((box.title, box.text), ("Error", "You Zendor maybe Faulty"))
            user.answer(box)
            self.assertEqual(user.wait_for_end(), 0)

    def test_ends_at_once_when_closed_in_the_middle_of_a_wait(self):
        with Pod("--no-pod") as pod:
            for _ in range(2):  # the port opens again
                with self.user(com1=pod.device) as user:
                    user.click(BUTTON)
                    user.wait_until_enabled(False)
                    start = time.monotonic()
                    user.press("alt+F4")
                    self.assertEqual(user.wait_for_end(), 0)
                    self.assertLess(time.monotonic() - start, 0.9)

    def test_survives_a_line_that_is_torn_out(self):
        with Pod("--fault", "echo-only:254") as pod, self.user(com1=pod.device) as user:
            user.click(BUTTON)
            user.wait_until_enabled(False)
            pod.process.kill()
            box = user.box()  # the second attempt cannot write
            self.assertEqual(box.title, "Unhandled Error")
            self.assertTrue(box.text.endswith("Occured in LL_Serial_SendMessage"), box.text)
            user.answer(box)
            self.assertEqual(user.box().text, "You Must Attach The Zendor!")

    def test_is_used_with_the_keyboard_alone(self):
        with Pod("--serial-number", "3") as pod, self.user(com2=pod.device) as user:
            user.wait_until_focused(BUTTON)
            for keys, focus in [
                ("Escape", BUTTON), ("Tab", OPTIONS[0]), ("Down", OPTIONS[1]), ("Tab", BUTTON),
                ("shift+Tab", OPTIONS[1]), ("shift+Tab", BUTTON),
            ]:
                user.press(keys)
                user.wait_until_focused(focus)
            self.assertTrue(user.is_selected(OPTIONS[1]))
            user.press("space")
            self.assertEqual(user.wait_for_result(), "C-3")
            user.wait_until_focused(BUTTON)  # which it had lost while it was disabled
            user.press("ctrl+c")
            wait_for(lambda: self.reader.clipboard() == "C-3" or None, "The copied number")
            self.assertEqual(len(pod.requests()), 3)

    def test_leaves_the_focus_where_the_user_puts_it_during_a_request(self):
        faults = ("--fault", "echo-only:254:1")  # the second attempt succeeds
        with Pod(*faults, "--serial-number", "5") as pod, self.user(com1=pod.device) as user:
            user.press("Return")
            user.wait_until_enabled(False)
            user.press("Tab")
            user.wait_until_focused(OPTIONS[0])
            user.press("Return")  # a second request does not start inside the first
            self.assertEqual(user.wait_for_result(), "C-5")
            user.wait_until_enabled()
            self.assertEqual(user.focused(), OPTIONS[0])
            self.assertEqual(pod.requests(), [POLL, POLL, BUILD_CODE, SERIAL])


class Appearance(OnWindows):
    def assert_whole_text(self, text, row, inset):
        """There is text, and it keeps off the edges of its control; on the left of an option button
        there is its circle."""
        place = (row.left + inset, row.top + inset, row.right - inset, row.bottom - inset)

        def painted():
            picture = Picture(*place)
            return picture if len(picture.colors()) > 1 else None

        edges = wait_for(painted, f'"{text}"').edges()
        for colors in edges[1:] if text in OPTIONS else edges:
            self.assertEqual(len(colors), 1, f'"{text}" is clipped')

    def test_keeps_its_layout_and_every_caption_whole_at_every_density(self):
        large = "e5ffffff" + "00" * 12 + "90010000" + "00" * 8 + "Tahoma".encode("utf-16-le").hex()
        usual = "f5" + large[2:]
        for density, font in [(96, usual), (120, usual), (144, usual), (192, usual), (96, large)]:
            self.restart(
                (DESKTOP, "LogPixels", "REG_DWORD", str(density)),
                (METRICS, "MessageFont", "REG_BINARY", font.ljust(184, "0")),
            )
            with self.subTest(density=density, font=font[:2]):
                with Pod("--serial-number", "16777215") as pod, self.user(com1=pod.device) as user:
                    self.assert_layout(user, density)
                    user.press("space")
                    text = user.wait_for_result()
                    user.click(OPTIONS[1])  # takes the focus frame off the button
                    for caption in (HEADING, *OPTIONS, BUTTON, text):
                        inset = density * 8 // 96 if caption == BUTTON else 2
                        self.assert_whole_text(caption, user.find(caption), inset)
            self.reader.close()

    def assert_layout(self, user, density):
        def pixels(twips):
            return int(twips * density / 1440 + 0.5)

        window, *controls = user.rows()
        button = next(row for row in controls if row.text == BUTTON)
        left = button.left - pixels(PLACES[BUTTON][0])
        top = button.top - pixels(PLACES[BUTTON][1])
        for row in controls:
            x, y, width, height = PLACES[row.text]
            edges = (x, y, x + width, y + height)
            expected = [a + pixels(b) for a, b in zip((left, top, left, top), edges)]
            self.assertEqual([row.left, row.top, row.right, row.bottom], expected, row.text)
        self.assertEqual(len(controls), len(PLACES))
        self.assertNotIn("resizable", window.state)
        width, height = map(int, output_of("xdotool", "getdisplaygeometry").split())
        self.assertAlmostEqual(window.left + window.right, width, delta=2)
        self.assertAlmostEqual(window.top + window.bottom, height, delta=2)

    def test_keeps_the_result_readable_in_every_theme(self):
        for background, text in [
            ((255, 255, 255), (0, 0, 0)), ((0, 0, 0), (0, 0, 0)), ((120, 120, 120), (100, 100, 100)),
        ]:
            self.restart(
                (DESKTOP, "LogPixels", "REG_DWORD", "96"),
                (COLORS, "HilightText", "REG_SZ", " ".join(map(str, background))),
                (COLORS, "WindowText", "REG_SZ", " ".join(map(str, text))),
            )
            with self.subTest(background=background, text=text):
                with Pod() as pod, self.user(com1=pod.device) as user:
                    user.press("space")
                    user.wait_for_result()
                    row = user.result_row()
                    place = (row.left + 2, row.top + 2, row.right - 2, row.bottom - 2)

                    def readable():
                        colors = Picture(*place).colors()
                        best = max(contrast(background, color) for color in colors)
                        return True if background in colors and best >= 4.5 else None

                    wait_for(readable, "A readable result")
            self.reader.close()


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
