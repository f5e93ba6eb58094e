#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Edits a scrolled page at random places and counts how often it stays where it was scrolled to; every now and then
the page is compared with the same text loaded anew.

    tests/e2e/beside/keeps_place.py build/dev/bin/page_driver [--edits N] [--seed N]

Every second edit takes the one before back. The place is kept when the page is scrolled to the same height, or the
element at its top has not moved.
"""
import argparse
import collections
import json
import pathlib
import random
import sys
import tempfile

from driver import Driver

PIECES = ["a", "word ", "\r\n", "<b>bold</b>", "<b>", "</p>", "<p>new</p>", "<br>", "<div>", "</div>", "<li>item",
          "<i>open", "&amp;", "&", "<", "<h2>title</h2>", "<table><tr><td>cell</table>", "<!-- note -->",
          "<img src=x.png alt=x>", "<% code %>", "<a href=x>", ' title="x"', ">"]
# Where the page is scrolled to, and the element that is first to be seen.
PLACE = """(() => {
    const at = document.elementFromPoint(60, 8) || document.documentElement;
    if (!globalThis.mark || !globalThis.mark.isConnected || %s)
        globalThis.mark = at;
    return [Math.round(scrollY), Math.round(globalThis.mark.getBoundingClientRect().top)];
})()"""
SAME = """(() => {
    const wanted = new DOMParser().parseFromString(%s, 'text/html').documentElement;
    const shown = document.documentElement.cloneNode(true);
    if (wanted.outerHTML === shown.outerHTML)
        return '';
    const a = wanted.outerHTML, b = shown.outerHTML;
    let i = 0;
    while (a[i] === b[i])
        ++i;
    return `${a.slice(i - 60, i + 60)} <> ${b.slice(i - 60, i + 60)}`;
})()"""


def page(size):
    block = ('<div class="entry"><h2>Opening</h2><p>The <b>hours</b> of the <a href="shop.htm">shop</a> are given '
             'for every day.<ul><li>Monday<li>Tuesday</ul><table><tr><td>from<td>to</table><br></div>\r\n')
    return "<!DOCTYPE html>\r\n<html><head><title>Hours</title></head><body>\r\n" + block * (size // len(block)) \
        + "</body></html>\r\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("driver")
    parser.add_argument("--edits", type=int, default=1000)
    parser.add_argument("--size", type=int, default=100, help="in KB")
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    chance = random.Random(options.seed)
    text = page(options.size * 1000)
    kept, wrong, ways = 0, 0, collections.Counter()
    with tempfile.TemporaryDirectory() as folder, Driver(options.driver) as driver:
        path = pathlib.Path(folder, "page.html")
        path.write_text(text, newline="")
        print(driver.load(path))
        driver.ask("scrollTo({top: 5000, behavior: 'instant'})")
        undo = None
        for number in range(options.edits):
            before = driver.ask(PLACE % "true" if undo is None else PLACE % "false")
            if undo is None:
                at = chance.randrange(text.index("<body>") + 6, text.index("</body>"))
                length = chance.choice([0, 0, 0, 1, 1, 5, 20])
                piece = chance.choice(PIECES) if length < 5 else ""
                undo = (at, len(piece), text[at:at + length])
                step = (at, length, piece)
            else:
                step, undo = undo, None
            at, length, piece = step
            text = text[:at] + piece + text[at + length:]
            ways[driver.edit(at, length, piece)] += 1
            after = driver.ask(PLACE % "false")
            same = after[0] == before[0] or abs(after[1] - before[1]) <= 2
            kept += same
            if not same:
                print(f"edit {number}: {step} {before} -> {after}", flush=True)
            if number % 20 == 19:
                plain = text.replace("<% code %>", '<span class="kevra-server-part">\u25c6</span>' + " " * 10)
                difference = driver.ask(SAME % json.dumps(plain))
                wrong += difference != ""
                if difference:
                    print(f"after edit {number}: {difference}", flush=True)
    print(f"place kept in {kept} of {options.edits} edits; {wrong} pages not as loaded anew; {dict(ways)}")
    return kept < options.edits or wrong > 0


if __name__ == "__main__":
    sys.exit(main())
