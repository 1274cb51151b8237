#!/usr/bin/python3
"""What the Windows program tells of the device behind each choice.

Usage: port_tips_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from captions import BUTTON, OPTIONS
from windows_platform import Windows


class PortTips(unittest.TestCase):
    def setUp(self):
        self.windows = Windows(sys.argv[2])
        self.addCleanup(self.windows.close)
        self.windows.set_up()

    def test_a_screen_reader_gets_a_description(self):
        self.windows.assert_passes(self, "tests/windows/win32_port_tips_test.exe")

    def test_a_tooltip_tells_the_adapter_of_that_moment(self):
        with self.windows.user() as user:
            for name in "Adapter", "Other Adapter":
                self.windows.name_adapter(name)
                user.point_at(user.place(OPTIONS[0]))
                user.wait_until(lambda: user.has_tooltip(f"COM1, {name}"), name)
                user.point_at(user.place(BUTTON))
                user.wait_until(lambda: not user.has_tooltip(f"COM1, {name}"), f"{name} gone")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
