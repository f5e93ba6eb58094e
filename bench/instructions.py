#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Counts the instructions of keystrokes and passes under callgrind and compares them with the kept table.

Unlike time, the counts hardly depend on what else the machine does: what grows here has become more work.

    bench/instructions.py            compares with bench/instructions.tsv; fails where more than 5 % were added
    bench/instructions.py --write    keeps the new counts
"""
import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = ROOT / "build/release/bin"
TABLE = ROOT / "bench/instructions.tsv"
ALLOWED_GROWTH = 1.05
KEYS = 20

PAGE = b"<p class=\"row\"><b>Opening hours</b> <i>Monday</i> to <a href=\"x.htm\">Friday</a></p>\r\n"
SCRIPT = (b"Sub CopyDay(day)\r\n  If day = \"Monday\" Then\r\n    MsgBox \"closed\"\r\n  End If\r\n"
          b"  total = total + hours(i) '-- sum\r\nEnd Sub\r\n")


def counted(command, function):
    """Instructions spent in the function, whose name is a pattern, and in all it calls."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_HASH_SEED="0")
    run = subprocess.run(
        ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", f"--toggle-collect={function}", *command],
        env=environment, capture_output=True, text=True, check=False)
    total = re.search(r"Collected : (\d+)", run.stderr)
    if run.returncode > 1 or not total or int(total[1]) == 0:
        sys.exit(f"{' '.join(command)}: nothing counted in {function}\n{run.stderr[-2000:]}")
    return int(total[1])


def keystrokes():
    # One more press than keys: each row starts on a fresh line with a letter.
    for control in ("page", "script"):
        for kilobytes in (100, 2000):
            for key in ("letter", "<", ">", "Return"):
                command = [str(PROGRAMS / "keystroke_bench"), str(KEYS), str(kilobytes), control, key]
                yield (f"key {key}, {control} of {kilobytes} KB", counted(command, "*press*") // (KEYS + 1))


def passes():
    for name, line, suffix, arguments, function in (
            ("tag pass", PAGE, ".htm", ["colour", "--format", "runs"], "kevra::tagRuns*"),
            ("keyword pass", SCRIPT, ".vbs", ["colour", "--format", "runs"], "kevra::scriptRuns*"),
            ("checker run", SCRIPT, ".vbs", ["check"], "kevra::check(*")):
        for kilobytes in (100, 200):
            with tempfile.NamedTemporaryFile(suffix=suffix) as file:
                text = line * (kilobytes * 1000 // len(line))
                file.write(text)
                file.flush()
                count = counted([str(PROGRAMS / "kevra-cli"), *arguments, file.name], function)
                yield (f"{name}, {kilobytes} KB, for 1000 bytes", count * 1000 // len(text))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--write", action="store_true", help="keep the new counts")
    options = parser.parse_args()
    kept = dict(line.split("\t") for line in TABLE.read_text().splitlines()) if TABLE.exists() else {}
    rows, grown = [], 0
    for name, count in (*passes(), *keystrokes()):
        before = int(kept.get(name, count))
        worse = count > before * ALLOWED_GROWTH
        grown += worse
        rows.append(f"{name}\t{count}\n")
        print(f"{name:>40} {count:>12} {count / before:>6.2f}{'  more work' if worse else ''}", flush=True)
    if options.write:
        TABLE.write_text("".join(rows))
    return 1 if grown and not options.write else 0


if __name__ == "__main__":
    sys.exit(main())
