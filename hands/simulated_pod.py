"""A simulated pod that a test puts behind a port, and the requests that it has seen."""

import subprocess
import tempfile
import threading

from evidence import tell_trace
from screen import wait_for

POLL, BUILD_CODE, SERIAL = "80 0 1 254 177", "80 0 1 192 239", "80 0 1 242 189"
WHOLE_REQUEST = [POLL, BUILD_CODE, SERIAL]

# With these faults a request takes almost three seconds: two attempts wait for their time-outs, and
# the pod is asked for its build code once more. Each question has an attempt to spare. A busy
# computer can cost that one: what passes a pseudo-terminal waits for the processor in the kernel.
SLOW = ["--fault", "echo-only:242:2", "--fault", "byte-by-byte"]


class SimulatedPod:
    """A simulated pod on a line of its own. Its device is a link that leads nowhere once the pod has
    gone, because the system gives the number of its pseudo-terminal to whoever asks next."""

    def __init__(self, simulator, *options, device=None):
        self.folder = tempfile.TemporaryDirectory(prefix="pod-")
        self.device = device or f"{self.folder.name}/tty"
        command = [simulator, "--trace", "--link", self.device, *options]
        pipes = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        self.process = subprocess.Popen(command, text=True, **pipes)
        if not self.process.stdout.readline():  # the line is there once it is named
            raise RuntimeError(f"The simulated pod has ended: {self.process.communicate()[1]}")
        self.trace = []
        self.tracing = threading.Thread(target=self._read_trace)
        self.tracing.start()

    def __enter__(self):
        return self

    def __exit__(self, _, error, __):
        end = self.process.poll()
        self.pull_out()
        if error:
            tell_trace(error, self.trace, end)
        self.process.stdout.close()
        self.process.stderr.close()
        self.folder.cleanup()

    def _read_trace(self):
        for line in self.process.stderr:
            self.trace.append(line)

    def _frames(self):
        marked = [line.rstrip().partition(": ") for line in self.trace]
        return [frame for sender, _, frame in marked if sender == "host"]

    def wait_for(self, frame, times=1):
        """Waits until the host has sent that frame so many times."""

        def look():
            has_ended = not self.tracing.is_alive()
            if self._frames().count(frame) >= times:
                return True
            if has_ended:
                raise RuntimeError("The simulated pod has ended")
            return None

        wait_for(look, f"The frame {frame}")

    def pull_out(self):
        """Ends the line, as an adapter does that is pulled out."""
        self.process.terminate()
        self.process.wait()
        self.tracing.join()

    def requests_at_end(self):
        """Ends the line, and returns the frames that the host has sent."""
        self.pull_out()
        return self._frames()
