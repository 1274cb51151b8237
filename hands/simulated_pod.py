"""A simulated pod that a test puts behind a port, and the requests that it has seen."""

import subprocess
import threading

from screen import wait_for

POLL, BUILD_CODE, SERIAL = "80 0 1 254 177", "80 0 1 192 239", "80 0 1 242 189"
WHOLE_REQUEST = [POLL, BUILD_CODE, SERIAL]

# With these faults a request takes three seconds, because the first attempt of each of its commands
# waits for its time-out.
SLOW = [option for header in (254, 192, 242) for option in ("--fault", f"echo-only:{header}:1")]


class SimulatedPod:
    """A simulated pod on a pseudo-terminal of its own."""

    def __init__(self, simulator, *options):
        pipes = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        self.process = subprocess.Popen([simulator, "--trace", *options], text=True, **pipes)
        self.device = self.process.stdout.readline().strip()
        self.trace = []
        self.tracing = threading.Thread(target=self._read_trace)
        self.tracing.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self._wait_for_end()
        self.process.stdout.close()
        self.process.stderr.close()

    def _read_trace(self):
        for line in self.process.stderr:
            self.trace.append(line)

    def _wait_for_end(self):
        self.process.wait()
        self.tracing.join()

    def _frames(self):
        marked = [line.rstrip().partition(": ") for line in self.trace]
        return [frame for sender, _, frame in marked if sender == "host"]

    def wait_for(self, frame, times=1):
        """Waits until the host has sent that frame so many times."""
        wait_for(lambda: self._frames().count(frame) >= times or None, f"The frame {frame}")

    def requests(self):
        """Ends the pod, and returns the frames that the host has sent."""
        self.process.terminate()
        self._wait_for_end()
        return self._frames()
