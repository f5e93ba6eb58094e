# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop of its own for one test: message bus, display, window manager, home folder."""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

_ON_BUS = "KEVRA_E2E_BUS"


def on_private_bus():
    """Runs the script again under a session bus that ends with it."""
    if _ON_BUS not in os.environ:
        os.environ[_ON_BUS] = "1"
        os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])


LONGEST = 55  # seconds; before the test runner's own limit, which would leave the display behind


def _too_long(*_):
    raise TimeoutError("not done in time")


class Desktop:
    """The display and what runs on it; everything started here is ended on leaving."""

    def __init__(self, size="1280x800", longest=LONGEST):
        self._size = size
        self._longest = longest
        self._started = []
        self.home = tempfile.mkdtemp(prefix="kevra-e2e-")

    def __enter__(self):
        signal.signal(signal.SIGALRM, _too_long)
        signal.alarm(self._longest)
        try:
            self._open_display()
            self._set_environment()
            self._open_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        signal.alarm(0)
        for process in reversed(self._started):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    def _open_display(self):
        # Without -noreset the display starts anew when its last client leaves, and drops whoever
        # connects meanwhile: the question below could so end the window manager.
        reading, writing = os.pipe()
        self.start(
            "Xvfb", "-displayfd", str(writing), "-screen", "0", self._size + "x24", "-nolisten", "tcp",
            "-noreset", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("the virtual display did not start")
        os.environ["DISPLAY"] = ":" + number

    def _open_window_manager(self):
        self.start("openbox", "--sm-disable", stderr=subprocess.DEVNULL)
        end = time.monotonic() + 10
        # It answers once the window manager has told the display what it can do.
        while subprocess.run(["xdotool", "get_num_desktops"], capture_output=True).returncode:
            if time.monotonic() > end:
                raise RuntimeError("the window manager did not start")
            time.sleep(0.02)

    def _set_environment(self):
        folders = {
            "HOME": "", "XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data", "XDG_STATE_HOME": "state",
            "XDG_CACHE_HOME": "cache", "XDG_RUNTIME_DIR": "run",
        }
        for variable, folder in folders.items():
            path = os.path.join(self.home, folder)
            os.makedirs(path, mode=0o700, exist_ok=True)
            os.environ[variable] = path
        os.environ["LC_ALL"] = "C.UTF-8"
        os.environ["QT_QPA_PLATFORM"] = "xcb"
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    @staticmethod
    def keep_picture(path):
        """What the screen shows now; its absence is no failure of its own."""
        if subprocess.run(["import", "-window", "root", path], check=False).returncode == 0:
            print("picture of the screen:", os.path.abspath(path))

    def start(self, *command, **options):
        process = subprocess.Popen(command, **options)
        self._started.append(process)
        return process
