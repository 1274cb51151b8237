"""The command for scripts on Linux, and a user of the command."""

import pathlib
import re
import signal
import subprocess

import linux_refusals

PORT = "Serial Port 1"


class Console:
    help_options = ["-h", "--help"]
    listed_ports = "".join(
        rf"{number}: (/dev/tty\S+(, .+)?|no such port on this computer)\n" for number in range(1, 5)
    ) + "other: the path of a device, such as /dev/ttyUSB0\n"
    write_refusal = linux_refusals.WRITE_REFUSAL

    def __init__(self, program):
        self.program = program

    def set_up(self):
        """Does nothing, because the command has no settings."""

    def close(self):
        """Does nothing, because the command leaves nothing behind."""

    def user(self, device):
        return User([self.program, device], self.program, device)

    def name_port(self, device):
        """What the command calls the device."""
        return device

    def run_command(self, *arguments, stdout=subprocess.PIPE):
        return run([self.program, *arguments], stdout)

    def refusals(self, device):
        return linux_refusals.refusals(device)


def run(command, stdout):
    return subprocess.run(command, stdout=stdout, stderr=subprocess.PIPE, text=True, timeout=20)


class User:
    """Starts the command line of the program for the port. The end of a with block kills it."""

    def __init__(self, command, program, port):
        self.command = command
        self.port = port
        self.title = re.compile(
            rf"^{pathlib.Path(program).stem}: (?:{port}: )?"
            rf"(Error(?: opening/closing {port})?|Unhandled Error): ", re.MULTILINE)
        self.process = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()

    def start(self):
        pipes = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        self.process = subprocess.Popen(self.command, text=True, **pipes)

    def finish(self):
        """Waits for the end of the command. Returns the titles of its messages, as a window would
        show them, with the texts; and the number, empty where there is none."""
        number, errors = self.process.communicate(timeout=20)
        before, *parts = self.title.split(errors)
        if before or number.count("\n") > 1:
            raise AssertionError(f"printed: {number!r}, {errors!r}")
        titles = [title.replace(self.port, PORT) for title in parts[::2]]
        messages = [(title, text.rstrip("\n")) for title, text in zip(titles, parts[1::2])]
        self.expected_status = 0 if number else 1
        return messages, number.rstrip("\n")

    def wait_until_over(self, _):
        """A command always ends, and its exit status tells whether it has printed a number."""
        if self.process.wait(10) != self.expected_status:
            raise AssertionError(f"exit status {self.process.returncode}")

    def break_off(self):
        self.process.send_signal(signal.SIGINT)
        self.process.wait(10)
