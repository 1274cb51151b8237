#!/usr/bin/python3
"""What the command for scripts prints for its options, and what the simulated pod does."""

import os
import re
import subprocess
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
                *(([option], r"Print the serial number[\s\S]*PORT  [\s\S]*Examples:[\s\S]*", "")
                  for option in self.platform.help_options),
                (["--list"], self.platform.listed_ports, ""),
                (["--trace", port], r"C-1234567\n", TRACE),
            ]
            for arguments, printed, trace in rows:
                with self.subTest(arguments):
                    done = self.platform.run_command(*arguments)
                    self.assertEqual(done.returncode, 0, done.stderr)
                    self.assertRegex(done.stdout, rf"\A{printed}\Z")
                    self.assertLessEqual(max(map(len, done.stdout.splitlines())), 80)
                    self.assertEqual(TIME.sub("", done.stderr), trace)

    def test_ends_the_trace_before_a_message(self):
        with Pod("--fault", "busy:254") as pod:
            port = self.platform.name_port(pod.device)
            poll = "> 80 0 1 254 177\n< 80 0 1 254 177 | 1 0 80 6 169\n"
            told = TIME.sub("", self.platform.run_command("--trace", port).stderr)
            self.assertRegex(told, rf"\A{re.escape(poll * 2)}\S+: {port}: Error: You Must Attach .*\n\Z")

    def test_quotes_what_it_does_not_understand(self):
        done = self.platform.run_command("COM\u00c4\u20ac\u0416")  # in no code page all of them
        self.assertEqual(done.returncode, 2, done.stderr)
        self.assertIn('"COM\u00c4\u20ac\u0416"', done.stderr)

    def test_the_simulated_pod_is_a_command_like_others(self):
        rows = [("--version", 0, VERSION, ""), ("--help", 0, "--serial-number", ""),
                ("--unknown", 2, "", "zendor-pod-simulator: "), ("--address=256", 2, "", "--address: ")]
        for option, status, printed, error in rows:
            with self.subTest(option):
                done = subprocess.run([sys.argv[3], option], capture_output=True, text=True)
                self.assertEqual(done.returncode, status)
                self.assertIn(printed, done.stdout)
                self.assertIn(error, done.stderr)
                self.assertLessEqual(max(map(len, done.stdout.splitlines()), default=0), 80)

    def test_tells_when_standard_output_accepts_nothing(self):
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
                    self.assertEqual(done.returncode, 1, done.stderr)
                    self.assertIn(text, done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
