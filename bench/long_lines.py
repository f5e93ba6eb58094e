#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""CPU of the built editor with texts of one line and the same bytes in lines: of all of it for opening, of the thread
that answers the keys for keys here and there, the most expensive of each, and for writing the record in the pause.

    bench/long_lines.py [--build build/dev] [--megabytes 60] [KIND ...]
"""
import argparse
import os
import pathlib
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests/e2e/campaign"))
from editor import Editor, Workshop  # noqa: E402

KINDS = {"letters": b"abcdefghij" * 8, "tags": b"<b>x</b>" * 10, "quotes": b'"' * 80}
TICK = 1000 / os.sysconf("SC_CLK_TCK")
HOME, END, LEFT, RIGHT, UP, DOWN, PAGE_DOWN = (0x1000010, 0x1000011, 0x1000012, 0x1000014, 0x1000013, 0x1000015,
                                               0x1000017)
DELETE, BACKSPACE, RETURN = 0x1000007, 0x1000003, 0x1000004
CONTROL = 0x4000000
RECORD = 3  # seconds; it is written two after a change
STEPS = [("letter", ord("A"), 0, "a"), ("<", ord("<"), 0, "<"), (">", ord(">"), 0, ">"), ("\"", ord('"'), 0, '"'),
         ("return", RETURN, 0, "\r"), ("delete", DELETE, 0, ""), ("backspace", BACKSPACE, 0, ""),
         ("right", RIGHT, 0, ""), ("left", LEFT, 0, ""), ("word", RIGHT, CONTROL, ""), ("up", UP, 0, ""),
         ("down", DOWN, 0, ""), ("home", HOME, 0, ""), ("end", END, 0, ""), ("page", PAGE_DOWN, 0, "")]


def spent(editor):
    """CPU of the editor so far, in ms, once it has nothing to do."""
    def now():
        with open(f"/proc/{editor.process.pid}/stat", encoding="ascii") as file:
            fields = file.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) * TICK

    before, quiet = now(), 0
    while quiet < 4:
        time.sleep(0.1)
        editor.ask("ready")
        after = now()
        quiet = quiet + 1 if after - before <= TICK else 0
        before = after
    return before


def answering(editor):
    """CPU so far of the thread that answers, in ms."""
    with open(f"/proc/{editor.process.pid}/schedstat", encoding="ascii") as file:
        return int(file.read().split()[0]) / 1e6


def pressed(editor, key, modifiers, typed=""):
    before = answering(editor)
    editor.do("key", typed, key=key, modifiers=modifiers)
    for _ in range(3):  # what it left for later, the painting among it
        editor.ask("ready")
    return answering(editor) - before


def measure(workshop, extension, text, times):
    home = workshop.folder()
    path = os.path.join(home, "text." + extension)
    with open(path, "wb") as file:
        file.write(text)
    with Editor(workshop, home) as empty:
        start = spent(empty)
    home = workshop.folder()
    with Editor(workshop, home, [path]) as editor:
        row = [("open", spent(editor) - start)]
        for place, key in (("start", HOME), ("end", END)):
            row.append((f"to the {place}", pressed(editor, key, CONTROL)))
            for name, code, modifiers, typed in STEPS:
                spent(editor)
                row.append((name, max(pressed(editor, code, modifiers, typed) for _ in range(times))))
        before = answering(editor)
        time.sleep(RECORD)
        spent(editor)
        row.append(("record", answering(editor) - before))
    return row


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", default=str(ROOT / "build/dev"))
    parser.add_argument("--megabytes", type=int, default=60)
    parser.add_argument("--times", type=int, default=4, help="each key")
    parser.add_argument("--types", default="htm,vbs,txt")
    parser.add_argument("--shapes", default="one,lines")
    parser.add_argument("kinds", nargs="*", choices=[[], *KINDS])
    options = parser.parse_args()
    workshop = Workshop(options.build + "/bin/kevra", options.build + "/bin/e2e_remote_driver.so", in_memory=False)
    try:
        for kind in options.kinds or KINDS:
            for extension in options.types.split(","):
                for shape in options.shapes.split(","):
                    unit = KINDS[kind] + (b"\r\n" if shape == "lines" else b"")
                    text = unit * (options.megabytes * 1000000 // len(unit))
                    row = measure(workshop, extension, text, options.times)
                    print(f"{kind:8} .{extension} {shape:5}", "  ".join(f"{n} {t:.0f}" for n, t in row), "ms", flush=True)
    finally:
        workshop.close()


if __name__ == "__main__":
    main()
