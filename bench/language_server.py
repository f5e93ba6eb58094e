#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Milliseconds that kevra-cli lsp takes: language_server.py PROGRAM [SCRIPT.vbs...]

The start with the answer to initialize; a change of one character with its diagnostics; hover and formatting, in texts
made of the given scripts (or of a small one) again and again. CPU time of all threads; on an idle machine the client
waits as long.
"""
import glob
import json
import statistics
import subprocess
import sys

SAMPLE = """Class Account{n}
    Private m_total{n}
    Public Sub Add{n}(amount)
        If amount > 0 And m_total{n} < 1000 Then
            m_total{n} = m_total{n} + amount
        Else
            WScript.Echo "nothing to add: " & amount
        End If
    End Sub
End Class
Function Read{n}(path)
    Dim fso, file
    Set fso = CreateObject("Scripting.FileSystemObject")
    If fso.FileExists(path) Then
        Set file = fso.OpenTextFile(path, 1)
        Read{n} = file.ReadAll
        file.Close
    End If
End Function
"""
URI = "file:///measured.vbs"


class Client:
    def __init__(self, program):
        self.process = subprocess.Popen([program, "lsp"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.last_id = 0
        self.version = 1

    def send(self, **message):
        content = json.dumps({"jsonrpc": "2.0", **message}).encode()
        self.process.stdin.write(b"Content-Length: %d\r\n\r\n" % len(content) + content)
        self.process.stdin.flush()

    def receive(self, wanted):
        while True:
            length = int(self.process.stdout.readline().split(b":")[1])
            self.process.stdout.readline()
            content = self.process.stdout.read(length)
            if wanted in content[-200:] or wanted in content[:200]:
                return content

    def request(self, method, **params):
        self.last_id += 1
        self.send(id=self.last_id, method=method, params=params)
        return self.receive(b'"id":%d,' % self.last_id)

    def change(self, line, character, text):
        self.version += 1
        place = {"line": line, "character": character}
        self.send(method="textDocument/didChange", params={
            "textDocument": {"uri": URI, "version": self.version},
            "contentChanges": [{"range": {"start": place, "end": place}, "text": text}]})
        self.receive(b"publishDiagnostics")


def cpu(process):
    """Milliseconds so far."""
    return sum(int(open(task).read().split()[0]) for task in glob.glob(f"/proc/{process.pid}/task/*/schedstat")) / 1e6


def milliseconds(client, action, times):
    taken = []
    for _ in range(times):
        before = cpu(client.process)
        action()
        taken.append(cpu(client.process) - before)
    return f"{min(taken):8.1f} {statistics.median(taken):8.1f}"


def start(program, times):
    taken = []
    for _ in range(times):
        client = Client(program)
        client.request("initialize", capabilities={})
        taken.append(cpu(client.process))
        client.process.kill()
        client.process.wait()
    return f"{min(taken):8.1f} {statistics.median(taken):8.1f}"


def measure(program, text):
    client = Client(program)
    client.request("initialize", capabilities={})
    client.send(method="textDocument/didOpen", params={
        "textDocument": {"uri": URI, "languageId": "vbscript", "version": 1, "text": text}})
    client.receive(b"publishDiagnostics")
    middle = text.count("\n") // 2
    document = {"textDocument": {"uri": URI}}
    print("  change to diagnostics", milliseconds(client, lambda: client.change(middle, 0, "'"), 15))
    print("  hover                ", milliseconds(client, lambda: client.request(
        "textDocument/hover", **document, position={"line": middle, "character": 9}), 15))
    print("  formatting           ", milliseconds(client, lambda: client.request(
        "textDocument/formatting", **document, options={"tabSize": 4, "insertSpaces": True}), 5))
    client.process.kill()
    client.process.wait()


def main():
    program = sys.argv[1]
    given = "".join(open(path, encoding="latin-1").read() for path in sys.argv[2:])
    print("                            least   median, ms")
    print("start                  ", start(program, 20))
    for size in (50_000, 1_000_000):
        text = ""
        for n in range(size):
            if len(text) >= size:
                break
            text += given or SAMPLE.replace("{n}", str(n))
        print(f"{len(text)} bytes")
        measure(program, text)


main()
