#!/usr/bin/python3
"""The texts of the Windows program outside of its window: message boxes on a screen, a console.

Usage: desktop_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from windows_platform import Windows


class Desktop(unittest.TestCase):
    def test_shows_texts_beyond_the_code_page(self):
        windows = Windows(sys.argv[2])
        self.addCleanup(windows.close)
        windows.set_up()
        windows.assert_passes(self, "tests/windows/win32_desktop_test.exe")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
