#!/usr/bin/python3
"""Measures the Windows program under Wine and prints a table of its figures beside those of a peer.

Usage: measure_windows.py BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import statistics
import sys

from measuring import Requests, idle_ms, in_turn, milliseconds_of, print_table, start_pairs
from simulated_pod import SimulatedPod
from windows_platform import Windows

COMMAND = "program/console/ZendorSerialNumber.exe"
LEAST = "bench/least_request.exe"


def request_rounds(windows):
    """For each round the figures of a request of the window, and those of the least request."""
    with Requests(windows.command("bench/request_bench.exe")) as window:
        with Requests(windows.command(LEAST, "COM1")) as least:
            return in_turn(60, window.make, least.make)


def growth(counts):
    """From the first 20 to the last 20, by their medians: a thread that is about to end holds a
    handle for a moment."""
    return statistics.median(counts[-20:]) - statistics.median(counts[:20])


def command_pairs(windows):
    """From its start to its end: with a request, and with its version alone beside a program that
    does nothing."""

    def time(program, *arguments, status=0):
        return milliseconds_of(*windows.command(program, *arguments), status=status)

    requests = in_turn(20, lambda: time(COMMAND, "1"), lambda: time(LEAST, "COM1"))
    starts = in_turn(40, lambda: time(COMMAND, "--version"), lambda: time(LEAST, status=1))
    return requests, starts


def main(build, simulator):
    windows = Windows(build)
    try:
        windows.set_up()
        with SimulatedPod(simulator) as pod:
            windows.attach(pod.device)
            rounds = request_rounds(windows)
            command_requests, command_starts = command_pairs(windows)
        program = windows.command("program/windows/ZendorSerialExtractor.exe")
        starts, _ = start_pairs(20, program, windows.command("bench/bare_window.exe"))
        idle = idle_ms(program)
    finally:
        windows.close()
    _, handles, objects = zip(*(window for window, _ in rounds))
    print_table([
        ("request of the window, ms / the least request",
         [[window[0], least[0]] for window, least in rounds], 1.10),
        ("the command from start to end, ms / the least program", command_requests, 1.15),
        ("start of the command, ms / the least program", command_starts, 1.25),
        ("start to the first drawn window, ms / bare window", starts, 1.35),
        ("processor time of an idle second, ms", idle, 20),
        # A leak in each request would add 20 or more.
        ("handles that 40 requests add", growth(handles), 1),
        ("GDI objects that 40 requests add", growth(objects), 1),
    ])


if __name__ == "__main__":
    main(*sys.argv[1:])
