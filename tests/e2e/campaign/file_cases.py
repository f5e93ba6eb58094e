# SPDX-License-Identifier: GPL-3.0-or-later
"""Odd files, any bytes, several programs at once."""

import os
import random
import shutil
import socket
import stat
import subprocess
import time

from editor import UNPRIVILEGED, Editor
from result import Result, content, put, strays

OLD = b"<p>old\n"
NEW = b"new " + OLD


def saved(workshop, home, path, user=None):
    """Opens, edits and saves; what the file holds then."""
    with Editor(workshop, home, [path], user) as editor:
        if editor.text() == b"":
            return None
        editor.do("type", "new ")
        editor.save()
    return content(path)


def refused_places(workshop, seed, long):
    result = Result("read-only folder, file and mount, immutable file, folder removed or replaced")
    user = UNPRIVILEGED if os.geteuid() == 0 else None

    def check(name, prepare, undo=lambda home: None, allowed=(OLD,), as_user=user):
        home = workshop.folder(as_user)
        os.mkdir(os.path.join(home, "site"))
        path = put(os.path.join(home, "site", "page.htm"), OLD, as_user)
        if as_user is not None:
            os.chown(os.path.join(home, "site"), as_user, as_user)
        with Editor(workshop, home, [path], as_user) as editor:
            editor.do("type", "new ")
            if prepare(home) is False:
                result.what += f" [{name} SKIPPED: not possible here]"
                return
            try:
                editor.save()
                result.check(content(path) in allowed, f"{name}: {content(path)!r}")
                result.check(editor.text() == b"new <p>old\r\n", f"{name}: the text changed")
            finally:
                undo(home)
            if os.path.isdir(os.path.dirname(path)):
                result.check(not strays(os.path.dirname(path), ["page.htm"]), f"{name}: stray file")

    def site(home):
        return os.path.join(home, "site")

    def mode(part, bits):
        return lambda home: os.chmod(os.path.join(site(home), part), bits)

    def run(*command):
        return subprocess.run(command, capture_output=True, check=False).returncode == 0

    check("read-only folder", mode("", 0o555), mode("", 0o755), allowed=(NEW,))
    check("read-only file", mode("page.htm", 0o444))
    check("read-only folder and file", lambda home: (mode("page.htm", 0o444)(home), mode("", 0o555)(home)),
          mode("", 0o755))
    check("immutable file", lambda home: run("chattr", "+i", site(home) + "/page.htm"),
          lambda home: run("chattr", "-i", site(home) + "/page.htm"), as_user=None)
    check("read-only mount", lambda home: run("mount", "--bind", site(home), site(home))
          and run("mount", "-o", "remount,bind,ro", site(home)), lambda home: run("umount", site(home)), as_user=None)
    check("folder removed", lambda home: shutil.rmtree(site(home)), allowed=(None,))
    check("folder became a file", lambda home: (shutil.rmtree(site(home)), put(site(home), b"x")) and None,
          allowed=(None,))
    return result


def odd_files(workshop, seed, long):
    result = Result("FIFO, socket, device, folder, links, long path: refused or ignored, untouched")
    makers = {
        "FIFO": os.mkfifo,
        "folder": os.mkdir,
        "socket": lambda path: socket.socket(socket.AF_UNIX).bind(path),
        "dangling link": lambda path: os.symlink("nowhere", path),
        "circular link": lambda path: os.symlink(path, path),
        "device": lambda path: os.mknod(path, stat.S_IFCHR | 0o666, os.makedev(1, 7)),
    }
    for name, make in makers.items():
        home = workshop.folder()
        path = os.path.join(home, "odd.htm")
        try:
            make(path)
        except PermissionError:
            result.what += f" [{name} SKIPPED: no right to make one]"
            continue
        before = os.lstat(path)
        with Editor(workshop, home, [path]) as editor:
            result.check(editor.text() == b"", f"{name}: opened")
            editor.do("type", "new")
            editor.do("trigger", "msaveas")
            editor.expect("Save As")
            editor.do("choose", path)
            editor.until(lambda: True, "")
            time.sleep(0.05)
            while editor.box():
                editor.do("choose", "") if editor.box() == "Save As" else editor.do("answer", "OK")
                time.sleep(0.02)
            after = os.lstat(path)
            result.check((before.st_ino, before.st_mode) == (after.st_ino, after.st_mode), f"{name}: replaced")
            result.check(editor.text() == b"new", f"{name}: the text changed")
    home = workshop.folder()
    with Editor(workshop, home, ["/" + "x/" * 2100 + "page.htm"]) as editor:
        result.check(editor.text() == b"", "path over 4,096 bytes")
    return result


def odd_names(workshop, seed, long):
    result = Result("names with newlines, quotes, dash, backslash, bytes that are no UTF-8: opened, saved, previewed")
    for name in (b"back\\slash.htm", b"a\\folder/page.htm", b"two\nlines.htm", b"it's \"quoted\".htm", b"-rf.htm", b" blank .htm", b"caf\xe9.htm",
                 "Größe→.htm".encode(), b"100%d.htm", b"a;b&c.htm"):
        home = workshop.folder()
        path = os.path.join(os.fsencode(home), name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        put(path, OLD)
        result.check(saved(workshop, home, path) == NEW, f"{name!r}: {content(path)!r}")
        if b"\\" in name:
            with Editor(workshop, home, [path]) as editor:
                editor.preview()
                editor.back()
    return result


def kept_properties(workshop, seed, long):
    result = Result("links, mode, owner, group and extended attributes are kept")
    root = os.geteuid() == 0
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), OLD)
    os.symlink("page.htm", os.path.join(home, "link.htm"))
    attributes = {}
    for bits in (0o600, 0o640, 0o664, 0o755, 0o644):
        os.chmod(path, bits)
        if root:
            os.chown(path, 1234, 5678)
        try:
            os.setxattr(path, "user.note", b"kept")
            attributes = {"user.note": b"kept"}
        except OSError:
            pass
        put_back = put(path, OLD)
        assert put_back == path
        before = os.stat(path)
        result.check(saved(workshop, home, os.path.join(home, "link.htm")) == NEW, f"mode {bits:o}: not saved")
        after = os.stat(path)
        result.check((before.st_mode, before.st_uid, before.st_gid) == (after.st_mode, after.st_uid, after.st_gid),
                     f"mode {bits:o}: mode or owner changed")
        result.check(os.path.islink(os.path.join(home, "link.htm")), "the symbolic link became a file")
        result.check({name: os.getxattr(path, name) for name in os.listxattr(path)} == attributes, "attributes")
    if root:
        os.chown(path, 0, 4321)
        put(path, OLD)
        saved(workshop, home, path)
        result.check(os.stat(path).st_gid == 4321, "the group changed")
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), OLD)
    os.link(path, os.path.join(home, "second.htm"))
    result.check(saved(workshop, home, path) == NEW, "hard link: not saved")
    result.check(content(os.path.join(home, "second.htm")) == NEW, "hard link: cut off")
    return result


def generated(chance):
    kind = chance.randrange(8)
    data = (b"\xef\xbb\xbf", b"\xff\xfe", b"\xfe\xff")[kind] if kind < 3 else b""
    words = ("<P>", "é", "€", "😀", "Dim x = 1", "\0", "same", "<meta charset=utf-8>", "<meta charset=iso-8859-15>")
    encoding = {1: "utf-16-le", 2: "utf-16-be", 3: "cp1252"}.get(kind, "utf-8")
    for _ in range(chance.randrange(80)):
        what = chance.randrange(10)
        if what < 5:
            data += chance.choice(words).encode(encoding, "ignore")
        elif what < 8:
            data += chance.choice(("\n", "\r", "\r\n") if kind < 6 else ("\n",)).encode(encoding)
        else:
            data += bytes([chance.randrange(256)])
    return data


def byte_identical(workshop, seed, long):
    result = Result("generated files opened and saved through the program: the same bytes, written anew")
    chance = random.Random(seed)
    home = workshop.folder()
    with Editor(workshop, home) as editor:
        for number in range(10000 if long else 2000):
            data = generated(chance)
            path = put(os.path.join(home, "page" + chance.choice((".htm", ".txt", ".vbs", ".css", ".wsf"))), data)
            inode = os.stat(path).st_ino
            editor.open(path)
            if editor.text() == b"":
                result.check(not data.lstrip(b"\xef\xbb\xbf\xff\xfe"), f"{number}: opened as nothing")
                continue
            editor.save()
            written = os.stat(path).st_ino != inode
            result.check(content(path) == data and written, f"{number}: {data[:60]!r}")
    return result


def at_once(workshop, seed, long):
    result = Result("two and five programs on one file: always one of their texts, whole; own autosave files")
    for together in (2, 5):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), OLD)
        editors = [Editor(workshop, home, [path]) for _ in range(together)]
        texts = set()
        for number in range(60 if long else 15):
            for index, editor in enumerate(editors):
                editor.do("type", f"{index}:{number} ")
                texts.add(editor.text().replace(b"\r\n", b"\n"))
            for editor in editors:
                editor.do("trigger", "msaveplain")
            for _ in range(10):
                result.check(content(path) in texts | {OLD}, "a mixture")
            for editor in editors:
                editor.idle()
        result.check(not strays(home, ["page.htm"]), f"stray {strays(home, ['page.htm'])}")
        locks = [name for name in os.listdir(editors[0].state("recovery")) if name.endswith(".lock")]
        result.check(len(locks) == together, f"{len(locks)} numbers for {together} programs")
        # A living program's text is not offered to one that starts now.
        editors[0].do("type", "unsaved")
        editors[0].until(lambda: os.path.exists(editors[0].state("recovery", "1.record")), "the record")
        with Editor(workshop, home, [path]) as late:
            result.check(late.box() == "", f"offered: {late.box()}")
        for editor in editors:
            editor.kill()
    return result


def previews_at_once(workshop, seed, long):
    result = Result("two and five programs previewing one folder: always one of their pages, at last what was there")
    chance = random.Random(seed)
    for together in (2, 5) * (10 if long else 1):
        home = workshop.folder()
        page = put(os.path.join(home, "kevratemp.html"), b"theirs")
        texts = [b"<p>%d" % number for number in range(together)]
        editors = [Editor(workshop, home, [put(os.path.join(home, f"{number}.htm"), text)])
                   for number, text in enumerate(texts)]
        for editor in editors:
            editor.do("press", "bview")
        for editor in editors:
            editor.until(lambda: editor.ask("previewed")["ok"], "the page")
            result.check(content(page) in texts, f"{content(page)!r} is nobody's page")
        chance.shuffle(editors)
        # The first is killed; another start has to clear up after it once the rest have gone back.
        for number, editor in enumerate(editors):
            editor.kill() if number == 0 else editor.back()
        with Editor(workshop, home):
            result.check(content(page) == b"theirs", f"{content(page)!r} stays")
        for editor in editors[1:]:
            editor.kill()
        known = [f"{number}.htm" for number in range(together)] + ["kevratemp.html"]
        result.check(not strays(home, known), f"stray {strays(home, known)}")
    return result


CASES = {"refused-places": refused_places, "odd-files": odd_files, "odd-names": odd_names,
         "kept-properties": kept_properties, "byte-identical": byte_identical, "at-once": at_once, "previews-at-once": previews_at_once}
