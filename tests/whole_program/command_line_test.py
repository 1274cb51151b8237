#!/usr/bin/python3
"""What the command for scripts prints for its options."""

import os
import re
import sys
import unittest

from platform_under_test import VERSION, Pod, this_platform

TIME = re.compile(r"^ *\d+ (?=[<>])", re.MULTILINE)
TRACE = """\
> 80 0 1 254 177
< 80 0 1 254 177 | 1 0 80 0 175
> 80 0 1 192 239
< 80 0 1 192 239 | 1 8 80 0 67 117 115 116 111 109 101 114 85
> 80 0 1 242 189
< 80 0 1 242 189 | 1 3 80 0 135 214 18 61
"""


class CommandLine(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = this_platform()
        cls.addClassCleanup(cls.platform.close)
        cls.platform.set_up()

    def test_prints_what_is_asked_for(self):
        with Pod("--serial-number", "1234567") as pod:
            port = self.platform.name_port(pod.device)
            rows = [
                (["--version"], rf"\S+ {re.escape(VERSION)}\n", ""),
                (["--help"], r"Prints the serial number[\s\S]*PORT[\s\S]*Examples:[\s\S]*", ""),
                (["--list"], self.platform.listed_ports, ""),
                (["--trace", port], r"C-1234567\n", TRACE),
            ]
            for arguments, printed, trace in rows:
                with self.subTest(arguments):
                    done = self.platform.run_command(*arguments)
                    self.assertEqual(done.returncode, 0)
                    self.assertRegex(done.stdout, rf"\A{printed}\Z")
                    self.assertEqual(TIME.sub("", done.stderr), trace)

    def test_tells_where_the_standard_output_takes_nothing(self):
        reader, closed = os.pipe()
        os.close(reader)
        self.addCleanup(os.close, closed)
        with Pod("--serial-number", "7") as pod, open("/dev/full", "w") as full:
            port = self.platform.name_port(pod.device)
            rows = [([port], full, "C-7\n"), ([port], closed, "C-7\n"), (["--list"], full, "4: "),
                    (["--help"], closed, "PORT")]
            for arguments, output, text in rows:
                with self.subTest(arguments, output=output):
                    done = self.platform.run_command(*arguments, stdout=output)
                    self.assertEqual(done.returncode, 1)
                    self.assertIn(text, done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
