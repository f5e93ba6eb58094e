#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""An hour of one editor: rounds of open, edit, save, find, replace, undo and preview, with its memory after each.

    soak.py --kevra build/dev/bin/kevra --driver build/dev/bin/e2e_remote_driver.so [--minutes 60] [--preview no]

Prints a table with tabs: what the editor and the engine's processes hold after each round, in MB, and the editor's
descriptors and threads. By hand: run it after changes to the preview or the control. The exit status is 1 when the
last third holds more than the second by 2 MB and more: a process that has settled does not grow.
"""

import argparse
import os
import re
import statistics
import sys
import time

from editor import Editor, Workshop

SETTLED = 2.0  # MB
FIELDS = ("Rss", "Private_Dirty", "Anonymous")


def page(number):
    row = f"<p class=\"r{number}\"><b>Opening hours</b> of <i>shop {number}</i> <img src=\"none.png\"></p>\r\n"
    return "<html><head><title>Hours</title></head><body>\r\n" + row * (200 + 400 * (number % 4)) + "</body></html>\r\n"


def script(number):
    return f"If total = {number} Then MsgBox \"closed\" & day '-- hours\r\nNext\r\n" * (200 + 400 * (number % 3))


def memory(process):
    with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as file:
        text = file.read()
    return {field: int(re.search(rf"^{field}: +(\d+)", text, re.M)[1]) / 1024 for field in FIELDS}


def descendants(process):
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
        children = [int(one) for one in file.read().split()]
    return children + [far for child in children for far in descendants(child)]


def others(process):
    total = 0.0
    for one in descendants(process):
        try:
            total += memory(one)["Private_Dirty"]
        except OSError:  # it ends with its page
            pass
    return total


def one_round(editor, home, number, preview):
    name, text = (f"page{number % 5}.htm", page(number)) if number % 3 else (f"code{number % 5}.vbs", script(number))
    path = os.path.join(home, name)
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write(text)
    editor.open(path)
    editor.do("type", f"<p>round {number}</p>\n")
    editor.save()
    editor.do("trigger", "mfind")
    editor.until(lambda: editor.ask("shown", "ffind")["ok"], "the find window")
    for field, value in (("tfind", "hours"), ("trep", f"times {number}")):
        editor.do("fill", value, **{"in": "ffind", "field": field})
    for button in ("bfind", "bnext", "bnum", "brepall"):
        editor.do("press", button, **{"in": "ffind"})
        editor.idle()
    editor.do("trigger", "mundo")
    editor.save()
    if preview and number % 3:
        editor.preview()
        time.sleep(0.5)
        editor.back()
    editor.idle()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--kevra", required=True)
    parser.add_argument("--driver", required=True)
    parser.add_argument("--minutes", type=float, default=60)
    parser.add_argument("--preview", choices=("yes", "no"), default="yes")
    parser.add_argument("--platform", default="offscreen", help="xcb for the display of DISPLAY")
    options = parser.parse_args()
    workshop = Workshop(options.kevra, options.driver, in_memory=False)
    curve = []
    try:
        home = workshop.folder()
        with Editor(workshop, home, QT_QPA_PLATFORM=options.platform) as editor:
            begun = time.monotonic()
            print("round\tminutes\t" + "\t".join(FIELDS) + "\tengine\tdescriptors\tthreads", flush=True)
            number = 0
            while time.monotonic() - begun < 60 * options.minutes:
                number += 1
                one_round(editor, home, number, options.preview == "yes")
                time.sleep(0.2)
                held = memory(editor.process.pid)
                curve.append(held["Private_Dirty"])
                counts = [len(os.listdir(f"/proc/{editor.process.pid}/{what}")) for what in ("fd", "task")]
                row = [f"{(time.monotonic() - begun) / 60:.2f}", *(f"{value:.1f}" for value in held.values()),
                       f"{others(editor.process.pid):.1f}", *map(str, counts)]
                print(number, *row, sep="\t", flush=True)
    finally:
        workshop.close()
    third = max(1, len(curve) // 3)
    growth = statistics.median(curve[-third:]) - statistics.median(curve[-2 * third:-third] or curve[-third:])
    print(f"# the last third holds {growth:+.1f} MB against the second")
    return 1 if growth > SETTLED else 0


if __name__ == "__main__":
    sys.exit(main())
