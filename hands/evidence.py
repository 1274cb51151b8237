"""What a test that fails leaves to the person who looks for the cause: words in its report, and files
that stay."""

import subprocess
import tempfile

from captions import BUTTON
from screen import output_of


def new_file(suffix):
    with tempfile.NamedTemporaryFile(prefix="zendor-", suffix=suffix, delete=False) as file:
        return file.name


def seen_by(look):
    """What look() finds, or why it finds nothing."""
    try:
        return repr(look())
    except Exception as error:  # whatever it is, it belongs into the report
        return repr(error)


def tell_what_is_seen(error, user):
    """Adds what the user of the window sees to the report of the error."""
    looks = {"title": user.title, "result": user.result, "focus": user.focused,
             "ready": lambda: user.is_enabled(BUTTON), "box": user.find_box, "menu": user.find_menu}
    for name, look in looks.items():
        error.add_note(f"Seen last, {name}: {seen_by(look)}")
    search = ["xdotool", "search", "--onlyvisible", "--name", ".", "getwindowname", "%@"]
    error.add_note(f"Open windows: {output_of(*search, check=False).splitlines()}")
    picture = new_file(".png")
    subprocess.run(["import", "-window", "root", picture], check=False)
    error.add_note(f"The screen: {picture}")


def tell_trace(error, trace, end):
    """Adds the trace of a simulated pod to the report of the error. The end is the exit status of the
    pod, or None while it runs."""
    file = new_file(".trace")
    with open(file, "w") as kept:
        kept.writelines(trace)
    state = "runs" if end is None else f"has ended with status {end}"
    error.add_note(f"The trace of the pod, which {state}: {file}")
