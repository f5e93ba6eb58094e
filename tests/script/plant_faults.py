#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plants one fault at a time in real scripts and counts what the analysis finds:
plant_faults.py KEVRA_CLI COUNT FOLDER

Each fault goes into a copy of a script that has no finding of its kind there already. Found is a new finding of an
expected code, on the right line one on the line of the fault or of what it belongs to. By hand; the folder should hold
scripts that work."""
import collections
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile

END = r"[ \t]*(?:'.*)?$"


def replaced(pattern, by):
    """A fault made from a line that matches: the line in its new form, or nothing."""
    return lambda line: re.sub(pattern, by, line, count=1, flags=re.I) if re.search(pattern, line, re.I) else None


def inserted(text):
    return lambda line: line + "\n" + text if re.match(r"^\s*(set )?\w+ = [^_]*$", line, re.I) else None


# What is done, which codes count, and how far from the changed line a finding is still on the right one: a block end
# that is missing shows at the end around it, which names the line of the block in its text.
ANYWHERE = -1
FAULTS = {
    "Then removed": (replaced(r"(\bIf\b.*)\bThen\b(" + END + ")", r"\1\2"), "KV10", 0),
    "End If removed": (replaced(r"^\s*End If" + END, ""), "KV10", ANYWHERE),
    "Next removed": (replaced(r"^\s*Next" + END, ""), "KV10", ANYWHERE),
    "Loop removed": (replaced(r"^\s*Loop\b.*$", ""), "KV10", ANYWHERE),
    "End Sub removed": (replaced(r"^\s*End (?:Sub|Function)" + END, ""), "KV10", ANYWHERE),
    "End Select removed": (replaced(r"^\s*End Select" + END, ""), "KV10", ANYWHERE),
    "If removed": (replaced(r"^\s*If\b.*\bThen" + END, ""), "KV10", ANYWHERE),
    "For removed": (replaced(r"^\s*For\b.*$", ""), "KV10", ANYWHERE),
    "Next i": (replaced(r"^(\s*Next)" + END, r"\1 i"), "KV1013", 0),
    "As Type": (replaced(r"^(\s*Dim \w+)" + END, r"\1 As String"), "KV1014", 0),
    "type suffix": (replaced(r"^(\s*\w+)( = )", r"\1$\2"), "KV1015", 0),
    "Optional": (replaced(r"^(\s*(?:Sub|Function) \w+\s*\()(\w)", r"\1Optional \2"), "KV1016", 0),
    "GoTo": (inserted("On Error GoTo handler"), "KV1017", 1),
    "declared twice": (replaced(r"^(\s*Dim (\w+))" + END, r"\1\nDim \2"), "KV1020", 1),
    "assignment to a number": (inserted("5 = kevraX"), "KV10", 1),
    "constant": (inserted("Const kevraX = Now"), "KV1022", 1),
    "Option Explicit": (inserted("Option Explicit"), "KV1023", 1),
    "string not closed": (replaced(r'"([^"]*)"([^"]*)$', r'"\1\2'), "KV10", 0),
    "parenthesis missing": (replaced(r"^([^'\"]*\([^'\"()]*)\)([^'\"()]*)$", r"\1\2"), "KV10", 0),
    "Sub in parentheses": (replaced(r"^(\s*WScript\.Echo|\s*MsgBox) .*$", r"\1(1, 2)"), "KV1018", 0),
    "Exit outside": (inserted("Exit Property"), "KV1019", 1),
    "arguments": (inserted("kevraX = Left(\"abc\")"), "KV1102", 1),
    "Set missing": (replaced(r"^(\s*)Set (\w+ = (?:\w+\.)?CreateObject\()", r"\1\2"), "KV2002", 0),
    "Set with a value": (replaced(r"^(\s*)(\w+ = (?:\"[^\"]*\"|\d+))" + END, r"\1Set \2"), "KV2003", 0),
    "member": (replaced(r"^([^'\"]*\bWScript\.)Echo\b", r"\1Eccho"), "KV2004", 0),
    "Null": (replaced(r"^(\s*If )\w+ = [\w\"]+( Then)", r"\1kevraX = Null\2"), "KV2006", 0),
    "And": (inserted("If Not kevraX Is Nothing And kevraX.Name = 1 Then kevraX = 1"), "KV2011", 1),
    "loop variable": (replaced(r"^(\s*For (\w+) = .*)$", r"\1\n\2 = \2 + 1"), "KV2010", 1),
    "unreachable": (inserted("WScript.Quit\nkevraX = 1"), "KV2008", 2),
    "twice the same": (inserted("If a = 1 Then\nElseIf a = 1 Then\nEnd If"), "KV2012", 2),
}


def findings(program, text):
    with tempfile.NamedTemporaryFile(suffix=".vbs") as file:
        file.write(text.encode("latin-1"))
        file.flush()
        done = subprocess.run([program, "analyse", "--format=json", file.name], capture_output=True, check=False)
        return json.loads(done.stdout)["findings"]


def plant(program, text, kind, chance):
    make, codes, distance = FAULTS[kind]
    lines = text.splitlines()
    places = [i for i, line in enumerate(lines) if not line.lstrip().startswith("'")
              and make(line) not in (None, line) and not line.rstrip().endswith("_")
              and (i == 0 or not lines[i - 1].rstrip().endswith("_"))]
    if not places:
        return None
    at = chance.choice(places)
    before = {(f["line"], f["code"]) for f in findings(program, text)}
    after = [f for f in findings(program, "\n".join(lines[:at] + make(lines[at]).split("\n") + lines[at + 1:]))
             if f["code"].startswith(codes) and (f["line"], f["code"]) not in before]
    on_line = [f for f in after if distance == ANYWHERE or 0 <= f["line"] - (at + 1) <= distance]
    return bool(after), bool(on_line), at + 1


def main():
    program, count, folder = sys.argv[1], int(sys.argv[2]), pathlib.Path(sys.argv[3])
    chance = random.Random(19)
    texts = {path: path.read_bytes().decode("latin-1") for path in sorted(folder.glob("*.vbs"))}
    texts = {path: text for path, text in texts.items() if not any(f["level"] == "error" for f in findings(program, text))}
    tally, misses = collections.Counter(), []
    for _ in range(50 * count):
        if tally["planted"] == count:
            break
        path, kind = chance.choice(list(texts)), chance.choice(list(FAULTS))
        outcome = plant(program, texts[path], kind, chance)
        if outcome is None:
            continue
        tally.update(planted=1, found=outcome[0], on_line=outcome[1])
        if not outcome[1]:
            misses.append(f"{path}:{outcome[2]}: {kind}: {'other line' if outcome[0] else 'not found'}")
    print("\n".join(misses))
    print(f"{tally['planted']} planted, {tally['found']} found, {tally['on_line']} of them on the right line")


if __name__ == "__main__":
    main()
