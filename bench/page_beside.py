#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Types into the real program with the page beside the text, and reads from the screen when the page has followed,
what a key costs, and whether the page has kept its place.

    bench/page_beside.py [--build DIRECTORY] [--keys N] [--edits N] [--rounds N] [--sizes KB,KB]
"""
import argparse
import itertools
import os
import pathlib
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

from open_window import HEIGHT, PIXEL, WIDTH, Screen

# The page says where it is scrolled to by the colour of one box, and shows what is typed in another.
HEAD = """<!DOCTYPE html>\r
<html><head><title>Hours</title><script>\r
function tell() { const y = Math.round(scrollY); box.style.background = `rgb(${y >> 8}, ${y & 255}, 77)`; }\r
addEventListener('scroll', tell); addEventListener('load', tell);\r
</script></head><body>\r
<div id=box style="position:fixed;right:0;top:0;width:40px;height:40px"></div>\r
"""
BLOCK = """<div class="entry"><p>Opening <b>hours</b> of the <a href="shop.htm">shop</a></p>\r
  are given for every day of the week, and change in summer.<br></div>\r
"""
TARGET = """<p style="position:fixed;left:0;top:0;margin:0;width:300px;height:40px;font:30px monospace;background:#c8ffc8">\r
W\r
</p>\r
"""
GREENS, BLUE = [bytes([200, 255, 200, unused]) * 20 for unused in (0, 255)], 77
EDITS = ["a", "b", "space", "less", "i", "greater", "c", "less", "slash", "i", "greater", "ampersand", "a", "m", "p",
         "semicolon"]
LIMIT = 20.0
START = 60.0


def page(size):
    half = BLOCK * (size // len(BLOCK) // 2)
    return HEAD + half + TARGET + half + "</body></html>\r\n", (HEAD + half).count("\n") + 2


class Program:
    """The editor on a screen of its own with a page, the caret in its green box."""

    def __init__(self, editor, folder, number, size, beside):
        display = pathlib.Path(folder, f"display{number}")
        home = pathlib.Path(folder, f"home{number}")
        for each in (display, home):
            each.mkdir()
        path = pathlib.Path(folder, f"page{number}.htm")
        text, line = page(size)
        path.write_text(text, newline="")
        self.screen = Screen(str(display), 170 + number)
        self.environment = dict(os.environ, DISPLAY=self.screen.name, HOME=str(home))
        for name in list(self.environment):
            if name.startswith("XDG_"):
                del self.environment[name]
        settings = home / ".config/kevra/kevra285.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text(f"[settings]\nif1=no\npagebeside={'yes' if beside else 'no'}\n")
        self.editor = subprocess.Popen([editor, str(path)], env=self.environment, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL, start_new_session=True)
        time.sleep(6)
        self.keys("Escape")
        self.keys("ctrl+g")
        time.sleep(1)
        subprocess.run(["xdotool", "type", str(line)], env=self.environment, check=True)
        self.keys("Return", "End")
        deadline = time.monotonic() + START
        while beside and not self.is_shown() and time.monotonic() < deadline:
            time.sleep(0.5)
        time.sleep(2)

    def keys(self, *names):
        subprocess.run(["xdotool", "key", *names], env=self.environment, check=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.killpg(self.editor.pid, signal.SIGKILL)
        self.editor.wait()
        self.screen.close()

    def rows(self, left, right, top, bottom):
        at = self.screen.start
        return b"".join(self.screen.map[at + (y * WIDTH + left) * PIXEL:at + (y * WIDTH + right) * PIXEL]
                        for y in range(top, bottom))

    def is_shown(self):
        picture = self.screen.picture()
        return any(green in picture for green in GREENS)

    def target(self):
        """Where the green box is on the screen."""
        picture = self.screen.picture()
        places = [at for at in map(picture.find, GREENS) if at >= 0]
        if not places:
            raise RuntimeError("the page is not shown")
        y, x = divmod(min(places) // PIXEL, WIDTH)
        return x, min(x + 300, WIDTH), y, y + 38

    def scrolled(self):
        """How far the page is scrolled, by the colour of its box; None while that is not to be seen."""
        _, _, y, _ = self.target()
        for x in range(WIDTH - 8, WIDTH - 80, -4):
            blue, green, red, _ = self.rows(x, x + 1, y + 20, y + 21)
            if blue == BLUE:
                return red * 256 + green
        return None

    def time_of_key(self, name, region):
        before = self.rows(*region)
        started = time.monotonic()
        self.keys(name)
        while self.rows(*region) == before:
            if time.monotonic() - started > LIMIT:
                return float("nan")
            time.sleep(0.001)
        return (time.monotonic() - started) * 1000


def shown(times):
    ordered = sorted(times)
    return f"{statistics.median(ordered):6.0f} {ordered[int(len(ordered) * 0.95)]:6.0f} {ordered[-1]:6.0f}"


def follow(program, count):
    """Milliseconds from a key to the page, one key at a time."""
    region = program.target()
    times = []
    for number in range(count):
        times.append(program.time_of_key("BackSpace" if number % 2 else "M", region))
        time.sleep(0.3)
    return times


def typing(program, count):
    """Milliseconds from a key to the text, keys in a row, and of CPU in the thread of the windows."""
    region = (0, WIDTH // 3, 150, HEIGHT - 80)
    thread = pathlib.Path(f"/proc/{program.editor.pid}/task/{program.editor.pid}/schedstat")
    before = int(thread.read_text().split()[0])
    times = [program.time_of_key("BackSpace" if number % 2 else "M", region) for number in range(count)]
    return times, (int(thread.read_text().split()[0]) - before) / count / 1e6


def keep_place(program, count):
    """How many of so many edits left the page where it was scrolled to."""
    x, _, y, _ = program.target()
    subprocess.run(["xdotool", "mousemove", str(x + 60), str(y + 200), "click", "--repeat", "12", "--delay", "60", "5"],
                   env=program.environment, check=True)
    time.sleep(2)
    place, kept = program.scrolled(), 0
    if not place:
        raise RuntimeError("the page did not scroll")
    for number in range(count):
        half = len(EDITS)
        step = number % (2 * half)
        program.keys(EDITS[step] if step < half else "BackSpace")
        time.sleep(0.12)
        now = program.scrolled()
        kept += now == place
        if now != place:
            print(f"edit {number}: {place} -> {now}", flush=True)
    return kept


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    root = pathlib.Path(__file__).resolve().parent.parent
    parser.add_argument("--build", default=str(root / "build/release"))
    parser.add_argument("--keys", type=int, default=60)
    parser.add_argument("--edits", type=int, default=1000)
    parser.add_argument("--rounds", type=int, default=1, help="of the keys with the page and without it, in turn")
    parser.add_argument("--sizes", default="100,1000", help="in KB")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        # Without the pages beside it the program keeps its state in the home folder, so no run asks about another's.
        for name in ("kevra", "kevra-page-process", "libkevra_preview.so"):
            shutil.copy2(f"{options.build}/bin/{name}", folder)
        numbers = itertools.count()

        def start(kilobytes, beside):
            return Program(folder + "/kevra", folder, next(numbers), kilobytes * 1000, beside)

        for number, kilobytes in enumerate(map(int, options.sizes.split(","))):
            with start(kilobytes, True) as program:
                times = follow(program, options.keys)
                print(f"{kilobytes} KB, key to page, median p95 max ms: {shown(times)}", flush=True)
                if number == 0 and options.edits:
                    print(f"place kept in {keep_place(program, options.edits)} of {options.edits} edits", flush=True)
            times, costs = {True: [], False: []}, {True: [], False: []}
            for beside in [True, False] * options.rounds:
                with start(kilobytes, beside) as program:
                    some, cost = typing(program, options.keys)
                times[beside] += some
                costs[beside].append(cost)
            print(f"{kilobytes} KB, key to text, with the page {shown(times[True])}, without {shown(times[False])}; "
                  f"CPU of the windows' thread a key, median of rounds {statistics.median(costs[True]):.2f} and "
                  f"{statistics.median(costs[False]):.2f} ms", flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
