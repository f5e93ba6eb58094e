# SPDX-License-Identifier: GPL-3.0-or-later
"""One running editor in folders of its own, with a remote driver inside it."""

import base64
import json
import os
import shutil
import signal
import socket
import subprocess
import tempfile
import time

UNPRIVILEGED = 65534
WAIT = 60.0
MEMORY = "/dev/shm"


class Gone(Exception):
    """The editor has ended."""


class Workshop:
    """A scratch folder with a copy of the program, so that nothing lands beside the built one."""

    def __init__(self, kevra, driver, in_memory):
        roomy = os.path.isdir(MEMORY) and os.statvfs(MEMORY).f_bavail * os.statvfs(MEMORY).f_frsize > 1 << 28
        self.root = tempfile.mkdtemp(prefix="kevra-campaign-", dir=MEMORY if in_memory and roomy else None)
        os.chmod(self.root, 0o755)
        self.program = os.path.join(self.root, "bin", "kevra")
        self.driver = os.path.join(self.root, "bin", "driver.so")
        os.mkdir(os.path.dirname(self.program))
        shutil.copy(kevra, self.program)
        shutil.copy(driver, self.driver)
        # What the preview loads when a page is asked for. Not every version has both.
        for part in ("libkevra_preview.so", "kevra-page-process"):
            if os.path.exists(os.path.join(os.path.dirname(kevra), part)):
                shutil.copy(os.path.join(os.path.dirname(kevra), part), os.path.dirname(self.program))
        self.count = 0

    def folder(self, user=None):
        self.count += 1
        path = os.path.join(self.root, f"case{self.count}")
        os.mkdir(path)
        if user is not None:
            os.chown(path, user, user)
        return path

    def close(self):
        shutil.rmtree(self.root, ignore_errors=True)


def preload_of(kevra, driver):
    """A sanitized program wants its runtime first."""
    libraries = subprocess.run(["ldd", kevra], capture_output=True, text=True, check=True).stdout
    runtime = [line.split()[2] for line in libraries.splitlines() if "libasan" in line]
    return " ".join(runtime + [driver])


class Editor:
    def __init__(self, workshop, home, arguments=(), user=None, settings=None, wait=True, kill_at=0,
                 folders=None, errors=None, **more):
        self.home = home
        self.config = os.path.join(home, "config", "kevra", "kevra285.ini")
        if not os.path.exists(self.config):
            os.makedirs(os.path.dirname(self.config))
            with open(self.config, "w", encoding="ascii") as file:
                file.write("[settings]\nif1=no\n" if settings is None else settings)
            if user is not None:
                subprocess.run(["chown", "-R", f"{user}:{user}", home], check=True)
        ours, theirs = socket.socketpair()
        places = {"state": home + "/state", "runtime": home, "tmp": home + "/config", **(folders or {})}
        environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home + "/config", XDG_STATE_HOME=places["state"],
                           XDG_DATA_HOME=home + "/data", XDG_CACHE_HOME=home + "/cache",
                           XDG_RUNTIME_DIR=places["runtime"], TMPDIR=places["tmp"],
                           LD_PRELOAD=preload_of(workshop.program, workshop.driver),
                           QT_QPA_PLATFORM="offscreen", KEVRA_HAND=str(theirs.fileno()), LC_ALL="C.UTF-8")
        if kill_at:
            environment["KEVRA_KILL_AT"] = str(kill_at)
        environment.update(more)
        identity = {} if user is None else {"user": user, "group": user, "extra_groups": []}
        self.log = open(os.path.join(home, "stderr"), "ab")
        self.process = subprocess.Popen([workshop.program, *arguments], env=environment, stdout=self.log,
                                        stderr=self.log if errors is None else errors, pass_fds=[theirs.fileno()], cwd=home, **identity)
        theirs.close()
        self.socket = ours
        self.socket.settimeout(WAIT)
        self.pending = b""
        if wait:
            self.until(lambda: self.ask("ready")["ok"] or self.box(), "the window")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.kill()

    def ask(self, what, argument="", **more):
        try:
            self.socket.sendall(json.dumps({"do": what, "with": argument, **more}).encode() + b"\n")
            while b"\n" not in self.pending:
                got = self.socket.recv(1 << 16)
                if not got:
                    raise Gone()
                self.pending += got
        except (BrokenPipeError, ConnectionResetError) as error:
            raise Gone() from error
        line, self.pending = self.pending.split(b"\n", 1)
        return json.loads(line)

    def until(self, condition, what):
        end = time.monotonic() + WAIT
        while not condition():
            if time.monotonic() > end:
                raise TimeoutError(f"waited for {what}, shown: {self.box()!r}")
            time.sleep(0.002)

    def do(self, what, argument="", **more):
        if not self.ask(what, argument, **more)["ok"]:
            raise RuntimeError(f"{what} {argument}: not possible, shown: {self.box()!r}")

    def box(self):
        """The text of the box or the title of the dialog that is open."""
        return self.ask("box")["text"]

    def expect(self, text):
        self.until(lambda: self.box() == text, text)

    def idle(self):
        self.until(lambda: self.ask("ready")["ok"], "the end of the command")

    def bar(self, name="diskbar"):
        """What a bar says; nothing while it is not shown."""
        bar = self.ask("bar", name)
        return bar["text"] if bar["ok"] else ""

    def text(self):
        return base64.b64decode(self.ask("text")["text"])

    def save(self):
        self.do("trigger", "msaveplain")
        self.idle()

    def save_as(self, path, replace=None):
        self.do("trigger", "msaveas")
        self.expect("Save As")
        self.do("choose", path)
        if replace:
            self.expect("Do you want to replace the existing file?")
            self.do("answer", replace)
        self.idle()

    def preview(self):
        self.do("press", "bview")
        self.until(lambda: self.ask("previewed")["ok"], "the page")

    def back(self):
        self.do("back")
        self.until(lambda: not self.ask("previewed")["ok"], "the text")

    def open(self, path):
        """Drops the file onto the window."""
        self.do("drop", path)
        if self.box():
            self.do("answer", "No")
        self.idle()

    def kill(self, number=signal.SIGKILL):
        if self.process.poll() is None:
            self.process.send_signal(number)
        self.process.wait(WAIT)
        self.socket.close()
        self.log.close()
        return self.process.returncode

    def state(self, *parts):
        return os.path.join(self.home, "state", "kevra", *parts)


def record_bytes(path):
    """The text in a recovery record, as a save would have written it; None when there is no whole record."""
    try:
        with open(path, "rb") as file:
            data = file.read()
    except OSError:
        return None
    magic, _, rest = data.partition(b"\n")
    if magic != b"KEVRA record 1":
        return None
    rest = rest.partition(b"\n")[2]
    fields = []
    while rest:
        length, _, rest = rest.partition(b"\n")
        fields.append(rest[:int(length)])
        rest = rest[int(length):]
    return fields[2]


def recovered(home):
    """What the next start would offer: every record, newest last."""
    folder = os.path.join(home, "state", "kevra", "recovery")
    names = sorted(name for name in os.listdir(folder) if name.endswith(".record"))
    return [record_bytes(os.path.join(folder, name)) for name in names]
