"""Why a port of Linux is refused, to the window and to the command alike."""

import fcntl

WRITE_REFUSAL = r"^Unhandled Error number 5\n.* is gone: .*\nOccured in LL_Serial_SendMessage$"


def refusals(device):
    """Devices that do not open, each with the reason, and the file that holds the device."""
    holder = open(device, "rb")
    fcntl.flock(holder, fcntl.LOCK_EX)
    return [
        (["/dev/ttyNone"], "There is no serial port /dev/ttyNone on this computer"),
        ([device], f"The serial port {device} is in use by another program"),
        ([__file__], f"{__file__} is not a serial port"),
    ], holder
