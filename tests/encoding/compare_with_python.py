#!/usr/bin/env python3
"""Texts in every character set, written by Python, opened and edited in one line by the editor's own code, and
read by Python again: no character differs, and no byte of a line that was not edited.

compare_with_python.py DRIVER [--texts N] [--seed S]

The texts of a set are made of the characters that Python's codec and the system's iconv both know and give the
same bytes; the number of characters in which the two differ is printed too.
"""
import argparse
import random
import re
import subprocess
import sys

# Label, Python's codec, and iconv's name: a second opinion on which characters are in the set.
SETS = [row.split() for row in """
ibm866 cp866 IBM866
iso-8859-2 iso8859_2 ISO-8859-2
iso-8859-3 iso8859_3 ISO-8859-3
iso-8859-4 iso8859_4 ISO-8859-4
iso-8859-5 iso8859_5 ISO-8859-5
iso-8859-6 iso8859_6 ISO-8859-6
iso-8859-7 iso8859_7 ISO-8859-7
iso-8859-8 iso8859_8 ISO-8859-8
iso-8859-8-i iso8859_8 ISO-8859-8
iso-8859-10 iso8859_10 ISO-8859-10
iso-8859-13 iso8859_13 ISO-8859-13
iso-8859-14 iso8859_14 ISO-8859-14
iso-8859-15 iso8859_15 ISO-8859-15
iso-8859-16 iso8859_16 ISO-8859-16
koi8-r koi8_r KOI8-R
koi8-u koi8_u KOI8-U
macintosh mac_roman MACINTOSH
windows-874 cp874 CP874
windows-1250 cp1250 CP1250
windows-1251 cp1251 CP1251
windows-1252 cp1252 CP1252
windows-1253 cp1253 CP1253
windows-1254 cp1254 CP1254
windows-1255 cp1255 CP1255
windows-1256 cp1256 CP1256
windows-1257 cp1257 CP1257
windows-1258 cp1258 CP1258
x-mac-cyrillic mac_cyrillic MAC-UK
x-user-defined - -
gbk gbk GBK
gb18030 gb18030 GB18030
big5 cp950 CP950
euc-jp euc_jp EUC-JP-MS
iso-2022-jp iso2022_jp ISO-2022-JP
shift_jis cp932 CP932
euc-kr cp949 UHC
utf-8 utf_8 UTF-8
utf-16le utf_16_le UTF-16LE
utf-16be utf_16_be UTF-16BE
utf-32le utf_32_le UTF-32LE
utf-32be utf_32_be UTF-32BE
""".strip().splitlines()]
MARKS = {"utf-8": "utf_8", "utf-16le": "utf_16_le", "utf-16be": "utf_16_be", "utf-32le": "utf_32_le",
         "utf-32be": "utf_32_be"}
ENDS = ["\r\n", "\n", "\r"]
# Python and iconv follow an older table than the Encoding Standard in these.
NOT_IN_THE_STANDARD = {
    "big5": "\u2593",
    "koi8-u": "\u255d\u256c",
    "euc-jp": "\xa2\xa3\xa6\xac\u2016\u2212\u301c",
    "iso-2022-jp": "\xa2\xa3\xac\u2016\u2212\u301c",
}


def from_euc_jp(data):
    """The standard writes some kanji in rows 89 to 92, which Python knows only as Shift_JIS."""
    text = ""
    for piece in re.findall(rb"[\0-\x7f]+|\x8f..|[\x80-\xff].", data, re.DOTALL):
        row, cell = piece[0] - 0xA1, piece[-1] - 0xA1
        trail = cell + (0x9F if row % 2 else 0x40 + (cell >= 0x3F))
        text += bytes([row // 2 + 0xC1, trail]).decode("cp932") if 88 <= row <= 91 else piece.decode("euc_jp")
    return text


class Codec:
    def __init__(self, label, name):
        self.label, self.name = label, name

    def encode(self, text):
        if self.name != "-":
            return text.encode(self.name)
        return bytes(ord(c) if ord(c) < 128 else ord(c) - 0xF700 for c in text)

    def decode(self, data):
        if self.name == "euc_jp":
            return from_euc_jp(data)
        if self.name != "-":
            return data.decode(self.name)
        return "".join(chr(b if b < 128 else b + 0xF700) for b in data)


def iconv(name, texts):
    """What iconv makes of each text, one per line."""
    done = subprocess.run(["iconv", "-c", "-f", "UTF-8", "-t", name], input="\n".join(texts).encode(),
                          stdout=subprocess.PIPE)
    return done.stdout


def repertoire(codec, name):
    """The characters Python writes and reads back; how many of them iconv writes otherwise."""
    if codec.name == "-":
        return [chr(c) for c in range(0xF780, 0xF800)], 0
    points = [c for c in range(0x80, 0xFFFE) if not 0xD800 <= c < 0xF900 and c not in (0x85, 0x2028, 0x2029, 0xFEFF)]
    if codec.label.startswith(("utf", "gb18")):
        points = random.sample(points, 3000) + [0x1F600 + i for i in range(64)] + [0x20000 + i for i in range(64)]
    known = []
    for point in points:
        try:
            if codec.encode(chr(point)).decode(codec.name) == chr(point):
                known.append(chr(point))
        except UnicodeError:
            pass
    # Line by line, so that a character iconv leaves out is an empty line.
    other = iconv(name, known)
    try:
        pieces = other.decode(codec.name).split("\n")
    except UnicodeError:
        pieces = [iconv_one(codec, name, c) for c in known]
    if len(pieces) != len(known):
        pieces = [iconv_one(codec, name, c) for c in known]
    agreed = [c for c, piece in zip(known, pieces)
              if c == piece and c not in NOT_IN_THE_STANDARD.get(codec.label, "")]
    return agreed, len(known) - len(agreed)


def iconv_one(codec, name, character):
    done = subprocess.run(["iconv", "-f", "UTF-8", "-t", name], input=character.encode(), stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL)
    try:
        return done.stdout.decode(codec.name)
    except UnicodeError:
        return ""


def word(characters):
    return "".join(random.choice(characters) if random.random() < 0.7 else random.choice("abcXYZ<>&=\"' 019-.;/")
                   for _ in range(random.randint(0, 12)))


def a_text(codec, characters, declared):
    """Lines with their ends."""
    end = random.choice(ENDS + [None])
    # No line is empty: a CR before and an LF after it would be one line end.
    lines = ["." + " ".join(word(characters) for _ in range(random.randint(0, 6)))
             for _ in range(random.randint(1, 12))]
    if declared:
        lines.insert(0, f'<meta http-equiv="Content-Type" content="text/html; charset={codec.label}">')
    return [line + (end or random.choice(ENDS)) for line in lines[:-1]] + lines[-1:]


def declares(codec):
    """A page cannot name a set without ASCII, and x-user-defined is read as another."""
    return not codec.label.startswith(("utf-16", "utf-32")) and codec.label != "x-user-defined"


def requests_of(codec, characters, number):
    for _ in range(number):
        declared = declares(codec) and random.random() < 0.5
        lines = a_text(codec, characters, declared)
        mark = b""
        if codec.label in MARKS and not declared:
            mark = "\ufeff".encode(MARKS[codec.label])
        at = random.randrange(1 if declared else 0, len(lines)) if len(lines) > declared else 0
        inserted = word(characters) or "x"
        label = "-" if declared or mark else codec.label
        yield label, mark, lines, at, inserted


def hexed(data):
    return data.hex() or "-"


def check(codec, request, answer):
    """What is wrong with one answer, or None."""
    _, mark, lines, at, inserted = request
    label, text, data = answer.split()
    text = bytes.fromhex(text if text != "-" else "").decode()
    data = bytes.fromhex(data if data != "-" else "")
    if label != codec.label:
        return f"saved as {label}: {lines!r} with {inserted!r}"
    shown = [line.rstrip("\r\n") for line in lines]
    if text.split("\r\n") != shown:
        return f"opened as {text!r}, is {shown!r}"
    before = mark + codec.encode("".join(lines[:at]))
    after = codec.encode("".join(lines[at + 1:]))
    if not data.startswith(before) or not data.endswith(after) or len(data) < len(before) + len(after):
        return "other lines have changed"
    edited = codec.decode(data[len(before):len(data) - len(after)])
    if edited != inserted + lines[at]:
        return f"edited line reads {edited!r}, is {inserted + lines[at]!r}"
    return None


def compare(driver, label, python, name, number):
    codec = Codec(label, python)
    characters, differing = repertoire(codec, name)
    requests = list(requests_of(codec, characters, number))
    lines = [" ".join([r[0], "page", str(r[3]), hexed(r[1] + codec.encode("".join(r[2]))), hexed(r[4].encode())])
             for r in requests]
    answers = subprocess.run([driver], input="\n".join(lines) + "\n", text=True, stdout=subprocess.PIPE,
                             check=True).stdout.splitlines()
    wrong = [problem for request, answer in zip(requests, answers) if (problem := check(codec, request, answer))]
    missing = len(requests) - len(answers)
    print(f"{label:16} {len(characters):6} characters, {differing:4} in which Python and iconv differ; "
          f"{len(requests)} texts, {len(wrong) + missing} wrong", flush=True)
    for problem in wrong[:3]:
        print("   ", problem[:300])
    return len(wrong) + missing


def main():
    options = argparse.ArgumentParser()
    options.add_argument("driver")
    options.add_argument("--texts", type=int, default=20)
    options.add_argument("--seed", type=int, default=20261121)
    chosen = options.parse_args()
    random.seed(chosen.seed)
    wrong = sum(compare(chosen.driver, *row, chosen.texts) for row in SETS)
    print(f"{len(SETS)} sets, {wrong} texts wrong")
    return wrong > 0


if __name__ == "__main__":
    sys.exit(main())
