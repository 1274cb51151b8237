#!/usr/bin/python3
"""What a user meets on Linux alone: a key in a message, what is told to a screen reader, adapters that
come and go, and the locks on a port.

Usage: linux_only_test.py linux WINDOW_ON_PORTS ZENDOR_POD_SIMULATOR
"""

import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

import pyatspi

from captions import BUTTON, HEADING, OPTIONS
from linux_user import User
from platform_under_test import Pod
from screen import output_of

WINDOW = sys.argv[2]
ICONS = pathlib.Path(__file__).parents[2] / "packaging/linux/icons"
NOTHING = "no such port on this computer"


def wait_for_description(user, text):
    user.wait_until(lambda: user.find(OPTIONS[0]).description == text, f'"{text}"')


class LinuxOnly(unittest.TestCase):
    def test_shows_the_installed_icon_in_every_size(self):
        with tempfile.TemporaryDirectory() as data:
            for icon in ICONS.glob("*.png"):
                folder = pathlib.Path(data, f"icons/hicolor/{icon.stem}x{icon.stem}/apps")
                folder.mkdir(parents=True)
                shutil.copy(icon, folder / "zendor-serial-extractor.png")
            with User([WINDOW], XDG_DATA_DIRS=data) as user:
                told = output_of("xprop", "-len", "1000000", "-name", user.title())
            shown = {width for width, height in re.findall(r"Icon \((\d+) x (\d+)\)", told)}
            self.assertEqual(shown, {icon.stem for icon in ICONS.glob("*.png")})

    def test_a_message_is_copied_with_the_keyboard(self):
        with Pod("--no-pod") as pod, User([WINDOW, pod.device]) as user:
            user.press("Return")
            user.box()
            user.press("ctrl+c")
            user.wait_until_copied("You Must Attach The Zendor!")

    def test_a_result_that_is_selected_is_there_for_the_middle_mouse_button(self):
        with Pod() as pod, User([WINDOW, pod.device]) as user:
            user.press("Return")
            user.wait_for_result()
            user.click_at(user.result_place(), times=2)
            user.wait_until(lambda: user.copied("primary") == "C-1234567", "The whole result")

    def test_has_no_command_line(self):
        with User([WINDOW, "-platform", "nonsense"]) as user:  # the toolkit would obey this
            wait_for_description(user, NOTHING)

    def test_can_be_read_by_a_screen_reader(self):
        with Pod() as pod, User([WINDOW, pod.device]) as user:
            wait_for_description(user, pod.device)
            seen = [(e.getRole(), e.name, e.description) for e in user.controls()]
            self.assertEqual(seen, [
                (pyatspi.ROLE_MENU_BAR, "", ""),
                (pyatspi.ROLE_MENU_ITEM, "Serial Port", ""),
                (pyatspi.ROLE_POPUP_MENU, "", ""),
                (pyatspi.ROLE_SEPARATOR, "", ""),
                (pyatspi.ROLE_LABEL, HEADING, "The serial number stands in the box below."),
                (pyatspi.ROLE_NOTIFICATION, "", "The serial number that the last request has read."),
                (pyatspi.ROLE_RADIO_BUTTON, OPTIONS[0], pod.device),
                *((pyatspi.ROLE_RADIO_BUTTON, option, NOTHING) for option in OPTIONS[1:]),
                (pyatspi.ROLE_PUSH_BUTTON, BUTTON,
                 "Asks the pod on the chosen serial port for its serial number."),
            ])

    @unittest.skipUnless(os.access("/dev", os.W_OK), "takes a user who may add devices")
    def test_tells_of_an_adapter_that_comes_and_goes(self):
        adapter = f"/dev/ttyZendorTest{os.getpid()}"
        with User([WINDOW, adapter]) as user:
            wait_for_description(user, NOTHING)
            with Pod(device=adapter) as pod:
                wait_for_description(user, adapter)
                pod.pull_out()
                wait_for_description(user, NOTHING)

    def test_obeys_the_lock_files_of_other_programs(self):
        with Pod() as pod, User([WINDOW, pod.device]) as user:
            lock = pathlib.Path("/var/lock/LCK.." + os.path.basename(os.path.realpath(pod.device)))
            lock.write_text("         1\n")
            try:
                user.click(BUTTON)
                self.assertIn(f"process 1 has locked it with {lock}.", user.box().text)
            finally:  # while the number is this pod's
                lock.unlink()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
