#!/usr/bin/python3
"""Measures the Windows program under Wine and prints a table of its figures and their targets.

Usage: measure_windows.py BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import statistics
import subprocess
import sys

from measuring import LINE_MS, idle_ms, print_table, start_ratios
from simulated_pod import SimulatedPod
from windows_platform import Windows

REQUESTS = 60


def requests(windows, simulator):
    """The times of the requests in ms, and the numbers of handles and GDI objects after each."""
    with SimulatedPod(simulator) as pod:
        windows.attach(pod.device)
        count = str(REQUESTS + 1)
        bench = windows.launch("bench/request_bench.exe", count, stdout=subprocess.PIPE, text=True)
        output, _ = bench.communicate(timeout=120)
    if bench.returncode != 0:
        raise RuntimeError("The requests have not come to their end")
    return zip(*(map(float, line.split()) for line in output.splitlines()))


def main(build, simulator):
    windows = Windows(build)
    try:
        windows.set_up()
        times, handles, objects = requests(windows, simulator)
        program = windows.command("program/windows/ZendorSerialExtractor.exe")
        bare = windows.command("bench/bare_window.exe")
        starts, _ = start_ratios(program, bare, 20)
        idle = idle_ms(program)
    finally:
        windows.close()
    print_table([
        (f"request on the paced line / its {LINE_MS:.1f} ms on the line, median of {len(times)}",
         statistics.median(times) / LINE_MS, 1.10),
        ("start to the first shown window / bare window, median of 20 pairs",
         statistics.median(starts), 1.25),
        ("processor time of an idle second, in ms", idle, 20),
        (f"handles after {REQUESTS} more requests than one", handles[-1] - handles[0], 0),
        (f"GDI objects after {REQUESTS} more requests than one", objects[-1] - objects[0], 0),
    ])


if __name__ == "__main__":
    main(*sys.argv[1:])
