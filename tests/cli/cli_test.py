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

PROGRAM = sys.argv.pop(1)

GOOD = b"x = 1\r\nMsgBox \"caf\xe9\"\r\n"
BAD = b"y = 1\nx=1\nz=2\nClose\n"


class Cli(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def file(self, name, data):
        path = pathlib.Path(self.folder.name, os.fsdecode(name))
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
        json.loads(self.run_cli("check", "--format=json", self.file(b"caf\xe9.vbs", BAD))[1])
        finding = json.loads(output)
        self.assertEqual(finding["findings"], [{"line": 2, "text": "Wrong spacing at equal sign - Line 2"}])

    def test_if_count_can_be_left_out(self):
        path = self.file("if.vbs", b"If a Then b")
        self.assertEqual(self.run_cli("check", path)[:2], (1, f"{path}: IF - 1   END IF - 0\n"))
        self.assertEqual(self.run_cli("check", "--no-if", path)[:2], (0, f"{path}: OK\n"))

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
        for option in ("--version", "--all", "--no-if", "--format", "--mode"):
            self.assertIn(option, everything)
        self.assertRegex(self.run_cli("--version")[1], r"^kevra-cli \d+\.\d+\n$")

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


if __name__ == "__main__":
    unittest.main()
