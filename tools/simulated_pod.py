"""A simulated pod that a test puts behind a port, and the requests that it has seen."""

import subprocess

POLL, BUILD_CODE, SERIAL = "80 0 1 254 177", "80 0 1 192 239", "80 0 1 242 189"
WHOLE_REQUEST = [POLL, BUILD_CODE, SERIAL]


class SimulatedPod:
    """A simulated pod on a pseudo-terminal of its own."""

    def __init__(self, simulator, *options):
        pipes = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        self.process = subprocess.Popen([simulator, "--trace", *options], text=True, **pipes)
        self.device = self.process.stdout.readline().strip()
        self.trace = ""

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()

    def wait_for(self, frame):
        """Until the host has sent that frame."""
        while not self.trace.endswith(f"host: {frame}\n"):
            self.trace += self.process.stderr.readline()

    def requests(self):
        """The frames that the host has sent; ends the pod."""
        self.process.terminate()
        self.trace += self.process.communicate()[1]
        marked = [line.partition(": ") for line in self.trace.splitlines()]
        return [frame for sender, _, frame in marked if sender == "host"]
