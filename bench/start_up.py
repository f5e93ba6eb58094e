#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Start-up of the program against a bare Qt window with the same control: time and CPU to the first picture,
and memory a second later.

    bench/start_up.py [--rounds N] [--build build/release] [FILE]
"""
import argparse
import os
import pathlib
import re
import statistics
import subprocess
import tempfile
import time

from open_window import ROOT, Screen



def cpu(pid):
    """Milliseconds of CPU, from the scheduler's own count."""
    total = 0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        total += int((task / "schedstat").read_text().split()[0])
    return total / 1e6


def memory(pid):
    text = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text()
    kilobytes = {key: int(value) for key, value in re.findall(r"(\w+): +(\d+) kB", text)}
    return {"pss": kilobytes["Pss"] / 1024, "private": (kilobytes["Private_Dirty"] + kilobytes["Private_Clean"]) / 1024}


def run(command, screen, home, settle):
    environment = dict(os.environ, DISPLAY=screen.name, HOME=home, XDG_CONFIG_HOME=home + "/config",
                       XDG_STATE_HOME=home + "/state", XDG_DATA_HOME=home + "/data", XDG_RUNTIME_DIR=home)
    before = screen.picture()
    started = time.monotonic()
    program = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while screen.picture() == before and time.monotonic() - started < 20:
        time.sleep(0.0005)
    result = {"time": (time.monotonic() - started) * 1000, "cpu": cpu(program.pid)}
    time.sleep(settle)
    result |= memory(program.pid)
    engine = "WebEngine" in pathlib.Path(f"/proc/{program.pid}/maps").read_text()
    program.kill()
    program.wait()
    time.sleep(0.1)
    return result, engine


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=15)
    parser.add_argument("--settle", type=float, default=1.0, help="seconds until memory is read")
    parser.add_argument("--build", default="build/release")
    parser.add_argument("file", nargs="*")
    options = parser.parse_args()
    binaries = ROOT / options.build / "bin"
    commands = {"bare window": [str(binaries / "bare_window")], "kevra": [str(binaries / "kevra")] + options.file}
    results = {name: [] for name in commands}
    engine_loaded = False
    with tempfile.TemporaryDirectory() as folder:
        pathlib.Path(folder, "display").mkdir()
        screen = Screen(folder + "/display", 190)
        for round_number in range(options.rounds + 2):
            for name, command in commands.items():
                home = pathlib.Path(folder, name.replace(" ", "-"))
                home.mkdir(exist_ok=True)
                result, engine = run(command, screen, str(home), options.settle)
                engine_loaded = engine_loaded or engine
                if round_number >= 2:  # the first fill the caches and see the first start
                    results[name].append(result)
        screen.close()
    print(f"{'median':<14} {'ms':>8} {'CPU ms':>8} {'PSS MiB':>8} {'own MiB':>8}")
    medians = {name: {key: statistics.median(r[key] for r in rows) for key in rows[0]} for name, rows in results.items()}
    for name, row in medians.items():
        print(f"{name:<14} " + " ".join(f"{row[key]:8.1f}" for key in ("time", "cpu", "pss", "private")))
    ratios = [medians["kevra"][key] / medians["bare window"][key] for key in ("time", "cpu", "pss", "private")]
    print(f"{'ratio':<14} " + " ".join(f"{ratio:8.2f}" for ratio in ratios))
    print("web engine loaded:", "yes" if engine_loaded else "no")


if __name__ == "__main__":
    main()
