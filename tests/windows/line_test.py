#!/usr/bin/python3
"""The line of the Windows program on a pseudo-terminal behind COM1.

Usage: line_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import fcntl
import os
import struct
import sys
import termios
import threading
import tty
import unittest

from windows_platform import Windows

TCGETS2 = 0x802C542A


class Line(unittest.TestCase):
    def setUp(self):
        self.windows = Windows(sys.argv[2])
        self.addCleanup(self.windows.close)
        self.windows.set_up()

    def test_carries_bytes_as_they_are_at_9600_8n1_without_flow_control(self):
        near, far = os.openpty()
        tty.setraw(far)
        wrong = termios.tcgetattr(far)
        wrong[0] |= termios.IXON | termios.IXOFF
        wrong[2] |= termios.CSTOPB | termios.CRTSCTS
        wrong[4] = wrong[5] = termios.B1200
        termios.tcsetattr(far, termios.TCSANOW, wrong)
        self.windows.attach(os.ttyname(far))

        def send_back():
            while received := os.read(near, 1024):
                os.write(near, received)

        threading.Thread(target=send_back, daemon=True).start()
        self.windows.assert_passes(self, "tests/windows/win32_line_test.exe")
        input_flags, _, line_flags, *_ = termios.tcgetattr(far)
        self.assertEqual(input_flags & (termios.IXON | termios.IXOFF), 0)
        self.assertEqual(line_flags & (termios.CSTOPB | termios.CRTSCTS), 0)
        # Only the newer call tells a speed that was set as a number.
        speeds = struct.unpack("=36x2I", fcntl.ioctl(far, TCGETS2, bytes(44)))
        self.assertEqual(speeds, (9600, 9600))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
