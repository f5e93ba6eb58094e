#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tries the tests: plants one small fault after another in a copy of the sources, and tells which went unnoticed.

    tests/mutation/mutation.py [--long] [PART OF A FAULT'S NAME...]
    tests/mutation/mutation.py --places     only looks whether each fault's place still is in the sources

A developers' tool: some fifty faults, each built and run, are up to an hour's work. What --long adds for the faults
that the unit and window tests let pass are the tests of the built program."""

import argparse
import os
import shutil
import subprocess
import sys

from faults import FAULTS

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
COPY = os.path.join(ROOT, "build", "mutation")
BUILD = os.path.join(COPY, "build", "dev")
SUITES = ("core_tests", "gui_tests")
LONG = ["ctest", "-j2", "-E", "core_tests|gui_tests|structure|encodings|hostile"]
LIMIT = 900  # seconds a suite may take; a fault can make a loop endless


def lost_places():
    """The faults whose place was edited away or is no longer the only one, after a change of the sources."""
    for fault in FAULTS:
        try:
            with open(os.path.join(ROOT, fault.file), encoding="utf-8", newline="") as file:
                if file.read().count(fault.old) != 1:
                    yield f"{fault.file}: {fault.what}"
        except FileNotFoundError:
            yield f"{fault.file} is missing: {fault.what}"


def copy_sources():
    files = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, check=True).stdout.decode()
    for name in filter(None, files.split("\0")):
        target = os.path.join(COPY, name)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        source = os.path.join(ROOT, name)
        if os.path.exists(source) and not (os.path.exists(target) and same(source, target)):
            shutil.copy(source, target)  # dated now, or it would not be built again


def same(one, other):
    with open(one, "rb") as first, open(other, "rb") as second:
        return first.read() == second.read()


def passes(command, log):
    try:
        return subprocess.run(command, cwd=BUILD, stdout=log, stderr=log, timeout=LIMIT,
                              env=dict(os.environ, QT_QPA_PLATFORM="offscreen", GTEST_BRIEF="1",
                                       GTEST_FAIL_FAST="1")).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def built(log, targets=SUITES):
    return passes(["cmake", "--build", ".", "--target", *targets], log)


def outcome(fault, long, log):
    """Which suite noticed one fault, whether none did, or why it says nothing."""
    path = os.path.join(COPY, fault.file)
    with open(path, encoding="utf-8", newline="") as file:
        text = file.read()
    if text.count(fault.old) != 1:
        return f"place found {text.count(fault.old)} times"
    try:
        with open(path, "w", encoding="utf-8", newline="") as file:
            file.write(text.replace(fault.old, fault.new))
        for suite in SUITES:
            if not built(log, [suite]):
                return "does not build"
            if not passes([os.path.join("bin", suite)], log):
                return f"noticed by {suite}"
        if long and built(log, ["all"]) and not passes(LONG, log):
            return "noticed by the tests of the program"
        return "UNNOTICED"
    finally:
        with open(path, "w", encoding="utf-8", newline="") as file:
            file.write(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--long", action="store_true")
    parser.add_argument("--places", action="store_true")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    if options.places:
        sys.exit("\n".join(lost_places()) or None)
    chosen = [fault for fault in FAULTS if not options.names or any(name in fault.what for name in options.names)]
    os.makedirs(COPY, exist_ok=True)
    copy_sources()
    with open(os.path.join(COPY, "log"), "w", encoding="utf-8") as log:
        subprocess.run(["cmake", "--preset", "dev", "-Wno-dev", "-DKEVRA_WERROR=OFF"], cwd=COPY, stdout=log, check=True)
        if not built(log) or not all(passes([os.path.join("bin", suite)], log) for suite in SUITES):
            sys.exit(f"The tests fail without a fault: see {log.name}")
        results = []
        for fault in chosen:
            results.append(outcome(fault, options.long, log))
            print(f"{results[-1]:38}{fault.what}", flush=True)
    noticed = sum(result.startswith("noticed") for result in results)
    tried = sum(not result.startswith(("place", "does not")) for result in results)
    print(f"{noticed} of {tried} noticed")


if __name__ == "__main__":
    main()
