#!/usr/bin/python3
"""A voice for Speech Dispatcher that writes down what it is to say, a line for each utterance. The
service starts the voice with the name of a settings file; the voice writes into the file "said"
beside that one.
"""

import html
import itertools
import pathlib
import re
import sys

ANSWERS = {
    "INIT": "299 OK LOADED SUCCESSFULLY",
    "LIST VOICES": "200-written\ten\tnone\n200 OK VOICE LIST SENT",
    "QUIT": "210 OK QUIT",
}

# After each of these requests the service waits for the first answer, sends data up to a line with
# a dot, and waits for the second answer.
ANSWERS_WITH_DATA = {
    "AUDIO": ("207 OK RECEIVING AUDIO SETTINGS", "203 OK AUDIO INITIALIZED"),
    "LOGLEVEL": ("207 OK RECEIVING LOGLEVEL SETTINGS", "203 OK LOG LEVEL SET"),
    "SET": ("203 OK RECEIVING SETTINGS", "203 OK SETTINGS RECEIVED"),
    **dict.fromkeys(("SPEAK", "CHAR", "KEY"),
                    ("202 OK RECEIVING MESSAGE", "200 OK SPEAKING\n701 BEGIN\n702 END")),
}


def write_down(markup, file):
    words = html.unescape(re.sub("<[^>]*>", "", markup)).split()
    with file.open("a") as said:
        print(*words, file=said)


def main(settings):
    file = pathlib.Path(settings).with_name("said")
    for line in sys.stdin:
        request = line.strip()
        if request in ANSWERS_WITH_DATA:
            before, after = ANSWERS_WITH_DATA[request]
            print(before, flush=True)
            data = "".join(itertools.takewhile(lambda text: text != ".\n", sys.stdin))
            if request in ("SPEAK", "CHAR", "KEY"):
                write_down(data, file)
            print(after, flush=True)
        elif request in ANSWERS:
            print(ANSWERS[request], flush=True)


if __name__ == "__main__":
    main(sys.argv[1])
