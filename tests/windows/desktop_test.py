#!/usr/bin/python3
"""The texts of the Windows program outside of its window: message boxes on a screen, a console,
tooltips.

Usage: desktop_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from captions import BUTTON, OPTIONS
from windows_platform import Windows


class Desktop(unittest.TestCase):
    def test_shows_texts_beyond_the_code_page(self):
        windows = Windows(sys.argv[2])
        self.addCleanup(windows.close)
        windows.set_up()
        windows.assert_passes(self, "tests/windows/win32_desktop_test.exe")

    def test_a_tooltip_tells_the_adapter_of_that_moment(self):
        windows = Windows(sys.argv[2])
        self.addCleanup(windows.close)
        windows.set_up()
        with windows.user() as user:
            for name in "Adapter & Co", "<b>other</b>":
                windows.name_adapter(name)
                user.point_at(user.place(OPTIONS[0]))
                user.wait_until(lambda: user.has_tooltip(f"COM1, {name}"), name)
                user.point_at(user.place(BUTTON))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
