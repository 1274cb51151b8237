#!/usr/bin/python3
"""Measures the program and prints a table of its figures and their targets.

Usage: measure.py BUILD_FOLDER
"""

import contextlib
import json
import os
import statistics
import subprocess
import sys
import time

from measuring import LINE_MS, idle_ms, peak_memory, print_table, start_ratios
from screen import output_of
from simulated_pod import SimulatedPod

BUILD = sys.argv[1]
PROGRAM = f"{BUILD}/program/linux/zendor-serial-extractor"
BARE = f"{BUILD}/bench/bare_window"
REQUEST = f"{BUILD}/bench/request_bench"
RECEIVE = f"{BUILD}/bench/receive_bench"
SIMULATOR = f"{BUILD}/simulator/zendor-pod-simulator"
COMMAND = f"{BUILD}/program/console/zendor-serial-number"

# Before a command, this makes it see no process but its own, however many the computer has.
SOLITARY = ["unshare", "--pid", "--fork", "--mount-proc"]
if os.geteuid() != 0:
    SOLITARY.append("--map-root-user")


def requests(count, *pod_options, prefix=()):
    """The time of each request and the longest pass of its wait loops, in ms."""
    with SimulatedPod(SIMULATOR, *pod_options) as pod:
        output = output_of(*prefix, REQUEST, pod.device, str(count))
    return [tuple(map(float, line.split())) for line in output.splitlines()]


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


def cost_of_crowd(count):
    """What so many processes add to the first click of a program, in ms."""
    ((alone, _),) = requests(1, "--unpaced")
    with crowd(count):
        ((crowded, _),) = requests(1, "--unpaced")
    return crowded - alone


def milliseconds_of(*command):
    """The time from the start of a program to its end."""
    begin = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return (time.perf_counter() - begin) * 1000


def command_times(count):
    """Medians in ms of the command for scripts: its start, and a request without the start."""
    with SimulatedPod(SIMULATOR) as pod:
        starts = [milliseconds_of(*SOLITARY, COMMAND, "--version") for _ in range(count)]
        runs = [milliseconds_of(*SOLITARY, COMMAND, pod.device) for _ in range(count)]
    request = statistics.median(runs) - statistics.median(starts)
    return statistics.median(milliseconds_of(COMMAND, "--version") for _ in range(count)), request


def command_memory():
    """The peak in MiB of the command for scripts while it waits for a pod that does not answer."""
    with SimulatedPod(SIMULATOR, "--no-pod") as pod:
        with subprocess.Popen([COMMAND, pod.device], stderr=subprocess.DEVNULL) as process:
            time.sleep(1.5)
            peak = peak_memory(process)
    return peak / 1024


def receive_ratio():
    output = output_of(RECEIVE, "--benchmark_format=json")
    short, long = (row["per_byte"] for row in json.loads(output)["benchmarks"])
    return long / short


def main():
    paced = [ms / LINE_MS for ms, _ in requests(20, prefix=SOLITARY)]
    command_start, command_request = command_times(20)
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
        ("the command: request / its line time, without its start, median of 20",
         command_request / LINE_MS, 1.05),
        ("the command: its start, in ms, median of 20", command_start, 10),
        ("the command: peak memory, in MiB", command_memory(), 8),
        ("longest pass of the wait loop without a pod, in ms, of 2 requests", longest, 20),
    ])


if __name__ == "__main__":
    os.environ.setdefault("QT_ACCESSIBILITY", "0")
    main()
