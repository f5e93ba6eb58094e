# SPDX-License-Identifier: GPL-3.0-or-later
"""The harness on a folder of pages, and a server on this machine that stands for the web."""

import os
import socket
import subprocess
import tempfile
import threading

import channels

PAGE = "PAGE-NAME"  # in an address: tells at the sink which page was there
PATIENCE = 580  # seconds


class Sink:
    """Accepts connections on this machine, answers like a web server, and keeps their first lines."""

    def __init__(self):
        self.seen = []
        self.server = socket.create_server(("127.0.0.1", 0))
        self.packets = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.packets.bind(("127.0.0.1", self.server.getsockname()[1]))
        for work in (self.serve, self.listen):
            threading.Thread(target=work, daemon=True).start()

    @property
    def port(self):
        return self.server.getsockname()[1]

    @property
    def address(self):
        return f"http://127.0.0.1:{self.port}/"

    def serve(self):
        while True:
            connection, _ = self.server.accept()
            connection.settimeout(1)
            try:
                self.seen.append(connection.recv(200).split(b"\r\n")[0].decode("latin-1"))
                connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 2\r\nAccess-Control-Allow-Origin: *\r\n\r\nok")
            except OSError:
                self.seen.append("(connection)")
            connection.close()

    def listen(self):
        while True:
            self.packets.recv(2000)
            self.seen.append("(packet)")


class Run:
    """The harness on some of the pages, in a site and a home folder of its own. Its system calls are traced unless
    time is what counts: the engine's processes speak to each other by them."""

    def __init__(self, harness, folder, attempts, *options, site=None, platform="offscreen", traced=True):
        self.home = tempfile.mkdtemp(dir=folder)
        shown = os.path.join(self.home, "site")
        os.mkdir(shown)
        for name, text in {**(site or {}), **attempts}.items():
            with open(os.path.join(shown, name), "wb") as file:
                file.write(text if isinstance(text, bytes) else text.replace(PAGE, name).encode())
        self.trace = os.path.join(self.home, "trace")
        calls = ["strace", "-f", "--seccomp-bpf", "-qq", "-e", "trace=connect,sendto,sendmsg,sendmmsg", "-o", self.trace]
        environment = dict(os.environ, QT_QPA_PLATFORM=platform, HOME=self.home)
        if platform == "offscreen":
            environment["XDG_RUNTIME_DIR"] = self.home
        self.process = subprocess.Popen([*(calls if traced else []), harness, shown, *options], env=environment,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)

    def results(self):
        """What each page achieved, by its name. A run that failed has no pages."""
        found = {}
        for line in self.process.stdout:  # shown as it comes: it says where a run that hangs has come to
            print(line, end="", flush=True)
            name, *parts = line.split()
            found[name] = dict(part.split("=", 1) for part in parts)
        return {} if self.process.wait() else found

    def got_out(self):
        with open(self.trace, encoding="utf-8", errors="replace") as trace:
            return channels.who_got_out(trace)


# What a page may take is said in src/preview/page_bounds.h; the rest is what a look between two measurements, and a
# busy machine, let through.
EDITOR_GROWTH = 512  # MB
PAGE_MEMORY = 2048  # MB


def greedy(results):
    return [name for name, result in results.items()
            if int(result["own"]) > EDITOR_GROWTH or int(result["page"]) > PAGE_MEMORY]


def running(results):
    return [name for name, result in results.items() if result["ended"] != "yes"]


def way_back(result):
    """In ms, without what other programs kept the processor from the editor."""
    return max(0, int(result["back"]) - int(result["queued"]))


def slowest(results):
    return max((way_back(result) for result in results.values()), default=0)
