#!/usr/bin/python3
"""Messages of other programs to the window of the Windows program, and what the window tells them.

Usage: messages_test.py windows BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import subprocess
import sys
import unittest

from captions import BUTTON
from platform_under_test import Pod, this_platform
from simulated_pod import WHOLE_REQUEST

REQUESTS = 20  # at least; more are made as long as the messages come


class Messages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = this_platform()
        cls.addClassCleanup(cls.platform.close)
        cls.platform.set_up()

    def test_a_screen_reader_is_told_of_every_result_when_the_focus_has_come_to_rest(self):
        with Pod() as pod, self.platform.user(pod.device) as user:
            listener = self.platform.launch("tests/windows/live_region_listener.exe",
                                            stdout=subprocess.PIPE, text=True)
            with listener.stdout as heard:
                self.assertEqual(heard.readline(), "listening\n")
                for _ in range(2):  # the same number; the emptied box tells nothing
                    user.press("Return")
                    self.assertEqual(heard.readline(), "focus\n")
                    self.assertEqual(heard.readline(), "told C-1234567\n")
                    user.wait_until_ready()
            listener.kill()
            listener.wait()

    def test_no_message_of_another_program_stops_it(self):
        with Pod() as pod, self.platform.user(pod.device) as user:
            storm = self.platform.launch("tests/windows/message_storm.exe", "10000")
            number = 0
            while number < REQUESTS or storm.poll() is None:
                number += 1
                user.click(BUTTON)
                pod.wait_for(WHOLE_REQUEST[-1], number)
                self.assertEqual(user.wait_for_result(), "C-1234567")
                user.wait_until_ready()
            self.assertEqual(storm.returncode, 0)
            user.close_window()
            self.assertEqual(user.wait_for_end(), 0)
            self.assertEqual(pod.requests_at_end(), WHOLE_REQUEST * number)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
