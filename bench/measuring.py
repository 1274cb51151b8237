"""What the measures of both platforms share: figures beside those of a peer, requests, start-up as
the screen sees it, and the table of what was measured."""

import os
import select
import statistics
import subprocess
import sys
import time

from Xlib import X, display
from Xlib.ext import damage


def in_turn(rounds, *measures):
    """A list of the figures of all measures for each round. What else the computer does strikes all
    of them alike. The first round does not count, because it fills the caches."""
    return [[measure() for measure in measures] for _ in range(rounds + 1)][1:]


def milliseconds_of(*command, status=0):
    """The time from the start of a program to its end, with a line on its standard input."""
    begin = time.perf_counter()
    ended = subprocess.run(command, check=False, input=b"\n", stdout=subprocess.DEVNULL)
    seconds = time.perf_counter() - begin
    if ended.returncode != status:
        raise RuntimeError(f"{command} has ended with {ended.returncode}")
    return seconds * 1000


class Requests:
    """A program that makes a request for each line that it gets, and prints the figures of it."""

    def __init__(self, command):
        pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "text": True}
        self.process = subprocess.Popen(command, **pipes)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.communicate()

    def make(self):
        """The figures of one request. The first one is the milliseconds that it took."""
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        figures = self.process.stdout.readline()
        if not figures:
            raise RuntimeError(f"{self.process.args} has made no request")
        return list(map(float, figures.split()))


def peak_memory(process):
    """The peak memory of the process so far, in MiB."""
    with open(f"/proc/{process.pid}/status") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmHWM")) / 1024


class Screen:
    """Watches which windows appear on the screen, and what is drawn there."""

    def __init__(self):
        self.display = display.Display()
        self.display.damage_query_version()
        root = self.display.screen().root
        root.change_attributes(event_mask=X.SubstructureNotifyMask)
        root.damage_create(damage.DamageReportRawRectangles)
        self.display.sync()

    def start(self, command):
        """Milliseconds from exec to the first drawing in a window, and the peak memory in MiB."""
        while self.display.pending_events():
            self.display.next_event()
        begin = time.perf_counter()
        process = subprocess.Popen(command)
        for kind in (X.MapNotify, self.display.extension_event.DamageNotify):
            while not self._comes(kind):
                if process.poll() is not None:
                    raise RuntimeError(f"{command} has ended without a window")
        seconds = time.perf_counter() - begin
        time.sleep(0.3)  # until the program rests
        peak = peak_memory(process)
        process.kill()
        process.wait()
        return seconds * 1000, peak

    def _comes(self, kind):
        """True as soon as such an event comes, False when nothing happens for a second."""
        while self.display.pending_events() or select.select([self.display], [], [], 1)[0]:
            if self.display.next_event().type == kind:
                return True
        return False


def start_pairs(rounds, program, bare):
    """The pairs of the program and the bare window: those of their times, and those of their
    memory."""
    screen = Screen()
    starts = in_turn(rounds, lambda: screen.start(program), lambda: screen.start(bare))
    return [[[start[figure] for start in pair] for pair in starts] for figure in (0, 1)]


def idle_ms(command):
    """The processor time in ms that a program uses in a second in which nobody does anything."""
    with subprocess.Popen(command) as process:

        def ticks():
            with open(f"/proc/{process.pid}/stat") as status:
                user, system = status.read().rpartition(")")[2].split()[11:13]
            return int(user) + int(system)

        time.sleep(2)  # until the program has started and rests
        begin = ticks()
        time.sleep(1)
        used = ticks() - begin
        if process.poll() is not None:
            raise RuntimeError(f"{command} has ended")
        process.kill()
    return used * 1000 / os.sysconf("SC_CLK_TCK")


def print_table(rows):
    """Prints what was measured, beside its peer where it has one, and what is allowed: the ratio to
    the peer, or the figure itself. A row holds the words, a figure or the list of pairs with those
    of the peer, and the most. All that is printed of pairs is medians. Ends the program, with
    failure where a target is missed."""
    print(f"{'what':<58} {'ours':>8} {'peer':>8} {'ratio':>7} {'at most':>8}")
    is_missed = False
    for what, figures, most in rows:
        if isinstance(figures, list):
            ours, peers = map(statistics.median, zip(*figures))
            held = statistics.median(our / peer for our, peer in figures)
            shown = f"{ours:>8.2f} {peers:>8.2f} {held:>7.3f}"
        else:
            held, shown = figures, f"{figures:>8.2f} {'-':>8} {'-':>7}"
        is_missed |= held > most
        print(f"{what:<58} {shown} {most:>8.2f}{'  missed' if held > most else ''}")
    sys.exit(is_missed)
