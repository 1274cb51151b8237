#!/usr/bin/python3
"""The installed program opens its window and ends when the window is closed.

Usage: installed_program_test.py PROGRAM
"""

import sys

from captions import BUTTON
from linux_user import User

with User([sys.argv[1]]) as user:
    assert user.is_enabled(BUTTON)
    user.close_window()
    sys.exit(user.wait_for_end())
