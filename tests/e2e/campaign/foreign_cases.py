# SPDX-License-Identifier: GPL-3.0-or-later
"""Other programs that write the document's file: the bar, the versions, a write at every moment of a save."""

import errno
import glob
import os
import resource

from editor import Editor, Gone
from result import Result, content, put, strays

OLD = b"<p>old\n"
MINE = b"mine " + OLD
THEIRS = b"<p>theirs\n"
CHANGED = "page.htm has been changed by another program."
GONE = "page.htm is no longer there"
REPLACED = "Another program had changed page.htm."
WITH_RELOAD = "[settings]\nif1=no\nautoreload=yes\n"


def shown(text):
    return text.replace(b"\n", b"\r\n")


def kept(editor):
    return [content(path) for path in glob.glob(editor.state("backups", "2*"))]


def rename_over(path):
    os.replace(put(path + ".new", THEIRS), path)


def rewrite(path):
    put(path, THEIRS)


def same_size_and_time(path):
    """Only the content tells, and the time of change that nobody can set."""
    before = os.stat(path)
    put(path, THEIRS[:len(OLD) - 1] + b"\n")
    os.utime(path, ns=(before.st_atime_ns, before.st_mtime_ns))


def remove(path):
    os.remove(path)


def move_away(path):
    os.rename(path, path + ".moved")


WRITERS = {"renames over": (rename_over, CHANGED), "rewrites": (rewrite, CHANGED),
           "keeps size and time": (same_size_and_time, CHANGED), "removes": (remove, GONE),
           "moves away": (move_away, GONE)}


def disk_bar(workshop, seed, long):
    result = Result("another program writes, replaces, moves or removes the file: the bar and each of its branches")
    for name, (write, says) in WRITERS.items():
        for edited in (False, True):
            for branch in ("reload", "keep", "save", "putback", "leave") if says == CHANGED else ("keep", "save"):
                home = workshop.folder()
                path = put(os.path.join(home, "page.htm"), OLD)
                where = f"{name}, {'edited' if edited else 'unedited'}, {branch}"
                with Editor(workshop, home, [path]) as editor:
                    if edited:
                        editor.do("type", "mine ")
                    write(path)
                    try:
                        editor.until(lambda: editor.bar().startswith(says), "the bar")
                        take_branch(editor, path, MINE if edited else OLD, branch, where, result)
                    except TimeoutError as error:
                        result.check(False, f"{where}: {error}, bar {editor.bar()!r}")
    for name, (write, _) in list(WRITERS.items())[:2]:
        reload_by_itself(workshop, name, write, result)
    return result


def take_branch(editor, path, mine, branch, where, result):
    theirs = content(path)
    if branch == "reload":
        editor.do("press", "bdiskreload")
        editor.until(lambda: editor.text() == shown(theirs) and not editor.bar(), "their text")
        result.check(mine == OLD or mine in kept(editor), f"{where}: mine is not kept")
    elif branch == "keep":
        editor.do("press", "bdiskkeep")
        editor.until(lambda: not editor.bar(), "the bar's end")
        result.check((editor.text(), content(path)) == (shown(mine), theirs), f"{where}: something was touched")
    elif branch == "leave":
        editor.do("press", "bdiskcompare")
        editor.until(lambda: editor.ask("shown", "fcompare")["ok"], "the comparison")
        result.check((editor.text(), content(path)) == (shown(mine), theirs), f"{where}: something was touched")
    else:
        editor.save()
        result.check(content(path) == mine, f"{where}: saved {content(path)!r}")
        result.check(theirs is None or theirs in kept(editor), f"{where}: theirs is not kept")
        if theirs is None:
            return editor.until(lambda: not editor.bar(), "the bar's end")
        editor.until(lambda: editor.bar().startswith(REPLACED), "the bar after the save")
        if branch == "putback":
            editor.do("press", "bdiskputback")
            editor.until(lambda: content(path) == theirs and editor.bar() == CHANGED, "their version")
            result.check(editor.text() == shown(mine), f"{where}: the window lost its text")


def reload_by_itself(workshop, name, write, result):
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), OLD)
    with Editor(workshop, home, [path], settings=WITH_RELOAD) as editor:
        os.utime(path)  # the same bytes: nothing to tell
        write(path)
        editor.until(lambda: editor.text() == shown(THEIRS), "their text")
        editor.do("type", "mine ")
        put(path, OLD)
        editor.until(lambda: editor.bar() == CHANGED, "the bar")
        result.check(editor.text() == shown(b"mine " + THEIRS), f"{name}: edited text was replaced by itself")


def foreign_at_every_call(workshop, seed, long):
    result = Result("another program writes at every system call of a save: both texts are on the disk afterwards")
    for how, error in (("renames over", -1), ("rewrites", -2)):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), OLD)
        theirs = os.path.join(home, "theirs.new")
        with Editor(workshop, home, [path], KEVRA_FOREIGN_FROM=theirs, KEVRA_FOREIGN_TO=path) as editor:
            at = 1
            while True:
                foreign = put(theirs, b"foreign %d\n" % at) and b"foreign %d\n" % at
                editor.do("type", "x")
                mine = editor.text().replace(b"\r\n", b"\n")
                editor.do("fault", call="any", at=at, errno=error)
                editor.save()
                hits = editor.ask("fault")["hits"]
                if hits < at:
                    break
                now = content(path)
                result.check(now in (mine, foreign), f"{how} at call {at}: {now!r}")
                result.check(foreign == now or foreign in kept(editor), f"{how} at call {at}: theirs is lost")
                result.check(editor.text() == shown(mine), f"{how} at call {at}: the window's text changed")
                says = REPLACED if now == mine else CHANGED
                try:
                    editor.until(lambda: editor.bar().startswith(says), "the bar")
                except TimeoutError as late:
                    result.check(False, f"{how} at call {at}: {late}, {editor.bar()!r}")
                at += 1
            known = ["page.htm", "theirs.new"]
            result.check(not strays(home, known), f"{how}: stray {strays(home, known)}")
    return result


def versions(workshop, seed, long):
    result = Result("the versions: restored as one step of undo, deleted, private whatever the umask")
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), OLD)
    umask = os.umask(0)
    try:
        with Editor(workshop, home, [path]) as editor:
            editor.do("type", "mine ")
            put(path, THEIRS)
            editor.save()
            folder = editor.state("backups")
            result.check(os.stat(folder).st_mode & 0o777 == 0o700, "the folder is open to others")
            for name in os.listdir(folder):
                mode = os.stat(os.path.join(folder, name)).st_mode & 0o777
                result.check(mode == 0o600, f"{name} has mode {mode:o}")
            editor.do("trigger", "mversions")
            editor.until(lambda: editor.ask("shown", "fversions")["ok"], "the window")
            editor.ask("press", "bversionrestore", **{"in": "fversions"})
            editor.until(lambda: editor.text() == shown(THEIRS), "the restored text")
            editor.do("trigger", "mundo")
            editor.until(lambda: editor.text() == shown(MINE), "one step of undo")
            editor.ask("press", "bversiondelete", **{"in": "fversions"})
            editor.expect("Delete this version for good?")
            editor.do("answer", "Yes")
            editor.until(lambda: not kept(editor), "the version's end")
            result.check(content(path) == MINE, "the file was touched")
    finally:
        os.umask(umask)
    return result


def huge_version(workshop, seed, long):
    result = Result("a foreign version larger than all versions may be together is kept when a save replaces it")
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), OLD)
    with Editor(workshop, home, [path]) as editor:
        for size in (1 << 20, 210 << 20):  # the bound is between them; the first gives way to the second
            editor.do("type", "mine ")
            put(path, THEIRS)
            os.truncate(path, size)
            editor.save()
            sizes = [os.stat(name).st_size for name in glob.glob(editor.state("backups", "2*"))]
            result.check(size in sizes, f"{size} bytes: {sizes} are kept")
            result.check(content(path).startswith(b"mine "), f"{size} bytes: not saved")
    return result


def out_of_memory(workshop, seed, long):
    result = Result("files too large for the memory: said, and the document stays")
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), OLD)
    line = b"<p>a line of a large page\n"
    for megabytes in (20, 80, 320) if long else (20, 80):
        large = put(os.path.join(home, "large.htm"), line * (megabytes * 1024 * 1024 // len(line)))
        for spare in (30, 60, 100, 150, 200, 300) if long else (30, 100, 200):
            put(path, OLD)
            with Editor(workshop, home, [path]) as editor:
                editor.do("type", "mine ")
                editor.save()
                open_with_memory(editor, large, spare << 20, f"{megabytes} MB with {spare} MB to spare", result)
        os.remove(large)
    return result


def open_with_memory(editor, large, spare, where, result):
    def answered():
        return editor.box() or editor.ask("length")["length"] > 1 << 20

    pid = editor.process.pid
    used = int(content(f"/proc/{pid}/statm").split()[0]) * resource.getpagesize()
    resource.prlimit(pid, resource.RLIMIT_AS, (used + spare, resource.RLIM_INFINITY))
    try:
        editor.do("drop", large)
        editor.until(answered, "an answer")
        box = editor.box()
        # What the test itself asks for is not the editor's.
        resource.prlimit(pid, resource.RLIMIT_AS, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))
        if not box:
            return result.check(editor.ask("length")["length"] >= os.stat(large).st_size, f"{where}: half a text")
        result.check(box.startswith("There is not enough memory to open"), f"{where}: {box}")
        editor.do("answer", "OK")
        editor.idle()
        result.check(editor.text() == shown(MINE), f"{where}: the document is gone")
    except Gone:
        result.check(False, f"{where}: the editor has ended")
    return None


def torn_in_place(workshop, seed, long):
    result = Result("a hard-linked file that cannot be written to its end: its safety copy is named and completes it")
    for shorter in (True, False):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), OLD * 100)
        os.link(path, os.path.join(home, "second.htm"))
        with Editor(workshop, home, [path]) as editor:
            if shorter:
                editor.do("trigger", "mselall")
            editor.do("type", "x" * 40)
            wanted = editor.text().replace(b"\r\n", b"\n")
            editor.do("fault", call="ftruncate", at=-1, errno=errno.EIO)
            editor.do("trigger", "msaveplain")
            editor.until(lambda: "could be written only in part" in editor.box(), "the message")
            copies = glob.glob(editor.state("recovery", "in-place-*"))
            result.check(len(copies) == 1 and copies[0] in editor.box(), f"not named: {editor.box()!r}, {copies}")
            editor.do("answer", "Yes")
            editor.expect("Save As")
            elsewhere = os.path.join(home, "elsewhere.htm")
            editor.do("choose", elsewhere)
            editor.idle()
            result.check(content(elsewhere) == wanted, "not saved elsewhere")
            result.check(content(path) != wanted, "the fault did not strike")
        with Editor(workshop, home, [path]) as editor:
            allowed = (OLD * 100, wanted) if shorter else (wanted,)
            result.check(content(path) in allowed, f"not completed: {content(path)[:60]!r}")
    return result


CASES = {"disk-bar": disk_bar, "foreign-at-every-call": foreign_at_every_call, "versions": versions,
         "huge-version": huge_version, "out-of-memory": out_of_memory, "torn-in-place": torn_in_place}
