#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Clicks on what is to be seen of real pages and compares where the caret is put with the place of the tag.

    tests/e2e/beside/real_pages.py build/dev/bin/page_driver [--pages N] [--clicks N] [FOLDER...]

Every start tag of a copy of the page is given a number by a scanner of its own, and the engine is asked which number
is at a point: neither knows how the editor finds places.
"""
import argparse
import pathlib
import random
import re
import sys
import tempfile

from driver import Driver

FOLDERS = ["/usr/share/doc", "/usr/share/perl", "/usr/share/help", "/usr/lib/node_modules"]
RAW = "script|style|textarea|title|xmp|iframe|noembed|noframes|plaintext"
PIECE = re.compile(rb"<!--.*?-->|<!.*?>|<\?.*?>|<(?P<raw>" + RAW.encode() + rb")\b.*?</(?P=raw)|"
                   rb"<(?P<tag>[a-zA-Z][^\s/>]*)(?P<rest>(?:\"[^\"]*\"|'[^']*'|[^'\">])*)>", re.S | re.I)
FIND = """(() => {
    const seen = new Map();
    for (const element of document.querySelectorAll('[data-number]')) {
        for (const box of element.getClientRects()) {
            const x = Math.round((Math.max(box.left, 0) + Math.min(box.right, innerWidth - 16)) / 2);
            const y = Math.round((Math.max(box.top, 0) + Math.min(box.bottom, innerHeight - 16)) / 2);
            if (x < 1 || y < 1 || x >= innerWidth - 16 || y >= innerHeight - 16)
                continue;
            const at = document.elementFromPoint(x, y);
            const known = at && at.closest('[data-number]');
            if (known && !seen.has(known.dataset.number))
                seen.set(known.dataset.number, [x, y, known.localName]);
        }
    }
    return [...seen].map(([number, point]) => [Number(number), ...point]);
})()"""

AT = "Number(document.elementFromPoint(%d, %d)?.closest('[data-number]')?.dataset.number)"


def numbered(page):
    """The page with a number in each start tag, and where the tags are in it."""
    result, places, last = bytearray(), [], 0
    for match in PIECE.finditer(page):
        if not match["tag"]:
            continue
        end = match.end("tag")
        result += page[last:match.start()]
        places.append(len(result))
        result += page[match.start():end] + b' data-number="%d"' % (len(places) - 1)
        last = end
    return bytes(result + page[last:]), places


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("driver")
    parser.add_argument("folders", nargs="*", default=FOLDERS)
    parser.add_argument("--pages", type=int, default=200)
    parser.add_argument("--clicks", type=int, default=15, help="at most so many a page")
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    chance = random.Random(options.seed)
    found = sorted(path for folder in options.folders for path in pathlib.Path(folder).rglob("*.htm*")
                   if path.suffix in (".html", ".htm") and path.is_file() and 1000 < path.stat().st_size < 1000000)
    chance.shuffle(found)
    pages = clicks = right = 0
    with tempfile.TemporaryDirectory() as folder, Driver(options.driver) as driver:
        for path in found:
            if pages == options.pages:
                break
            text = path.read_bytes().decode("utf-8", "replace").encode()
            copy, places = numbered(text)
            # Beside the original's name, so that what it refers to is not found: only the text counts.
            place = pathlib.Path(folder, "page.html")
            place.write_bytes(copy)
            state = driver.load(place)
            if state not in ("show", "change"):
                print(f"{path}: {state}", flush=True)
                continue
            targets = driver.ask(FIND)
            chance.shuffle(targets)
            pages += bool(targets)
            for _, x, y, name in targets[:options.clicks]:
                number = driver.ask(AT % (x, y))  # what was clicked before can have moved it
                if number is None:
                    continue
                caret = driver.click(x, y)
                clicks += 1
                right += caret == places[number]
                if caret != places[number]:
                    print(f"{path}: <{name}> at {places[number]}, caret {caret}", flush=True)
    print(f"{right} of {clicks} clicks right, {100 * right / max(clicks, 1):.2f} %, on {pages} pages")
    return right < 0.99 * clicks


if __name__ == "__main__":
    sys.exit(main())
