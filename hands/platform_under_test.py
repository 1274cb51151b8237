"""The platform on which the whole program is tested, and a pod for the tests. A platform is what the
user has before him: the window or the command for scripts, on Linux or on Windows.

A test takes three arguments: the platform, what is tested there, and the simulator. The second is
the program window_on_ports for "linux", the command for scripts for "console", and the folder where
the programs were built for "windows" and "windows-console".
"""

import functools
import glob
import os
import pathlib
import re
import sys

from screen import wait_for
from simulated_pod import SimulatedPod

SOURCES = pathlib.Path(__file__).resolve().parents[1]
VERSION = re.search(r"VERSION (\d+\.\d+\.\d+)", (SOURCES / "CMakeLists.txt").read_text())[1]

Pod = functools.partial(SimulatedPod, sys.argv[3])


def this_platform():
    if sys.argv[1] == "windows":
        from windows_platform import Windows

        return Windows(sys.argv[2])
    if sys.argv[1] == "windows-console":
        from windows_platform import WindowsConsole

        return WindowsConsole(sys.argv[2])
    if sys.argv[1] == "console":
        from console_platform import Console

        return Console(sys.argv[2])
    from linux_platform import Linux

    return Linux(sys.argv[2])


def is_held(device):
    device = os.path.realpath(device)
    for name in glob.glob("/proc/[0-9]*/fd/*"):
        try:
            if os.readlink(name) == device:
                return True
        except OSError:  # closed meanwhile
            pass
    return False


def wait_until_held(device, held=True):
    wait_for(lambda: is_held(device) == held or None, f"{device} held: {held}")
