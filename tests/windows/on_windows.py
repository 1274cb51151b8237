"""What the tests of the Windows program share: a Windows of their own, the program, and a pod.

Each is started with BUILD_FOLDER and ZENDOR_POD_SIMULATOR.
"""

import functools
import pathlib
import re
import sys
import unittest

from simulated_pod import SimulatedPod
from windows_machine import Reader, User, Windows

BUILD = pathlib.Path(sys.argv[1])
Pod = functools.partial(SimulatedPod, sys.argv[2])
PROGRAM = BUILD / "program/windows/ZendorSerialExtractor.exe"
VERSION = re.search(r"CMAKE_PROJECT_VERSION:STATIC=(.+)", (BUILD / "CMakeCache.txt").read_text())[1]
READER = BUILD / "tests/windows/window_reader.exe"


class OnWindows(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.windows = Windows()
        cls.addClassCleanup(cls.windows.remove)

    def restart(self, *settings):
        """Starts Windows anew with registry settings, each of key, name, kind and value."""
        for key, name, kind, value in settings:
            self.windows.set(key, name, value, kind)
        self.windows.shut_down()
        self.reader = Reader(self.windows, READER)

    def user(self, **devices):
        self.windows.attach(**devices)
        return User(self.windows, self.reader, PROGRAM)
