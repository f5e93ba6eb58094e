#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Time of `kevra-cli check` on scripts that pass every rule, against grep counting the block words.

Both run whole processes on the same file, in turns; the least of all rounds is what the work costs.

    bench/check_against_grep.py [--rounds N] [--sizes KB,KB]
"""
import argparse
import os
import pathlib
import statistics
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BLOCK = (b"Sub CopyDay(day)\r\n  If day = \"Monday\" Then\r\n    MsgBox \"The shop is closed\"\r\n  End If\r\n"
         b"  For i = 1 To 7\r\n    total = total + hours(i) '--sum of it\r\n  Next\r\n  Do\r\n"
         b"    x = fso.GetFile(day)\r\n  Loop\r\nEnd Sub\r\n"
         b"' a comment that is plain, and as long as they come in real ones\r\n")


def clock_and_cpu(command, environment):
    """Milliseconds from start to end, and of all processors."""
    # Into a pipe: grep stops at its first match when its output goes nowhere.
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.PIPE, env=environment)
    process.stdout.read()
    _, _, usage = os.wait4(process.pid, 0)
    return (time.perf_counter() - start) * 1000, (usage.ru_utime + usage.ru_stime) * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=25)
    parser.add_argument("--sizes", default="1000,10000", help="in KB")
    options = parser.parse_args()
    environment = dict(os.environ, LC_ALL="C")
    print(f"{'KB':>6} {'':>5} {'check ms':>18} {'grep ms':>18} {'ratio of least':>15}   (least, median)")
    for kilobytes in map(int, options.sizes.split(",")):
        with tempfile.NamedTemporaryFile(suffix=".vbs") as script:
            script.write(BLOCK * (kilobytes * 1000 // len(BLOCK)))
            script.flush()
            commands = [[str(ROOT / "build/release/bin/kevra-cli"), "check", script.name],
                        ["grep", "-ciwE", "if|for|next|sub|do|loop", script.name]]
            verdict = subprocess.run(commands[0], capture_output=True, check=True, text=True).stdout
            assert verdict == f"{script.name}: OK\n", verdict
            rounds = [[clock_and_cpu(command, environment) for command in commands]
                      for _ in range(options.rounds)]
            for kind, name in enumerate(("clock", "CPU")):
                check, grep = ([both[program][kind] for both in rounds] for program in (0, 1))
                cells = [f"{min(times):8.1f} {statistics.median(times):8.1f}" for times in (check, grep)]
                print(f"{kilobytes:>6} {name:>5} {cells[0]:>18} {cells[1]:>18} {min(check) / min(grep):>15.2f}")


if __name__ == "__main__":
    main()
