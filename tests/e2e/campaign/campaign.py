#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Nothing typed is ever lost: the built editor against kills, failing calls, full disks and odd files.

    campaign.py --kevra build/dev/bin/kevra --driver build/dev/bin/e2e_remote_driver.so [--long] [--seed N] [CASE ...]

Every case prints a line: what was tried, how often, what was lost. The exit status is 1 when anything was, and 77
when nothing could be tried on this machine.
"""

import argparse
import sys
import time

import disk_cases
import foreign_cases
import file_cases
import kill_cases
import leaving_cases
import recovery_cases
from editor import Workshop

CASES = {**kill_cases.CASES, **disk_cases.CASES, **file_cases.CASES, **recovery_cases.CASES,
         **leaving_cases.CASES, **foreign_cases.CASES}
SKIPPED = 77
# What a file system in memory would do otherwise; the long form is on the disk throughout.
ON_DISK = {"failing-calls", "kill-at-every-call", "kept-properties", "refused-places"}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--kevra", required=True)
    parser.add_argument("--driver", required=True)
    parser.add_argument("--long", action="store_true", help="the long form")
    parser.add_argument("--seed", type=int, default=20261121)
    parser.add_argument("cases", nargs="*", choices=[[], *CASES], help="all without any")
    options = parser.parse_args()

    print(f"seed {options.seed}, {'long' if options.long else 'short'} form")
    print(f"{'case':<22} {'tried':>7} {'lost':>5} {'seconds':>8}  what")
    lost = tried = 0
    for name in options.cases or CASES:
        case = CASES[name]
        workshop = Workshop(options.kevra, options.driver, in_memory=not options.long and name not in ON_DISK)
        begun = time.monotonic()
        try:
            result = case(workshop, options.seed, options.long)
        finally:
            workshop.close()
        seconds = time.monotonic() - begun
        print(f"{name:<22} {result.tried:>7} {len(result.lost):>5} {seconds:>8.1f}  {result.what}", flush=True)
        for line in result.lost[:10]:
            print(f"    LOST: {line}")
        lost += len(result.lost)
        tried += result.tried
    return 1 if lost else SKIPPED if tried == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
