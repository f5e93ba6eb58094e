# SPDX-License-Identifier: GPL-3.0-or-later
"""Every way out of the text on every kind of failing place, and odd files wherever the program reads one."""

import contextlib
import os
import random
import shutil
import signal
import socket
import subprocess
import time

from disk_cases import fill
from editor import Editor, Gone, record_bytes
from result import Result, content, put

SAVE = "There's a file stored from Autosave. Do you want to save it?"
NOWHERE = "The unsaved text cannot be kept"
OLD = b"<p>old\n"
TYPED = b"typed " + OLD


def save_as(editor, question, path):
    """Yes to the question, then the dialog with that path; an empty one cancels it."""
    editor.expect(question)
    editor.do("answer", "Yes")
    editor.expect("Save As")
    editor.do("choose", path)


def leave_and_save(editor, site):
    editor.do("close")
    save_as(editor, "Save current text?", os.path.join(site, "other.htm"))


def leave_and_cancel(editor, site):
    editor.do("close")
    save_as(editor, "Save current text?", "")


def exit_and_cancel(editor, site):
    editor.do("trigger", "mexit")
    save_as(editor, "Save current text?", "")


def new_and_cancel(editor, site):
    editor.do("trigger", "mnewfile")
    save_as(editor, "Save the current text?", "")


def drop_and_cancel(editor, site):
    editor.do("drop", os.path.join(editor.home, "second.htm"))
    save_as(editor, "Save the current text?", "")


def leave_after_colouring(editor, site):
    editor.do("trigger", "mcolcode")
    editor.idle()
    editor.do("close")


def killed_by(number):
    return lambda editor, site: editor.process.send_signal(number)


WAYS = {"leave, Yes, saved": leave_and_save, "leave, Yes, cancelled": leave_and_cancel,
        "Exit, Yes, cancelled": exit_and_cancel, "New, Yes, cancelled": new_and_cancel,
        "another file, Yes, cancelled": drop_and_cancel, "leave after colouring": leave_after_colouring,
        **{number.name: killed_by(number) for number in (
            signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT, signal.SIGUSR1, signal.SIGXCPU, signal.SIGSEGV)}}


class Place:
    """A small disk with the document and folders that may lie on it or elsewhere."""

    def __init__(self, workshop, disk):
        self.home = workshop.folder()
        self.disk = disk
        self.site = os.path.join(disk, "site")
        os.mkdir(self.site)
        self.page = put(os.path.join(self.site, "page.htm"), OLD)
        put(os.path.join(self.home, "second.htm"), b"<p>second\n")
        self.full = False
        self.folders = {name: os.path.join(self.home, name) for name in ("state", "runtime", "tmp")}
        for name in ("runtime", "tmp"):
            os.mkdir(self.folders[name])

    def on_disk(self, *names):
        for name in names:
            self.folders[name] = os.path.join(self.disk, name)
            os.makedirs(self.folders[name], exist_ok=True)

    def records(self):
        """Every text that the next start could offer."""
        texts = []
        for name, parts in (("state", ("kevra", "recovery")), ("runtime", ("kevra",)),
                            ("tmp", (f"kevra-{os.geteuid()}",))):
            folder = os.path.join(self.folders[name], *parts)
            if os.path.isdir(folder):
                texts += [record_bytes(os.path.join(folder, file)) for file in os.listdir(folder)]
        return texts


def full_state(place):
    place.on_disk("state")
    place.full = True


def full_state_and_runtime(place):
    place.on_disk("state", "runtime")
    place.full = True


def all_full(place):
    place.on_disk("state", "runtime", "tmp")
    place.full = True


def unusable_state(place):
    os.makedirs(os.path.join(place.folders["state"], "kevra"))
    put(os.path.join(place.folders["state"], "kevra", "recovery"), b"a file in the folder's place")


def foreign_folders(place):
    """In a shared folder somebody else may have taken the name first."""
    unusable_state(place)
    put(os.path.join(place.folders["runtime"], "kevra"), b"not a folder")
    os.symlink("/nowhere", os.path.join(place.folders["tmp"], f"kevra-{os.geteuid()}"))


PLACES = {"state on the full disk": (full_state, True), "runtime folder full too": (full_state_and_runtime, True),
          "every folder full": (all_full, False), "state folder unusable": (unusable_state, True),
          "every folder unusable": (foreign_folders, False)}


def leaving(workshop, seed, long):
    result = Result("every way out of the text on every kind of failing place: kept, or the user is asked")
    disk = os.path.join(workshop.root, "disk")
    os.mkdir(disk)
    for place_name, (prepare, takes_text) in PLACES.items():
        for way_name, way in WAYS.items():
            if not takes_text and way_name.startswith("SIG"):
                continue  # nobody can be asked, and nothing takes it
            mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m,mode=755", "tmpfs", disk],
                                     capture_output=True, check=False)
            if mounted.returncode != 0:
                return result.skipped("no right to mount a small disk")
            try:
                place = Place(workshop, disk)
                prepare(place)
                leave(workshop, place, way, takes_text, f"{place_name}, {way_name}", result)
            finally:
                subprocess.run(["umount", disk], check=True)
    return result


def leave(workshop, place, way, takes_text, where, result):
    with Editor(workshop, place.home, [place.page], folders=place.folders) as editor:
        if place.full:
            fill(os.path.join(place.disk, "filler"), 0)
        else:
            os.rename(place.site, place.site + "-gone")  # saving fails as well
        editor.do("type", "typed ")
        asked = False
        try:
            way(editor, place.site)
            editor.until(lambda: editor.box().startswith(NOWHERE) or replaced(editor), "an end")
            asked = not replaced(editor)
        except Gone:
            editor.process.wait(20)
        except TimeoutError as error:
            return result.check(False, f"{where}: {error}")
        result.check(asked != takes_text, f"{where}: {'asked' if asked else 'not asked'}")
        if asked:
            answer_and_leave(editor, place, way, where, result)
    if takes_text:
        result.check(TYPED in place.records(), f"{where}: {place.records()}")
        if place.full:
            os.remove(os.path.join(place.disk, "filler"))
        with Editor(workshop, place.home, folders=place.folders) as again:
            result.check(again.box() == SAVE, f"{where}: next start shows {again.box()!r}")


def replaced(editor):
    """Another text is in the window, and nothing is asked."""
    return not editor.box() and b"typed" not in editor.text()


def answer_and_leave(editor, place, way, where, result):
    editor.do("answer", "Cancel")
    editor.idle()
    result.check(editor.text() == TYPED.replace(b"\n", b"\r\n"), f"{where}: the text is gone after Cancel")
    kept = os.path.join(place.home, "kept.htm")
    try:
        way(editor, place.site)
        editor.until(lambda: editor.box().startswith(NOWHERE), "the question")
        editor.do("answer", "Yes")
        editor.expect("Save As")
        editor.do("choose", kept)
        editor.until(lambda: replaced(editor), "the end")
    except Gone:
        pass
    result.check(content(kept) == TYPED, f"{where}: saved elsewhere as {content(kept)!r}")


def kept_later(workshop, seed, long):
    result = Result("a text that can be kept nowhere: the window says so, and it is written without a key once it can be")
    disk = os.path.join(workshop.root, "disk")
    os.mkdir(disk)
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m,mode=755", "tmpfs", disk], capture_output=True,
                      check=False).returncode != 0:
        return result.skipped("no right to mount a small disk")
    try:
        place = Place(workshop, disk)
        all_full(place)
        with Editor(workshop, place.home, [place.page], folders=place.folders) as editor:
            fill(os.path.join(disk, "filler"), 0)
            editor.do("type", "typed ")
            editor.until(lambda: editor.bar("recordbar").startswith("Unsaved text cannot be kept: "), "the note")
            result.check(TYPED not in place.records(), "the disk was not full")
            os.remove(os.path.join(disk, "filler"))
            editor.until(lambda: TYPED in place.records() and not editor.bar("recordbar"), "the record")
    except TimeoutError as error:
        result.check(False, str(error))
    finally:
        subprocess.run(["umount", disk], check=True)
    return result


STATE = ["state/kevra/" + name for name in (
    "autosave.txt", "autosave-2.txt", "recovery", "backups", "pages", "pages/1.page", "recovery/1.record",
    "recovery/1.crash", "recovery/1.lock", "recovery/1.autosave", "recovery/2.record", "recovery/kept-1-1.record",
    "recovery/kept-1-1.txt", "recovery/sequence", "recovery/in-place-1-1")]
READ = STATE + ["config/kevra/kevra285.ini", "runtime/kevra", "runtime/kevra/1.record", f"tmp/kevra-{os.geteuid()}",
                "page.htm"]
KINDS = {
    "FIFO": os.mkfifo,
    "link to itself": lambda path: os.symlink(os.path.basename(path), path),
    "link to nowhere": lambda path: os.symlink("nowhere", path),
    "endless device": lambda path: os.symlink("/dev/zero", path),
    "folder": os.mkdir,
    "socket": lambda path: socket.socket(socket.AF_UNIX).bind(path),
    "three gigabytes": lambda path: subprocess.run(["truncate", "-s", "3G", path], check=True),
}


def odd_places(workshop, seed, long):
    result = Result("a FIFO, link, device, folder, socket or huge file wherever a file is read: it starts and keeps")
    pairs = [(name, kind) for name in READ for kind in KINDS]
    known = [("config/kevra/kevra285.ini", "FIFO"), ("state/kevra/recovery/1.record", "link to itself")]
    for name, kind in pairs if long else known + random.Random(seed).sample(pairs, 50):
        home = workshop.folder()
        for part in ("runtime", "tmp"):
            os.mkdir(os.path.join(home, part), 0o700)
        path = os.path.join(home, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        try:
            KINDS[kind](path)
        except OSError as error:  # a socket's path is short
            result.what += f" [{kind} SKIPPED: {error.strerror}]"
            continue
        folders = {part: os.path.join(home, part) for part in ("runtime", "tmp")}
        try:
            with Editor(workshop, home, [os.path.join(home, "page.htm")], folders=folders) as editor:
                while editor.box():
                    editor.do("answer", "No" if editor.box() == SAVE else "OK")
                editor.idle()
                editor.do("type", "typed ")
                editor.do("trigger", "mnewfile")
                editor.expect("Save the current text?")
                editor.do("answer", "Yes")
                editor.expect("Save As")
                editor.do("choose", "")
                editor.idle()
                result.check(editor.text() == b"", f"{kind} as {name}: the text could not be kept")
            with Editor(workshop, home, folders=folders) as again:
                result.check(again.box() == SAVE, f"{kind} as {name}: next start shows {again.box()!r}")
        except (Gone, TimeoutError) as error:
            result.check(False, f"{kind} as {name}: {error or 'the program has ended'}")
        shutil.rmtree(home, ignore_errors=True)
    return result


def unread_errors(workshop, seed, long):
    result = Result("VIEW PAGE with standard error a pipe that nobody reads, at its end or full")
    noisy = b"<script>for (let i = 0; i < 3000; i++) console.error('x'.repeat(999))</script>\n"
    for full in (False, True):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), noisy)
        reading, writing = os.pipe()
        if full:
            os.set_blocking(writing, False)
            with contextlib.suppress(BlockingIOError):
                while True:
                    os.write(writing, b"x" * 4096)
            os.set_blocking(writing, True)
        else:
            os.close(reading)
        try:
            with Editor(workshop, home, [path], errors=writing) as editor:
                editor.do("type", "typed ")
                editor.preview()
                time.sleep(1)
                editor.back()
                editor.save()
            result.check(content(path) == b"typed " + noisy, f"full {full}: {content(path)!r}")
        except (Gone, TimeoutError) as error:
            result.check(False, f"full {full}: {error!r}")
    return result


CASES = {"leaving": leaving, "kept-later": kept_later, "odd-places": odd_places, "unread-errors": unread_errors}
