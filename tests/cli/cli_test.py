#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the built kevra-cli as a shell would: cli_test.py PROGRAM"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

PROGRAM = sys.argv.pop(1)

GOOD = b"x = 1\r\nMsgBox \"caf\xe9\"\r\n"
BAD = b"y = 1\nx=1\nz=2\nClose\n"


class Cli(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def file(self, name, data):
        path = pathlib.Path(self.folder.name, os.fsdecode(name))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        return str(path)

    def run_cli(self, *arguments, stdin=b""):
        done = subprocess.run([PROGRAM, *arguments], input=stdin, capture_output=True, check=False, timeout=60)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def test_check(self):
        good, bad = self.file("good.vbs", GOOD), self.file("bad.vbs", BAD)
        fault = "Wrong spacing at equal sign - Line 2"
        cases = [
            ([good], 0, f"{good}: OK\n"),
            ([good, bad], 1, f"{good}: OK\n{bad}: {fault}\n"),
            (["--all", bad], 1, f"{bad}: {fault}\n{bad}: Wrong spacing at equal sign - Line 3\n"
                                f"{bad}: Textstream, Drive or Folder Object required - Line 4\n"),
            (["--format=gcc", good, bad], 1, f"{bad}:2: warning: {fault}\n"),
        ]
        for arguments, code, output in cases:
            with self.subTest(arguments):
                self.assertEqual(self.run_cli("check", *arguments), (code, output, ""))

    def test_check_json(self):
        code, output, _ = self.run_cli("check", "--format=json", self.file('a"b.vbs', BAD))
        self.assertEqual(code, 1)
        finding = json.loads(output)
        self.assertEqual(finding["findings"], [{"line": 2, "text": "Wrong spacing at equal sign - Line 2"}])

    def test_json_names_every_file(self):
        for name in (b"caf\xe9 100%.vbs", b"\xff\xfea.vbs", "caf\u00e9\u20ac.vbs".encode(), b"a\rb\n.vbs"):
            path = self.file(name, BAD)
            for command in ("check", "analyse"):
                with self.subTest((command, name)):
                    reported = json.loads(self.run_cli(command, "--format=json", path)[1])
                    reported_bytes = (urllib.parse.unquote_to_bytes(reported["fileBytes"]) if "fileBytes" in reported
                                  else reported["file"].encode())
                    self.assertEqual(reported_bytes, os.fsencode(path))

    def test_too_little_memory(self):
        large = self.file("large.vbs", b"MsgBox a : b = c\n" * 4_000_000)
        for command in ("check", "colour", "analyse"):
            with self.subTest(command):
                ended = subprocess.run(
                    ["sh", "-c", 'ulimit -v 120000; exec "$0" "$@"', PROGRAM, command, large], capture_output=True)
                self.assertEqual(ended.returncode, 2)
                self.assertIn(b"memory", ended.stderr)

    def test_if_count_can_be_left_out(self):
        path = self.file("if.vbs", b"If a Then b")
        self.assertEqual(self.run_cli("check", path)[:2], (1, f"{path}: IF - 1   END IF - 0\n"))
        self.assertEqual(self.run_cli("check", "--no-if", path)[:2], (0, f"{path}: OK\n"))

    def test_language_server(self):
        def framed(*messages):
            return b"".join(b"Content-Length: %d\r\n\r\n%s" % (len(m), m) for m in messages)
        start = b'{"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":{}}}'
        end = [b'{"jsonrpc":"2.0","id":2,"method":"shutdown"}', b'{"jsonrpc":"2.0","method":"exit"}']
        for name, sent, code in [("in order", framed(start, *end), 0), ("the input ends", framed(start), 1),
                                 ("noise before", b"noise\r\n\r\n" + framed(b"{", start, *end), 0)]:
            with self.subTest(name):
                self.assertEqual(self.run_cli("lsp", stdin=sent)[0], code)
                self.assertIn('"serverInfo"', self.run_cli("lsp", stdin=sent)[1])

    def test_standard_input(self):
        self.assertEqual(self.run_cli("check", "-", stdin=BAD)[:2],
                         (1, "-: Wrong spacing at equal sign - Line 2\n"))

    def test_what_cannot_be_used(self):
        good = self.file("good.vbs", GOOD)
        code, output, error = self.run_cli("check", "/nowhere/x.vbs", good)
        self.assertEqual((code, output), (2, f"{good}: OK\n"))
        self.assertIn("/nowhere/x.vbs", error)
        for arguments in ([], ["check"], ["check", "--format=xml", good], ["check", self.folder.name], ["paint"]):
            with self.subTest(arguments):
                self.assertEqual(self.run_cli(*arguments)[0], 2)

    def test_help_lists_every_option(self):
        everything = self.run_cli("--help")[1]
        for option in ("--version", "--all", "--no-if", "--format", "--mode", "--encoding"):
            self.assertIn(option, everything)
        self.assertRegex(self.run_cli("--version")[1], r"^kevra-cli \d+\.\d+\n$")

    def test_encoding(self):
        page = self.file("p.htm", "<b>привет</b>".encode("koi8_r"))
        self.assertIn("привет", self.run_cli("colour", "--encoding", "KOI8-R", page)[1])
        self.assertEqual(self.run_cli("colour", "--encoding=klingon", page)[0], 2)

    def test_colour(self):
        page, script, plain = (self.file(name, data) for name, data in
                               [("p.htm", "é<b>x</b>\n".encode()), ("s.vbs", b"Dim x '--y\n"), ("t.txt", b"<b>")])
        self.assertEqual(self.run_cli("colour", "--format=runs", page)[1], "1 3 #0000FF\n5 4 #0000FF\n")
        self.assertEqual(self.run_cli("colour", "--format=runs", script)[1], "0 3 #0000FF\n6 4 #009700\n")
        self.assertEqual(self.run_cli("colour", "--format=runs", plain)[1], "")
        self.assertEqual(self.run_cli("colour", "--format=runs", "--mode=web", plain)[1], "0 3 #0000FF\n")
        self.assertEqual(self.run_cli("colour", "--format=ansi", script)[1],
                         "\033[38;2;0;0;255mDim\033[0m x \033[38;2;0;151;0m'--y\033[0m\n")
        html = self.run_cli("colour", page)[1]
        self.assertIn('é<span style="color: #0000FF">&lt;b&gt;</span>x', html)

    FAULTY = b"Option Explicit\r\nDim \xe9t\xe9, x\r\n\xe9t\xe9 = 1 : Set x = \xe9t\xe9 : tot = 1\r\n"

    def test_analyse(self):
        good = self.file("good.vbs", b"Option Explicit\nMsgBox 1\n")
        bad = self.file("sub/bad.vbs", self.FAULTY)
        page = self.file("sub/a page.hta", b"<p>\n<script language=VBScript>x = Left(1)</script>")
        self.file("sub/.git/hidden.vbs", b"If")
        self.file("sub/notes.txt", b"If")
        error = f"{bad}:3:25: error KV1101: 'tot' is not declared, which Option Explicit asks for.\n"
        warning = f"{bad}:3:11: warning KV2003: Set assigns objects, and '\u00e9t\u00e9' is none.\n"
        call = f"{page}:2:31: error KV1102: 'Left' takes 2 arguments and is given 1.\n"
        cases = [
            ([good], 0, ""),
            ([bad], 1, warning + error),
            (["--level=error", good, os.path.dirname(bad)], 1, call + error),
            (["--format=gcc", page], 1, call.replace("error KV1102:", "error:").replace("1.\n", "1. [KV1102]\n")),
        ]
        for arguments, code, output in cases:
            with self.subTest(arguments):
                self.assertEqual(self.run_cli("analyse", *arguments), (code, output, ""))
        self.assertEqual(self.run_cli("analyse", "/nowhere/x.vbs", bad)[:2], (2, warning + error))
        self.assertEqual(self.run_cli("analyse", "-", stdin=b"If a\n")[0], 1)

    def test_fix_keeps_everything_else(self):
        text = "Option Explicit\nDim caf\u00e9, d\ncaf\u00e9 = 1\n  d = CreateObject(\"Scripting.Dictionary\")\nMsgBox d.Count & caf\u00e9\ncaf\u00e9 = \u00a7\n"
        for encoding in "cp1252", "utf-8", "utf-16":
            with self.subTest(encoding):
                path = self.file("fix.vbs", text.encode(encoding))
                os.chmod(path, 0o640)
                code, output, reported = self.run_cli("analyse", "--fix", path)
                self.assertEqual((code, reported), (1, f"{path}:4: fixed KV2002: Insert Set\n"))
                self.assertIn(":6:8: error KV1101", output)
                self.assertEqual(pathlib.Path(path).read_bytes(), text.replace("d = C", "Set d = C").encode(encoding))
                self.assertEqual(os.stat(path).st_mode & 0o777, 0o640)
                stamp = os.stat(path).st_mtime_ns
                self.run_cli("analyse", "--fix", path)
                self.assertEqual(os.stat(path).st_mtime_ns, stamp, "nothing to fix, nothing written")
        folder = self.file("folder.vbs/x", b"")
        self.assertEqual(self.run_cli("analyse", "--fix", "-", stdin=b"x = 1")[0], 2)
        self.assertEqual(self.run_cli("analyse", "--fix", os.path.dirname(folder))[0], 0)

    def test_analyse_pages(self):
        """Fifty dead links among as many live ones, in a page made of them."""
        folder = os.path.dirname(self.file("site/0.png", b"GIF89a"))
        for number in range(1, 50):
            self.file(f"site/{number}.png", b"GIF89a")
        links = [(f"{number}.png", f"{number}.PNG") for number in range(50)]
        lines = [f'<a href="{live}"></a><a href="{dead}"></a>' for live, dead in links]
        page = self.file("site/page.html", "\n".join(lines).encode())
        code, output, _ = self.run_cli("analyse", folder)
        wanted = "".join(f'{page}:{line}:{len(live) + 25}: warning KV4001: The file "{dead}" does not exist.\n'
                         for line, (live, dead) in enumerate(links, 1))
        self.assertEqual((code, output), (1, wanted))
        page = self.file("site/page.html", b'<img src="/1.png" width="1"><a href="/x"></a>')
        self.assertEqual(self.run_cli("analyse", "--fix", "--site", folder, page)[1].count("KV4001"), 1)
        with open(page, "rb") as file:
            self.assertIn(b'width="1" alt="">', file.read())

    def test_analyse_for_programs(self):
        bad = self.file("b d.vbs", self.FAULTY)
        first = json.loads(self.run_cli("analyse", "--format=json", bad)[1])["findings"][0]
        self.assertEqual((first["line"], first["column"], first["endColumn"], first["code"]), (3, 11, 22, "KV2003"))
        self.assertEqual(first["fixes"][0]["edits"],
                         [{"line": 3, "column": 11, "endLine": 3, "endColumn": 15, "insert": ""}])
        code, output, _ = self.run_cli("analyse", "--format=sarif", bad, "/nowhere/x.vbs")
        run = json.loads(output)["runs"][0]
        result = run["results"][1]
        self.assertEqual((code, result["ruleId"], result["level"]), (2, "KV1101", "error"))
        self.assertEqual(run["tool"]["driver"]["rules"][result["ruleIndex"]]["id"], "KV1101")
        self.assertTrue(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"].endswith("/b%20d.vbs"))

    def test_explain(self):
        code, output, _ = self.run_cli("explain", "kv2003")
        self.assertEqual((code, output.split("\n")[0]), (0, "KV2003, warning: Value assigned with Set"))
        self.assertLess(max(map(len, output.split("\n"))), 80)
        self.assertEqual(self.run_cli("explain", "KV9999")[0], 2)


if __name__ == "__main__":
    unittest.main()
