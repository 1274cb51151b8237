#!/usr/bin/python3
"""Measures the program and prints a table of ratios and their targets.

Usage: measure.py BUILD_FOLDER
"""

import json
import os
import select
import statistics
import subprocess
import sys
import time

from Xlib import X, display

from screen import output_of

BUILD = sys.argv[1]
PROGRAM = f"{BUILD}/program/linux/zendor-serial-extractor"
BARE = f"{BUILD}/bench/bare_window"
REQUEST = f"{BUILD}/bench/request_bench"
RECEIVE = f"{BUILD}/bench/receive_bench"
SIMULATOR = f"{BUILD}/simulator/zendor-pod-simulator"

# Three requests of 5 bytes, their echoes being the same slots of the line, and replies of 5, 13 and 8.
LINE_BYTES = 3 * 5 + 5 + 13 + 8
LINE_MS = LINE_BYTES * 10 / 9600 * 1000


def requests(count, *pod_options):
    """For each request its time and the longest pass of its wait loops, in ms."""
    with subprocess.Popen([SIMULATOR, *pod_options], stdout=subprocess.PIPE, text=True) as pod:
        device = pod.stdout.readline().strip()
        try:
            output = output_of(REQUEST, device, str(count))
        finally:
            pod.kill()
    return [tuple(map(float, line.split())) for line in output.splitlines()]


class Screen:
    """Watches which windows appear on the screen."""

    def __init__(self):
        self.display = display.Display()
        self.display.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.display.sync()

    def start(self, command):
        """Seconds from exec to the first window, and the peak memory in KiB by then."""
        while self.display.pending_events():
            self.display.next_event()
        begin = time.perf_counter()
        process = subprocess.Popen([command])
        while not self._shows_a_window():
            if process.poll() is not None:
                raise RuntimeError(f"{command} has ended without a window")
        seconds = time.perf_counter() - begin
        time.sleep(0.3)  # drawn, and at rest
        with open(f"/proc/{process.pid}/status") as status:
            peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM"))
        process.kill()
        process.wait()
        return seconds, peak

    def _shows_a_window(self):
        """True with the event of it, False when there is none for a second."""
        while self.display.pending_events() or select.select([self.display], [], [], 1)[0]:
            if self.display.next_event().type == X.MapNotify:
                return True
        return False


def start_ratios(pairs):
    """The program over the bare window, pair by pair: of time, of memory."""
    screen = Screen()
    rows = [(screen.start(PROGRAM), screen.start(BARE)) for _ in range(pairs + 1)][1:]
    return (
        [program[0] / bare[0] for program, bare in rows],
        [program[1] / bare[1] for program, bare in rows],
    )


def receive_ratio():
    output = output_of(RECEIVE, "--benchmark_format=json")
    short, long = (row["per_byte"] for row in json.loads(output)["benchmarks"])
    return long / short


def main():
    paced = [ms / LINE_MS for ms, _ in requests(20)]
    time_ratios, memory_ratios = start_ratios(20)
    longest = max(longest for _, longest in requests(2, "--no-pod"))
    rows = [
        (f"request on the paced line / its {LINE_MS:.1f} ms on the line, median of 20",
         statistics.median(paced), 1.05),
        ("start to the first shown window / bare window, median of 20 pairs",
         statistics.median(time_ratios), 1.15),
        ("peak memory / bare window, median of 20 pairs", statistics.median(memory_ratios), 1.10),
        ("receive path per byte, 255-byte reply / 5-byte reply", receive_ratio(), 1.00),
        ("longest pass of the wait loop without a pod, in ms, of 2 requests", longest, 20),
    ]
    print(f"{'what':<66} {'measured':>8} {'at most':>8}")
    for what, measured, most in rows:
        missed = "" if measured <= most else "  missed"
        print(f"{what:<66} {measured:>8.3f} {most:>8.2f}{missed}")
    sys.exit(any(measured > most for _, measured, most in rows))


if __name__ == "__main__":
    os.environ.setdefault("QT_ACCESSIBILITY", "0")
    main()
