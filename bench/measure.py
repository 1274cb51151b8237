#!/usr/bin/python3
"""Measures the program and prints a table of ratios and their targets.

Usage: measure.py BUILD_FOLDER
"""

import contextlib
import json
import os
import statistics
import subprocess
import sys

from measuring import LINE_MS, idle_ms, print_table, start_ratios
from screen import output_of
from simulated_pod import SimulatedPod

BUILD = sys.argv[1]
PROGRAM = f"{BUILD}/program/linux/zendor-serial-extractor"
BARE = f"{BUILD}/bench/bare_window"
REQUEST = f"{BUILD}/bench/request_bench"
RECEIVE = f"{BUILD}/bench/receive_bench"
SIMULATOR = f"{BUILD}/simulator/zendor-pod-simulator"

# Before a command: it sees no process but its own, however many the computer has.
SOLITARY = ["unshare", "--pid", "--fork", "--mount-proc"]
if os.geteuid() != 0:
    SOLITARY.append("--map-root-user")


def requests(count, *pod_options, prefix=()):
    """For each request its time and the longest pass of its wait loops, in ms."""
    with SimulatedPod(SIMULATOR, *pod_options) as pod:
        output = output_of(*prefix, REQUEST, pod.device, str(count))
    return [tuple(map(float, line.split())) for line in output.splitlines()]


@contextlib.contextmanager
def crowd(count):
    """So many processes of five open files each, the three that every process has among them."""
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


def cost_of_crowd(count):
    """What so many processes add to the first click of a program, in ms."""
    ((alone, _),) = requests(1, "--unpaced")
    with crowd(count):
        ((crowded, _),) = requests(1, "--unpaced")
    return crowded - alone


def receive_ratio():
    output = output_of(RECEIVE, "--benchmark_format=json")
    short, long = (row["per_byte"] for row in json.loads(output)["benchmarks"])
    return long / short


def main():
    paced = [ms / LINE_MS for ms, _ in requests(20, prefix=SOLITARY)]
    time_ratios, memory_ratios = start_ratios(PROGRAM, BARE, 20)
    crowded = [cost_of_crowd(300) for _ in range(9)]
    longest = max(longest for _, longest in requests(2, "--no-pod"))
    print_table([
        (f"request on the paced line / its {LINE_MS:.1f} ms on the line, median of 20",
         statistics.median(paced), 1.05),
        ("start to the first shown window / bare window, median of 20 pairs",
         statistics.median(time_ratios), 1.15),
        ("peak memory / bare window, median of 20 pairs", statistics.median(memory_ratios), 1.10),
        ("receive path per byte, 255-byte reply / 5-byte reply", receive_ratio(), 1.00),
        ("what 300 more processes add to a click, in ms, median of 9 pairs",
         statistics.median(crowded), 10),
        ("processor time of an idle second, in ms", idle_ms(PROGRAM), 20),
        ("longest pass of the wait loop without a pod, in ms, of 2 requests", longest, 20),
    ])


if __name__ == "__main__":
    os.environ.setdefault("QT_ACCESSIBILITY", "0")
    main()
