# SPDX-License-Identifier: GPL-3.0-or-later
"""Failing system calls and full disks."""

import errno
import itertools
import os
import subprocess

from editor import UNPRIVILEGED, Editor
from result import Result, content, put, strays

OLD = b"<p>old\n" * 1000
CALLS = {"openat": errno.EIO, "pwrite": errno.ENOSPC, "fsync": errno.EIO, "fchmod": errno.EPERM,
         "fchown": errno.EPERM, "ftruncate": errno.EIO, "linkat": errno.EIO, "renameat": errno.EACCES,
         "rename": errno.EIO, "unlink": errno.EPERM, "write": errno.ENOSPC}


def users():
    return (None, UNPRIVILEGED) if os.geteuid() == 0 else (None,)


def failing_calls(workshop, seed, long):
    result = Result("each nth system call of Save fails, as " + (
        "root and as an unprivileged user" if len(users()) > 1 else "this user"))
    for user in users():
        for kind in ("plain", "hard link", "Save As"):
            home = workshop.folder(user)
            path = put(os.path.join(home, "page.htm"), OLD, user)
            known = ["page.htm", "second.htm", "new.htm"]
            if kind == "hard link":
                os.link(path, os.path.join(home, "second.htm"))
            with Editor(workshop, home, [path], user) as editor:
                disk = OLD
                for call, error in CALLS.items():
                    if kind == "Save As" and not long and call not in ("pwrite", "linkat", "renameat"):
                        continue
                    at = 1
                    while True:
                        editor.do("type", "x")
                        wanted = editor.text().replace(b"\r\n", b"\n")
                        target = path
                        if kind == "Save As":
                            target = os.path.join(home, "new.htm")
                            disk = content(target)
                            editor.do("trigger", "msaveas")
                            editor.expect("Save As")
                        editor.do("fault", call=call, at=at, errno=error)
                        if kind == "Save As":
                            editor.do("choose", target)
                            editor.until(lambda: editor.box() != "Save As", "the dialog's end")
                            if editor.box():
                                editor.do("answer", "OK")
                        else:
                            editor.do("trigger", "msaveplain")
                        editor.idle()
                        hits = editor.ask("fault")["hits"]
                        now = content(target)
                        where = f"{kind}, {call} {at}, user {user}"
                        result.check(now in (disk, wanted), f"{where}: neither old nor new")
                        result.check(not strays(home, known), f"{where}: stray {strays(home, known)}")
                        result.check(editor.text().replace(b"\r\n", b"\n") == wanted, f"{where}: text changed")
                        disk = now
                        if hits < at:
                            result.check(now == wanted, f"{where}: not saved though nothing failed")
                            break
                        at += 1
    return result


def full_disk(workshop, seed, long):
    result = Result("full disk: eleven sizes by six fill levels, plain and in place")
    sizes = (0, 1, 100, 4095, 4096, 4097, 16383, 16384, 65536, 200000, 500000)
    levels = (0, 1, 4096, 16384, 65536, 262144)
    disk = os.path.join(workshop.root, "disk")
    os.mkdir(disk)
    made = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m,mode=755", "tmpfs", disk], capture_output=True,
                          check=False)
    if made.returncode != 0:
        return result.skipped("no right to mount a small disk")
    try:
        home = workshop.folder()
        with Editor(workshop, home) as editor:
            for linked, size, free in itertools.product((False, True), sizes, levels):
                try_full(editor, disk, size, free, linked, result)
    finally:
        subprocess.run(["umount", disk], check=True)
    return result


def try_full(editor, disk, size, free, linked, result):
    old = b"old bytes\n"
    path = put(os.path.join(disk, "page.txt"), old)
    if linked:
        os.link(path, os.path.join(disk, "second.txt"))
    where = f"{size} bytes, {free} free, {'linked' if linked else 'plain'}"
    # The text comes from elsewhere and replaces the file on the full disk.
    editor.open(put(os.path.join(editor.home, "source.txt"), b"n" * size))
    editor.do("type", "N")
    wanted = editor.text()
    filler = os.path.join(disk, "filler")
    fill(filler, free)
    editor.save_as(path, "OK")
    now = content(path)
    result.check(now in (old, wanted), f"{where}: {len(now or b'')} bytes, neither old nor new")
    result.check(strays(disk, ["page.txt", "second.txt", "filler"]) == [], f"{where}: stray file")
    result.check(editor.text() == wanted, f"{where}: the text in the editor changed")
    os.remove(filler)
    if now == old:
        editor.save_as(path, "OK")
        result.check(content(path) == wanted, f"{where}: not saved after room was made")
    for name in os.listdir(disk):
        os.remove(os.path.join(disk, name))


def fill(filler, free):
    """Takes all the room but `free` bytes, in whole blocks."""
    room = os.statvfs(os.path.dirname(filler))
    size = max(0, room.f_bavail * room.f_frsize - free)
    with open(filler, "wb") as file:
        file.write(b"f" * size)


CASES = {"failing-calls": failing_calls, "full-disk": full_disk}
