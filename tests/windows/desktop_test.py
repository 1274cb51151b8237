#!/usr/bin/python3
"""The window, the message boxes and the console of the Windows program, tested from within.

Usage: desktop_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from windows_platform import Windows


class Desktop(unittest.TestCase):
    def setUp(self):
        self.windows = Windows(sys.argv[2])
        self.addCleanup(self.windows.close)
        self.windows.set_up()

    def test_shows_texts_beyond_the_code_page(self):
        self.windows.assert_passes(self, "tests/windows/win32_desktop_test.exe")

    def test_lays_the_window_out_anew(self):
        self.windows.assert_passes(self, "tests/windows/win32_form_test.exe")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
