"""The screen reader Orca, and what it says."""

import fcntl
import os
import pathlib
import shutil
import subprocess
import tempfile

from screen import wait_for

VOICE = pathlib.Path(__file__).with_name("written_voice.py")
SETTINGS = f'AddModule "written" "{VOICE}" "written.conf"\nDefaultModule written\n'


class ScreenReader:
    """Runs Orca for a with block, on a speech service of its own whose voice writes to a file. Orca
    refuses to start while the same user runs another one, so each waits for the end of the one
    before: its program file is the lock."""

    def __init__(self):
        self.turn = open(shutil.which("orca"), "rb")
        fcntl.flock(self.turn, fcntl.LOCK_EX)
        self.folder = tempfile.TemporaryDirectory()
        folder = pathlib.Path(self.folder.name)
        (folder / "speechd.conf").write_text(SETTINGS)
        (folder / "modules").mkdir()
        (folder / "modules/written.conf").touch()  # the voice writes beside this file
        self.file = folder / "modules/said"
        self.file.touch()
        self.words = folder / "words"
        self.heard = 0
        self.processes = []
        socket = folder / "socket"
        self._launch("speech-dispatcher", "--run-single", "--timeout", "0", "--config-dir", folder,
                     "--log-dir", folder, "--pid-file", folder / "pid",
                     "--communication-method", "unix_socket", "--socket-path", socket)
        wait_for(lambda: socket.exists() or None, "The speech service")
        self._launch("orca", "--user-prefs", folder / "orca", SPEECHD_ADDRESS=f"unix_socket:{socket}")

    def _launch(self, *command, **variables):
        environment = dict(os.environ, **variables)
        with self.words.open("a") as words:
            streams = {"stdout": words, "stderr": words}
            self.processes.append(subprocess.Popen(command, env=environment, **streams))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        service, orca = self.processes
        orca.kill()  # it does not always end when it is asked to
        orca.wait()
        service.terminate()
        service.wait()
        self.folder.cleanup()
        self.turn.close()

    def listen_until(self, words):
        """The utterances since the last call that come before the one that holds the words."""

        def look():
            if self.processes[-1].poll() is not None:
                raise RuntimeError(f"Orca has ended: {self.words.read_text()}")
            lines = self.file.read_text().splitlines()[self.heard:]
            return next((lines[:i + 1] for i, line in enumerate(lines) if words in line), None)

        said = wait_for(look, f'"{words}" spoken')
        self.heard += len(said)
        return said[:-1]
