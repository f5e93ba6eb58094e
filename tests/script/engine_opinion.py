#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Asks an independent script host whether it accepts VBScript files: engine_opinion.py [--jobs N] FILE|DIR...

Prints "accepted PATH" or "refused PATH" for each. Nothing of the files is run: each gets "WScript.Quit 7" as its first
statement, so that the host compiles all of it, quits at once, and ends with 7; after a compile error it ends with 0.
By hand only; needs the Debian package wine. The host has gaps of its own: it is an opinion, not a judge."""
import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

PREFIX = "/tmp/kevra-engine/prefix"
ENVIRONMENT = {**os.environ, "WINEPREFIX": PREFIX, "WINEARCH": "win64", "WINEDEBUG": "-all",
               "WINEDLLOVERRIDES": "mscoree,mshtml=", "DISPLAY": ""}
ACCEPTED = 7
# Comments and empty lines may stand before Option Explicit, which has to stay the first statement.
OPTION = re.compile(rb"\A((?:[ \t:]*(?:(?:'|rem\b)[^\r\n]*)?(?:\r\n|\r|\n))*[ \t:]*option(?:[ \t]|_[ \t]*\r?\n)+explicit)\b", re.I)


def text_of(data):
    """ASCII only: other characters become letters, which strings, comments and most names take."""
    if data[:2] in (b"\xff\xfe", b"\xfe\xff"):
        data = data.decode("utf-16", "replace").encode("ascii", "replace")
    if data[:3] == b"\xef\xbb\xbf":
        data = data[3:]
    return bytes(byte if byte < 128 else 0x78 for byte in data)


def prepared(data):
    text = text_of(data)
    first = OPTION.match(text)
    if first:
        return text[:first.end()] + b"\r\nWScript.Quit 7\r\n" + text[first.end():]
    return b"WScript.Quit 7\r\n" + text


def opinion(path, folder):
    script = tempfile.NamedTemporaryFile(suffix=".vbs", dir=folder, delete=False)
    try:
        script.write(prepared(pathlib.Path(path).read_bytes()))
        script.close()
        # By its name alone: the host takes what starts with a slash for an option.
        done = subprocess.run(["wine", "cscript.exe", "//nologo", os.path.basename(script.name)], cwd=folder,
                              env=ENVIRONMENT, timeout=30, stdin=subprocess.DEVNULL, capture_output=True, check=False)
        return "accepted" if done.returncode == ACCEPTED else "refused"
    except subprocess.TimeoutExpired:
        return "no-answer"
    finally:
        os.unlink(script.name)


def scripts(names):
    for name in map(pathlib.Path, names):
        if name.is_dir():
            yield from sorted(path for path in name.rglob("*") if path.suffix.lower() == ".vbs" and path.is_file())
        else:
            yield name


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("files", nargs="+")
    arguments = parser.parse_args()
    if not os.path.isdir(PREFIX):
        os.makedirs(PREFIX)
        subprocess.run(["wineboot", "-i"], env=ENVIRONMENT, check=True, capture_output=True)
    # One server that stays, or every script would start and stop its own.
    subprocess.run(["wineserver", "-p600"], env=ENVIRONMENT, check=False)
    paths = list(scripts(arguments.files))
    with tempfile.TemporaryDirectory() as folder, \
            concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for path, answer in zip(paths, pool.map(lambda path: opinion(path, folder), paths)):
            print(answer, path, flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
