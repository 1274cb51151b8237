#!/usr/bin/python3
"""Goes through the four simulated ports as a user would, prints what the window showed, and saves
pictures of it.

Usage: tour.py ZENDOR_DEMO FOLDER_FOR_PICTURES
"""

import sys

from captions import BUTTON
from user import User


def main(demo, folder):
    with User([demo]) as user:

        def show(moment, words):
            user.picture_of_window(f"{folder}/{moment}.png")
            print(f"{moment:<14}  {words}", flush=True)

        show("start", user.result() or "an empty result")
        show("menu", ", ".join(user.open_menu("Serial Port")))
        user.press("Escape", "Escape")

        user.click(BUTTON)
        show("port-1", user.wait_for_result())
        user.click("Serial Port 2")
        user.click(BUTTON)
        show("port-2", user.wait_for_other_result("C-1234567"))
        user.click("Serial Port 3")
        user.click(BUTTON)
        box = user.box()
        show("port-3", f"[{box.title}] {box.text}")
        user.answer(box)
        user.click("Serial Port 4")
        user.click(BUTTON)
        box = user.box()
        show("port-4", f"[{box.title}] " + box.text.replace("\n", " / "))
        user.answer_last(box)
        print(f"{'end':<14}  the program has ended with status {user.wait_for_end()}")


if __name__ == "__main__":
    main(*sys.argv[1:])
