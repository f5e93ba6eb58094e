#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Looks at how the source is divided into libraries.

    structure.py BUILD          no circles between folders, every include is linked, and the walls hold
    structure.py BUILD --share  how much of the product is in libraries that cannot include Qt
"""
import argparse
import json
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = ROOT / "src"


class Library:
    def __init__(self, row):
        self.name, self.folder, headers, sources, links = row.split("|")
        self.files = [SOURCE / self.folder / name for name in f"{headers} {sources}".split()
                      if name.endswith((".h", ".cpp"))]
        self.links = {link for link in links.split() if link.startswith("kevra_")}


def circles(libraries):
    """Each pair of folders that need each other, on whatever way."""
    needs = {}
    for library in libraries.values():
        needs.setdefault(library.folder, set()).update(
            libraries[link].folder for link in library.links if libraries[link].folder != library.folder)
    reach = {folder: set(direct) for folder, direct in needs.items()}
    for _ in reach:
        for folder in reach:
            reach[folder] |= {far for near in reach[folder] for far in reach[near]}
    return [f"{a} and {b} need each other" for a in reach for b in reach[a] if a < b and a in reach[b]]


def unlinked_includes(libraries):
    owner = {str(file.relative_to(SOURCE)): library.name for library in libraries.values() for file in library.files}
    for library in libraries.values():
        for file in library.files:
            for header in re.findall(r'^#include "([^"]+/[^"]+)"', file.read_text(), re.M):
                if header in owner and owner[header] not in library.links | {library.name}:
                    yield f"{file.relative_to(ROOT)} includes {header} of {owner[header]}, which its library does not link"


def compiles(command, text):
    with tempfile.NamedTemporaryFile(suffix=".cpp", mode="w") as probe:
        probe.write(text)
        probe.flush()
        arguments = shlex.split(command)
        arguments = arguments[arguments.index(next(a for a in arguments if a.endswith("++") or "++-" in a)):]
        for flag in ("-o", "-c", "-MF", "-MT"):
            if flag in arguments:
                at = arguments.index(flag)
                del arguments[at:at + 2]
        return subprocess.run([*arguments, "-fsyntax-only", probe.name], capture_output=True, check=False).returncode == 0


def broken_walls(libraries, build):
    """Each folder without Qt is shown a header of Qt and one that it does not link; its own must compile."""
    commands = {entry["file"]: entry["command"] for entry in json.loads((build / "compile_commands.json").read_text())}
    for library in libraries.values():
        source = next((str(file) for file in library.files if str(file) in commands), None)
        if not source or library.name.endswith("_qt"):
            continue
        own = next(file for file in library.files if file.suffix == ".h").relative_to(SOURCE)
        if not compiles(commands[source], f'#include "{own}"\n'):
            yield f"{library.name}: {own} does not compile by itself"
        for foreign in ("<QtCore/QString>", '"app/main_window.h"', '"cli/check_report.h"'):
            if library.folder not in foreign and compiles(commands[source], f"#include {foreign}\n"):
                yield f"{library.name} can include {foreign}"


def lines(files):
    return sum(len(file.read_text().splitlines()) for file in files)


def share(libraries):
    free = lines({file for library in libraries.values() if not library.name.endswith("_qt") for file in library.files})
    return free, lines(file for file in SOURCE.rglob("*") if file.suffix in (".h", ".cpp"))


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--share", action="store_true")
    arguments = arguments.parse_args()
    rows = (arguments.build / "structure.txt").read_text().splitlines()
    libraries = {library.name: library for library in map(Library, rows)}
    if arguments.share:
        free, total = share(libraries)
        print(f"{free} of {total} lines, {100 * free / total:.1f} %, in libraries that cannot include Qt")
        return
    faults = [*circles(libraries), *unlinked_includes(libraries), *broken_walls(libraries, arguments.build)]
    print("\n".join(faults) or f"{len(libraries)} libraries, no circle, every wall holds")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
