#!/usr/bin/python3
"""Goes through the four simulated ports as a user would, prints what the window showed, and saves
pictures of it.

Usage: tour.py ZENDOR_DEMO FOLDER_FOR_PICTURES
"""

import subprocess
import sys

from captions import BUTTON, OPTIONS
from picture import finished_picture
from linux_user import User


def main(demo, folder):
    with User([demo]) as user:

        def show(moment, words):
            """Saves a picture of the window and what stands before it, without the empty screen
            around, and prints the words."""
            finished_picture(user.client_place(), moment)
            picture = f"{folder}/{moment}.png"
            subprocess.run(["import", "-window", "root", "-trim", "+repage", picture], check=True)
            print(f"{moment:<14}  {words}", flush=True)

        def request(option):
            user.click(option)
            user.click(BUTTON)

        show("start", user.result() or "an empty result")
        user.open_menu()
        show("menu", "a line, and nothing to choose")
        user.press("Escape", "Escape")

        request(OPTIONS[0])
        show("port-1", user.wait_for_result())
        request(OPTIONS[1])
        show("port-2", user.wait_for_result("C-1234567"))
        for option, moment in ((OPTIONS[2], "port-3"), (OPTIONS[3], "port-4")):
            request(option)
            box = user.box()
            show(moment, f"[{box.title}] " + box.text.replace("\n", " / "))
            user.answer()
        print(f"{'end':<14}  the program has ended with status {user.wait_for_end()}")


if __name__ == "__main__":
    main(*sys.argv[1:])
