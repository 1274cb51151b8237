#!/usr/bin/python3
"""What a request tells its user, in the window of each platform and from the command for scripts,
on the program's own serial port with a simulated pod behind it."""

import sys
import unittest

from platform_under_test import Pod, this_platform, wait_until_held
from simulated_pod import BUILD_CODE, POLL, SERIAL, WHOLE_REQUEST

NO_POD = ("Error", "^You Must Attach The Zendor!$")
FAULTY = ("Error", "^You Zendor maybe Faulty$")


class Outcome(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = this_platform()
        cls.addClassCleanup(cls.platform.close)
        cls.platform.set_up()

    def assert_outcome(self, user, messages, result="", ends=False):
        """The texts of the messages are patterns; ends says whether a window closes."""
        told, number = user.finish()
        self.assertEqual([title for title, _ in told], [title for title, _ in messages])
        for (_, text), (_, pattern) in zip(told, messages):
            self.assertRegex(text, pattern)
        self.assertEqual(number, result)
        user.wait_until_over(ends)

    def test_tells_the_number_or_why_there_is_none_and_frees_the_port(self):
        rows = [
            ("customer", ("--serial-number", "1234567"), [], "C-1234567", WHOLE_REQUEST),
            ("engineer", ("--build-code", "Engineer", "--serial-number", "42"), [], "E-42",
             WHOLE_REQUEST),
            ("greatest", ("--build-code", "Engineer", "--serial-number", "16777215"), [], "E-16777215",
             WHOLE_REQUEST),
            ("second attempts", ("--fault", "busy:any:1", "--serial-number", "0"), [], "C-0",
             [POLL, *WHOLE_REQUEST]),
            ("no pod", ("--no-pod",), [NO_POD], "", [POLL, POLL]),
            ("bad numbers", ("--fault", "wrong-checksum:242"), [FAULTY], "",
             [POLL] + [BUILD_CODE, SERIAL, SERIAL] * 2),
            ("busy", ("--fault", "busy:192"), [FAULTY], "", [POLL] + [BUILD_CODE] * 4),
            ("neither", ("--build-code", "customer"), [FAULTY], "", [POLL] + [BUILD_CODE] * 2),
        ]
        for name, options, messages, number, requests in rows:
            with self.subTest(name), Pod(*options) as pod, self.platform.user(pod.device) as user:
                user.start()
                self.assert_outcome(user, messages, number, ends=messages == [FAULTY])
                wait_until_held(pod.device, False)
                self.assertEqual(pod.requests_at_end(), requests)

    def test_tells_why_a_port_does_not_open(self):
        with Pod() as pod:
            rows, holder = self.platform.refusals(pod.device)
            for devices, reason in rows:
                with self.subTest(reason), self.platform.user(*devices) as user:
                    user.start()
                    text = f"^{reason}.*\nPlease free the port or choose another$"
                    refusal = ("Error opening/closing Serial Port 1", text)
                    self.assert_outcome(user, [refusal], ends=True)
            if holder:
                holder.close()

    def test_a_line_torn_out_during_the_request_ends_it_by_what_arrived(self):
        rows = [
            # Torn out before any reply: the second attempt cannot be written.
            ("echo-only:254", "1", 1, NO_POD),
            # Torn out amid the build code: three more attempts to ask for it cannot be written.
            ("short-reply:192", "2", 3, FAULTY),
        ]
        for fault, requests, refused, end in rows:
            with self.subTest(fault), Pod("--fault", fault, "--pull-out-after", requests) as pod:
                with self.platform.user(pod.device) as user:
                    user.start()
                    refusal = ("Unhandled Error", self.platform.write_refusal)
                    self.assert_outcome(user, [refusal] * refused + [end], ends=end == FAULTY)

    def test_a_request_that_is_broken_off_ends_at_once_and_frees_the_port(self):
        with Pod("--fault", "echo-only:192") as pod:  # four seconds, one for each attempt
            for _ in range(2):  # the port opens a second time
                with self.platform.user(pod.device) as user:
                    user.start()
                    wait_until_held(pod.device)
                    user.break_off()
                    wait_until_held(pod.device, False)
            self.assertLess(pod.requests_at_end().count(BUILD_CODE), 4)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
