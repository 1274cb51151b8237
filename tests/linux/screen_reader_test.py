#!/usr/bin/python3
"""What the screen reader says to a user who cannot see the window.

Usage: screen_reader_test.py linux WINDOW_ON_PORTS ZENDOR_POD_SIMULATOR
"""

import sys
import unittest

from captions import BUTTON, OPTIONS
from linux_user import WINDOW, User
from platform_under_test import Pod
from screen_reader import ScreenReader
from simulated_pod import POLL, SERIAL, SLOW


class Spoken(unittest.TestCase):
    def test_every_result_is_spoken_wherever_the_focus_is_and_little_else(self):
        with ScreenReader() as reader, Pod(*SLOW) as pod:
            reader.listen_until("Screen reader on")
            with User([sys.argv[2], pod.device]) as user:
                reader.listen_until("for its serial number")  # the end of the button's description
                # The first request asks three times for the number, every later one once.
                for questions, key, words in ([3], "Tab", OPTIONS[0]), ([4, 5], "shift+Tab", BUTTON):
                    with self.subTest(questions):
                        said = []  # all but the numbers
                        for number in questions:
                            user.press("Return")
                            pod.wait_for(SERIAL, number)
                            said += reader.listen_until("C-1234567")
                            user.wait_until_ready()
                        user.press(key)  # the words of this key come after all else
                        said = " / ".join(said + reader.listen_until(words))
                        for too_much in "C-1234567", WINDOW, BUTTON, "Asks the pod":
                            self.assertNotIn(too_much, said)

    def test_a_message_is_answered_by_a_key_that_is_pressed_after_it_has_been_spoken(self):
        with ScreenReader() as reader, Pod("--no-pod") as pod:
            reader.listen_until("Screen reader on")
            with User([sys.argv[2], pod.device]) as user:
                reader.listen_until("for its serial number")
                with user.holding("Return"):
                    reader.listen_until("OK")  # the button of the message
                    user.box()
                user.press("Return")
                user.wait_until_ready()
                self.assertEqual(pod.requests_at_end(), [POLL, POLL])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
