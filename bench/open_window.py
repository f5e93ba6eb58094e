#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Times editors from the command line to a window that shows a file and has stopped changing.

Every editor runs on a virtual display of its own whose picture lies in a mapped file, so watching it costs the
editor nothing. The picture counts as finished at its last change of more than a blinking caret, once nothing
has moved for a second. Editors take turns, so that a busy machine slows all of them alike.

    bench/open_window.py [--rounds N] [--sizes KB,KB,...] [--editors a,b] [--kinds htm,vbs]
"""
import argparse
import mmap
import os
import pathlib
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
WIDTH, HEIGHT, PIXEL = 1280, 800, 4
CARET_ROWS = 40
QUIET_SECONDS = 1.0
LIMIT_SECONDS = 60.0

EDITORS = {
    "kevra": [str(ROOT / "build/release/bin/kevra")],
    "bare": [str(ROOT / "build/release/bin/bare_window")],  # the same control, no colour: the limit
    "scite": ["SciTE"],
    "gvim": ["gvim", "-f", "-c", "syntax on"],
    "featherpad": ["featherpad", "--standalone"],
}


def page(size):
    block = (b"<div class=\"entry\"><p>Opening <b>hours</b> of the <a href=\"shop.htm\">shop</a></p>\r\n"
             b"  are given for every day of the week, and change in summer.<br></div>\r\n")
    return b"<html><head><title>Hours</title></head><body>\r\n" + block * (size // len(block) + 1)


def script(size):
    block = (b"Sub CopyDay(day)\r\n  If day = \"Monday\" Then\r\n    MsgBox \"The shop is closed\"\r\n"
             b"  End If\r\n  For i = 1 To 7\r\n    total = total + hours(i) '--sum\r\n  Next\r\nEnd Sub\r\n")
    return block * (size // len(block) + 1)


class Screen:
    """An Xvfb of our own, its picture read from a mapped file."""

    def __init__(self, folder, number):
        self.name = f":{number}"
        self.server = subprocess.Popen(
            ["Xvfb", self.name, "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", folder, "-nolisten", "tcp", "-noreset"],
            stderr=subprocess.DEVNULL)
        picture = pathlib.Path(folder) / "Xvfb_screen0"
        size = WIDTH * HEIGHT * PIXEL
        while not picture.exists() or picture.stat().st_size < size:
            time.sleep(0.02)
        # A desktop has a window manager; without one, an editor that starts maximised waits for it in vain.
        self.manager = subprocess.Popen(["openbox"], env=dict(os.environ, DISPLAY=self.name),
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(0.6)
        with open(picture, "rb") as file:
            self.map = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        self.start = len(self.map) - size

    def picture(self):
        return self.map[self.start:]

    def close(self):
        self.manager.terminate()
        self.manager.wait()
        self.server.terminate()
        self.server.wait()


def rows_changed(before, after):
    row = WIDTH * PIXEL
    return sum(before[at:at + row] != after[at:at + row] for at in range(0, len(before), row))


def time_to_quiet(command, path, screen, home):
    environment = dict(os.environ, DISPLAY=screen.name, HOME=home, XDG_CONFIG_HOME=home + "/config",
                       XDG_STATE_HOME=home + "/state", XDG_DATA_HOME=home + "/data")
    before = screen.picture()
    started = time.monotonic()
    editor = subprocess.Popen(command + [path], env=environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, start_new_session=True)
    last_change = None
    while time.monotonic() - started < LIMIT_SECONDS:
        now = time.monotonic()
        picture = screen.picture()
        if picture != before:
            if rows_changed(before, picture) > CARET_ROWS:
                last_change = now
            before = picture
        if last_change and now - last_change > QUIET_SECONDS:
            break
        time.sleep(0.004)
    os.killpg(editor.pid, signal.SIGKILL)
    editor.wait()
    time.sleep(0.2)
    return last_change - started if last_change else float("nan")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--sizes", default="100,1000,10000,50000", help="in KB")
    parser.add_argument("--editors", default=",".join(EDITORS))
    parser.add_argument("--kinds", default="htm,vbs")
    options = parser.parse_args()
    names = [name for name in options.editors.split(",") if shutil.which(EDITORS[name][0])]
    makers = {"htm": page, "vbs": script}

    print(f"{'file':>12}  " + "  ".join(f"{name:>18}" for name in names) + "   (median, least to most, ms)")
    with tempfile.TemporaryDirectory() as folder:
        for kind in options.kinds.split(","):
            for kilobytes in map(int, options.sizes.split(",")):
                path = f"{folder}/sample{kilobytes}.{kind}"
                pathlib.Path(path).write_bytes(makers[kind](kilobytes * 1000))
                times = {name: [] for name in names}
                for round_number in range(options.rounds + 1):
                    for index, name in enumerate(names):
                        display = pathlib.Path(folder, f"display{kind}{kilobytes}{round_number}{index}")
                        home = pathlib.Path(folder, f"home-{name}")
                        display.mkdir()
                        home.mkdir(exist_ok=True)
                        screen = Screen(str(display), 150 + index)
                        taken = time_to_quiet(EDITORS[name], path, screen, str(home))
                        screen.close()
                        if round_number:  # the first round fills the caches
                            times[name].append(taken * 1000)
                cells = [f"{statistics.median(t):7.0f} ({min(t):.0f}-{max(t):.0f})" for t in times.values()]
                print(f"{kilobytes:>8} {kind}  " + "  ".join(f"{cell:>18}" for cell in cells), flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
