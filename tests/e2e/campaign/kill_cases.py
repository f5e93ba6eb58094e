# SPDX-License-Identifier: GPL-3.0-or-later
"""kill -9 at random moments, and at every single system call, of everything that writes."""

import os
import random
import time

from editor import Editor, Gone, recovered
from result import Result, content, put, strays

OLD = b"<p>old " + b"o" * 60000 + b"\n"
NEW = b"new " + OLD


def next_start_works(workshop, home, path):
    with Editor(workshop, home, [path]) as editor:
        return editor.ask("box") is not None and editor.process.poll() is None


def kill_save(workshop, seed, long):
    result = Result("kill -9 at a random moment of Save, Save As over a file, a setting")
    chance = random.Random(seed)
    for number in range(5000 if long else 300):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), OLD)
        other = put(os.path.join(home, "other.htm"), b"other")
        allowed = {path: (OLD,), other: (b"other",)}
        with Editor(workshop, home, [path]) as editor:
            editor.do("type", "new ")
            kind = ("Save", "Save As", "setting")[number % 3]
            if kind == "Save":
                editor.do("trigger", "msaveplain")
                allowed[path] = (OLD, NEW)
            elif kind == "Save As":
                editor.do("trigger", "msaveas")
                editor.expect("Save As")
                editor.do("choose", other)
                editor.expect("Do you want to replace the existing file?")
                editor.do("answer", "OK")
                allowed[other] = (b"other", NEW)
            else:
                editor.do("trigger", "mfsoset")
            time.sleep(chance.uniform(0, 0.004))
        for file, contents in allowed.items():
            result.check(content(file) in contents, f"{kind}: {file} is neither old nor new")
        result.check(b"if1=no" in content(editor.config), f"{kind}: settings are lost")
        if number % 10 == 0 or strays(home, [os.path.basename(file) for file in allowed]):
            result.check(next_start_works(workshop, home, path), f"{kind}: the next start")
    return result


def kill_at_every_call(workshop, seed, long):
    result = Result("kill -9 at each system call of Save: replaced, in place, new file")
    calls = 0
    for kind in ("plain", "hard link", "Save As"):
        at = 1
        while True:
            home = workshop.folder()
            path = put(os.path.join(home, "page.htm"), OLD)
            known = ["page.htm"]
            if kind == "hard link":
                os.link(path, os.path.join(home, "second.htm"))
                known.append("second.htm")
            editor = Editor(workshop, home, [path])
            editor.do("type", "new ")
            if kind == "Save As":
                editor.do("trigger", "msaveas")
                editor.expect("Save As")
            editor.do("fault", call="any", at=at, errno=0)
            try:
                if kind == "Save As":
                    editor.do("choose", os.path.join(home, "new.htm"))
                else:
                    editor.do("trigger", "msaveplain")
                editor.idle()
                finished = True
            except Gone:
                finished = False
            editor.kill()
            if kind == "Save As":
                result.check(content(os.path.join(home, "new.htm")) in (None, NEW), f"{kind} {at}: torn")
                result.check(content(path) == OLD, f"{kind} {at}: the old file was touched")
                known.append("new.htm")
            # A file written in place may be torn until the next start, which completes it.
            next_start_works(workshop, home, os.path.join(home, "none"))
            result.check(content(path) in (OLD, NEW), f"{kind} {at}: neither old nor new")
            left = strays(home, known)
            if left:
                with Editor(workshop, home, [path]) as again:
                    again.do("type", "x")
                    again.save()
                left = strays(home, known)
            result.check(not left, f"{kind} {at}: {left} stays")
            if finished:
                break
            calls += 1
            at += 1
    result.what += f" ({calls} calls)"
    return result


def kill_typing(workshop, seed, long):
    result = Result("kill -9 while typing: at most 3 s of typing lost")
    chance = random.Random(seed)
    worst = 0.0
    rounds, together = (10, 20) if long else (2, 20)
    for _ in range(rounds):
        editors = []
        for _ in range(together):
            home = workshop.folder()
            path = put(os.path.join(home, "page.txt"), b"")
            editors.append((home, Editor(workshop, home, [path])))
        ends = {home: time.monotonic() + chance.uniform(3.2, 7) for home, _ in editors}
        typed = {home: [] for home, *_ in editors}
        running = list(editors)
        while running:
            for entry in list(running):
                home, editor = entry
                if time.monotonic() >= ends[home]:
                    editor.kill()
                    typed[home].append((time.monotonic(), None))
                    running.remove(entry)
                    continue
                editor.do("type", f"{len(typed[home])};")
                typed[home].append((time.monotonic(), len(typed[home])))
            time.sleep(0.01)
        for home, *_ in editors:
            kept = (recovered(home) or [None])[-1]
            count = kept.count(b";") if kept else 0
            stamps = typed[home]
            lost = stamps[-1][0] - stamps[count][0] if count < len(stamps) - 1 else 0.0
            worst = max(worst, lost)
            result.check(lost <= 3.0, f"{lost:.1f} s of typing")
    result.what += f"; the most was {worst:.2f} s"
    return result


def kill_records(workshop, seed, long):
    result = Result("kill -9 while a record is rewritten: the last whole one is there")
    chance = random.Random(seed)
    for _ in range(40 if long else 1):
        editors = []
        for _ in range(20):
            home = workshop.folder()
            path = put(os.path.join(home, "page.txt"), OLD)
            editor = Editor(workshop, home, [path])
            editor.do("type", "first")
            editors.append((home, editor))
        for home, editor in editors:
            editor.until(lambda: os.path.exists(editor.state("recovery", "1.record")), "the record")
        ends = []
        for home, editor in editors:
            editor.do("type", "second")
            ends.append(time.monotonic() + chance.uniform(1.98, 2.02))
        for (home, editor), end in zip(editors, ends):
            time.sleep(max(0, end - time.monotonic()))
            editor.kill()
            result.check(recovered(home)[-1] in (b"first" + OLD, b"firstsecond" + OLD), "the record is torn")
    return result


def kill_autosave(workshop, seed, long):
    result = Result("kill -9 while the autosave file is written: the old or the new one, whole")
    chance = random.Random(seed)
    large = b"<p>a line of the page\n" * 100000
    settings = "[settings]\nif1=no\nautosave=yes\nautomins=1\n"
    later = 0
    for _ in range(300 if long else 8):
        home = workshop.folder()
        path = put(os.path.join(home, "page.txt"), large)
        with Editor(workshop, home, [path], settings=settings) as editor:
            file = editor.state("autosave.txt")
            editor.do("type", "first")
            editor.until(lambda: os.path.exists(file), "the autosave file")
            editor.do("type", "second")
            # The next one comes a second after the last; the time in the file is that of its last byte.
            end = os.stat(file).st_mtime + 1 + chance.uniform(-0.02, 0.02)
            time.sleep(max(0, end - time.time()))
        later += content(file) == b"firstsecond" + large
        result.check(content(file) in (b"first" + large, b"firstsecond" + large), "the autosave file is torn")
        result.check(content(path) == large, "the file was touched")
        with Editor(workshop, home, [path]) as again:
            result.check(again.box().startswith("There's a file stored"), f"next start shows {again.box()!r}")
    result.what += f"; the new one {later} times"
    return result


def kill_preview(workshop, seed, long):
    result = Result("kill -9 while the preview page is written, and while it is shown")
    chance = random.Random(seed)

    def attempt(name, theirs, kill):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), OLD)
        page = os.path.join(home, "kevratemp.html")
        if theirs:
            put(page, theirs)
        with Editor(workshop, home, [path]) as editor:
            kill(editor)
            try:
                editor.do("press", "bview")
                while time.monotonic() < end:
                    editor.ask("box")
                    time.sleep(0.001)
            except Gone:
                pass
        result.check(content(page) in (theirs, OLD, None), f"{name}: the page is torn")
        result.check(content(path) == OLD, f"{name}: the document was touched")
        shown = content(page) == OLD
        known = ["page.htm", "kevratemp.html"]
        with Editor(workshop, home, [path]) as again:
            result.check(content(page) == theirs, f"{name}: {(content(page) or b'')[:20]!r} after the next start")
            if strays(home, known):
                again.save()
        result.check(not strays(home, known), f"{name}: {strays(home, known)} stays")
        return shown

    whole = 0
    at = 1
    end = time.monotonic()
    # Until the page has stood there whole some times: what follows belongs to the engine.
    while whole < 3:
        end = time.monotonic() + 10
        theirs = (None, b"theirs", OLD)[at % 3]
        shown = attempt(f"call {at}", theirs, lambda editor: editor.do("fault", call="any", at=at, errno=0))
        whole = whole + 1 if shown and theirs != OLD else whole
        at += 1 if long else 2
    for _ in range(100 if long else 4):
        end = time.monotonic() + chance.uniform(0.05, 2)
        attempt("shown", b"theirs", lambda editor: None)
    return result


CASES = {"kill-save": kill_save, "kill-at-every-call": kill_at_every_call, "kill-typing": kill_typing,
         "kill-records": kill_records,
         "kill-autosave": kill_autosave, "kill-preview": kill_preview}
