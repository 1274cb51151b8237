#!/usr/bin/python3
"""What a user meets on Linux alone: the screen reader, adapters that come and go, and devices that
other programs find free again.

Usage: linux_only_test.py linux WINDOW_ON_PORTS ZENDOR_POD_SIMULATOR
"""

import glob
import os
import sys
import unittest

import pyatspi

from captions import BUTTON, HEADING, OPTIONS
from platform_under_test import Pod
from simulated_pod import SLOW
from linux_user import User, place_of

WINDOW = sys.argv[2]
NOTHING = "no such port on this computer"


def lock_files():
    return sorted(glob.glob("/var/lock/LCK..*"))


def wait_for_description(user, text):
    user.wait_until(lambda: user.find(OPTIONS[0]).description == text, f'"{text}"')


class LinuxOnly(unittest.TestCase):
    def test_takes_no_command_line(self):
        with User([WINDOW, "-platform", "nonsense"]) as user:  # which the toolkit would obey
            wait_for_description(user, NOTHING)

    def test_can_be_read_by_a_screen_reader(self):
        with Pod() as pod, User([WINDOW, pod.device]) as user:
            wait_for_description(user, pod.device)
            user.point_at(place_of(user.find(OPTIONS[0])))
            user.wait_until(lambda: user.has_tooltip(pod.device), "The tooltip")
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
            with Pod("--link", adapter) as pod:
                wait_for_description(user, adapter)
                pod.process.terminate()
                wait_for_description(user, NOTHING)

    def test_frees_the_port_when_it_is_killed_and_leaves_no_lock_behind(self):
        locks = lock_files()
        with Pod("--serial-number", "9", *SLOW) as pod:
            for result in ("killed", "C-9"):
                with User([WINDOW, pod.device]) as user:
                    user.click(BUTTON)
                    user.wait_until_ready(False)
                    if result != "killed":
                        self.assertEqual(user.wait_for_result(), result)
            self.assertEqual(lock_files(), locks)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
