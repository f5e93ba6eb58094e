# SPDX-License-Identifier: GPL-3.0-or-later
"""page_driver, a step at a time, on a display of its own."""
import json
import os
import pathlib
import subprocess
import tempfile


class Driver:
    def __init__(self, program):
        self.folder = tempfile.TemporaryDirectory()
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24",
                                        "-nolisten", "tcp"], pass_fds=[write], stderr=subprocess.DEVNULL)
        display = os.read(read, 20).decode().strip()
        environment = dict(os.environ, DISPLAY=f":{display}", HOME=self.folder.name, QT_QPA_PLATFORM="xcb")
        self.process = subprocess.Popen([program], env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.server.terminate()
        self.server.wait()
        self.folder.cleanup()

    def step(self, **what):
        self.process.stdin.write(json.dumps(what) + "\n")
        self.process.stdin.flush()
        line = self.process.stdout.readline()
        if not line:
            raise RuntimeError("the program has ended")
        return line.strip()

    def load(self, path):
        return self.step(do="load", path=str(pathlib.Path(path).resolve()))

    def edit(self, at, length, text):
        return self.step(do="edit", at=at, length=length, text=text)

    def ask(self, script):
        return json.loads(self.step(do="ask", script=f"JSON.stringify(({script}) ?? null)"))

    def click(self, x, y):
        return int(self.step(do="click", x=x, y=y))
