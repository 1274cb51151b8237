#!/usr/bin/python3
"""Measures the program and prints a table of its figures beside those of a peer.

Usage: measure.py BUILD_FOLDER
"""

import contextlib
import os
import subprocess
import sys
import time

from measuring import (
    Requests, idle_ms, in_turn, milliseconds_of, peak_memory, print_table, start_pairs
)
from screen import output_of
from simulated_pod import SimulatedPod

BUILD = sys.argv[1]
PROGRAM = f"{BUILD}/program/linux/zendor-serial-extractor"
BARE = f"{BUILD}/bench/bare_window"
REQUEST = f"{BUILD}/bench/request_bench"
LEAST = f"{BUILD}/bench/least_request"
SEARCH = f"{BUILD}/bench/holder_search"
RECEIVE = f"{BUILD}/bench/receive_bench"
SIMULATOR = f"{BUILD}/simulator/zendor-pod-simulator"
COMMAND = f"{BUILD}/program/console/zendor-serial-number"


def request_pairs():
    """The requests of the window, and those of the command from its start to its end."""
    with SimulatedPod(SIMULATOR) as pod:
        with Requests([REQUEST, pod.device]) as window, Requests([LEAST, pod.device]) as least:
            clicks = in_turn(40, lambda: window.make()[0], lambda: least.make()[0])
        commands = in_turn(40, *(lambda program=program: milliseconds_of(program, pod.device)
                                 for program in (COMMAND, LEAST)))
    return clicks, commands


def longest_pass():
    """Of the wait loops of two requests without a pod, in ms."""
    with SimulatedPod(SIMULATOR, "--no-pod") as pod, Requests([REQUEST, pod.device]) as window:
        return max(window.make()[1] for _ in range(2))


@contextlib.contextmanager
def crowd(count):
    """Runs so many processes during a with block. Each has five open files, its three streams among
    them."""
    files = [os.open(os.devnull, os.O_RDONLY) for _ in range(2)]
    sleepers = [subprocess.Popen(["sleep", "inf"], pass_fds=files) for _ in range(count)]
    try:
        yield
    finally:
        for sleeper in sleepers:
            sleeper.kill()
        for sleeper in sleepers:
            sleeper.wait()
        for file in files:
            os.close(file)


def search_pairs():
    """Searches for a holder that is not there, so that both programs look at every process."""
    with SimulatedPod(SIMULATOR) as pod, crowd(300):
        return in_turn(20, lambda: milliseconds_of(SEARCH, pod.device, status=1),
                       lambda: milliseconds_of("fuser", pod.device, status=1))


def command_memory():
    """The peak in MiB of the command for scripts while it waits for a pod that does not answer."""
    with SimulatedPod(SIMULATOR, "--no-pod") as pod:
        with subprocess.Popen([COMMAND, pod.device], stderr=subprocess.DEVNULL) as process:
            time.sleep(1.5)
            return peak_memory(process)


def receive_pairs():
    return [list(map(float, line.split())) for line in output_of(RECEIVE).splitlines()]


def main():
    clicks, commands = request_pairs()
    starts, memory = start_pairs(40, PROGRAM, BARE)
    command_starts = in_turn(40, lambda: milliseconds_of(COMMAND, "--version"),
                             lambda: milliseconds_of(LEAST, status=1))
    print_table([
        ("request of the window, ms / the least request", clicks, 1.05),
        ("the command from start to end, ms / the least program", commands, 1.10),
        ("start of the command, ms / the least program", command_starts, 1.40),
        ("search of 300 processes for a holder, ms / fuser", search_pairs(), 0.50),
        ("start to the first drawn window, ms / bare window", starts, 1.05),
        ("peak memory, MiB / bare window", memory, 1.03),
        ("receive path, ns a byte: 255-byte reply / 5-byte reply", receive_pairs(), 1.00),
        ("longest pass of the wait loop without a pod, ms", longest_pass(), 20),
        ("processor time of an idle second, ms", idle_ms(PROGRAM), 20),
        ("peak memory of the command, MiB", command_memory(), 8),
    ])


if __name__ == "__main__":
    os.environ.setdefault("QT_ACCESSIBILITY", "0")
    main()
