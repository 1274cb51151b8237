"""What every user of a program needs: patience, the screen's own mouse and keyboard, and the output
of other programs."""

import subprocess
import time


def wait_for(look, what, seconds=20.0):
    """Returns what look() finds as soon as that is not None. Raises an error with the given words
    for it when the time is over."""
    deadline = time.monotonic() + seconds
    while True:
        found = look()
        if found is not None:
            return found
        if time.monotonic() > deadline:
            raise TimeoutError(f"{what} did not come within {seconds} s")
        time.sleep(0.01)


def output_of(*command, check=True):
    return subprocess.run(command, check=check, capture_output=True, text=True).stdout


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)
