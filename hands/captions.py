"""The texts by which a user finds the controls of the window."""

HEADING = "Your Zendor Serial Number is:"
BUTTON = "Get Serial Number"
OPTIONS = [f"Serial Port {number}" for number in range(1, 5)]
