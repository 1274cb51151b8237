"""What the measures of both platforms share: the pace of the line, start-up as the screen sees it,
and the table of what was measured."""

import os
import select
import subprocess
import sys
import time

from Xlib import X, display

# Three requests of 5 bytes, and replies of 5, 13 and 8. The echoes pass together with the requests,
# so they add nothing.
LINE_BYTES = 3 * 5 + 5 + 13 + 8
LINE_MS = LINE_BYTES * 10 / 9600 * 1000


def peak_memory(process):
    """The peak memory of the process so far, in KiB."""
    with open(f"/proc/{process.pid}/status") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmHWM"))


class Screen:
    """Watches which windows appear on the screen."""

    def __init__(self):
        self.display = display.Display()
        self.display.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()

    def start(self, command):
        """Seconds from exec to the first window, and the peak memory in KiB once it is drawn."""
        while self.display.pending_events():
            self.display.next_event()
        begin = time.perf_counter()
        process = subprocess.Popen(command)
        while not self._shows_a_window():
            if process.poll() is not None:
                raise RuntimeError(f"{command} has ended without a window")
        seconds = time.perf_counter() - begin
        time.sleep(0.3)  # until the window is drawn and the program rests
        peak = peak_memory(process)
        process.kill()
        process.wait()
        return seconds, peak

    def _shows_a_window(self):
        """True as soon as a window appears, False when nothing happens for a second."""
        while self.display.pending_events() or select.select([self.display], [], [], 1)[0]:
            if self.display.next_event().type == X.MapNotify:
                return True
        return False


def start_ratios(program, bare, pairs):
    """Two lists of ratios of the program to the bare window, pair by pair: one of their times and
    one of their memory. The first pair does not count, because it fills the caches."""
    screen = Screen()
    starts = [[screen.start(c) for c in (program, bare)] for _ in range(pairs + 1)][1:]
    return [[a[figure] / b[figure] for a, b in starts] for figure in (0, 1)]


def idle_ms(command):
    """The processor time in ms that a program takes in a second in which nobody does anything."""
    with subprocess.Popen(command) as process:

        def ticks():
            with open(f"/proc/{process.pid}/stat") as status:
                user, system = status.read().rpartition(")")[2].split()[11:13]
            return int(user) + int(system)

        time.sleep(2)  # until the program has started and rests
        begin = ticks()
        time.sleep(1)
        taken = ticks() - begin
        if process.poll() is not None:
            raise RuntimeError(f"{command} has ended")
        process.kill()
    return taken * 1000 / os.sysconf("SC_CLK_TCK")


def print_table(rows):
    """Prints rows of what was measured, its figure and its target. Ends the program, with failure
    where a target is missed."""
    print(f"{'what':<66} {'measured':>8} {'at most':>8}")
    for what, measured, most in rows:
        missed = "" if measured <= most else "  missed"
        print(f"{what:<66} {measured:>8.3f} {most:>8.2f}{missed}")
    sys.exit(any(measured > most for _, measured, most in rows))
