#!/usr/bin/python3
"""The message boxes of the Windows program on a screen.

Usage: desktop_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from windows_platform import Windows


class Desktop(unittest.TestCase):
    def test_shows_texts_beyond_the_code_page_and_returns_the_answer(self):
        windows = Windows(sys.argv[2])
        self.addCleanup(windows.close)
        windows.set_up()
        windows.assert_passes(self, "tests/windows/win32_desktop_test.exe")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
