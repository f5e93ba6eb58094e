# SPDX-License-Identifier: GPL-3.0-or-later
"""Damaged records and settings, every answer of the recovery questions, ends nobody asked for, the monkey."""

import os
import random
import shutil
import signal
import time

from editor import Editor, Gone, record_bytes, recovered
from result import Result, content, put

SAVE = "There's a file stored from Autosave. Do you want to save it?"
SEE = "Do you want to see the file before saving?"
TITLE = "Save file from last session"
LIST = "Texts from the last session"


def crashed(workshop, count):
    """Homes in which an editor was killed with unsaved text, and what it had open."""
    homes = []
    editors = []
    for _ in range(count):
        home = workshop.folder()
        homes.append((home, put(os.path.join(home, "page.htm"), b"<p>old\n")))
        editors.append(Editor(workshop, home, [homes[-1][1]]))
        editors[-1].do("type", "typed ")
    for editor in editors:
        with editor:
            editor.until(lambda: os.path.exists(editor.state("recovery", "1.record")), "the record")
    return homes


def answers(workshop, seed, long):
    result = Result("every answer of the recovery questions")
    lost = b"typed <p>old\n"

    def backups(home):
        folder = os.path.join(home, "state", "kevra", "backups")
        return [content(os.path.join(folder, name)) for name in os.listdir(folder)] if os.path.isdir(folder) else []

    def review(editor, button):
        editor.do("answer", "Yes")
        editor.expect(SEE)
        editor.do("answer", "Yes")
        editor.until(lambda: editor.ask("ready")["ok"] and editor.text() == b"typed <p>old\r\n", "the text")
        editor.do("type", "x")
        result.check(editor.text() == b"typed <p>old\r\n", "the text looked at can be changed")
        if button:
            editor.do("press", button)

    def save(editor, target):
        editor.expect(TITLE)
        editor.do("choose", target)
        if target:
            editor.idle()

    paths = {  # name: what the user does, whether it is saved, whether it is offered again
        "No": (lambda e, t: e.do("answer", "No"), False, False),
        "Cancel": (lambda e, t: e.do("answer", "Cancel"), False, True),
        "Yes, No, saved": (lambda e, t: (e.do("answer", "Yes"), e.expect(SEE), e.do("answer", "No"), save(e, t)),
                           True, False),
        "Yes, No, cancelled": (lambda e, t: (e.do("answer", "Yes"), e.expect(SEE), e.do("answer", "No"), save(e, "")),
                               False, True),
        "Yes, Cancel": (lambda e, t: (e.do("answer", "Yes"), e.expect(SEE), e.do("answer", "Cancel")), False, True),
        "seen, saved": (lambda e, t: (review(e, "breviewsave"), save(e, t)), True, False),
        "seen, not saved": (lambda e, t: (review(e, "breviewsave"), save(e, "")), False, True),
        "seen, discarded": (lambda e, t: review(e, "breviewdiscard"), False, False),
        "seen, later": (lambda e, t: review(e, "breviewlater"), False, True),
        "seen, killed": (lambda e, t: review(e, ""), False, True),
    }
    for (name, (do, is_saved, again)), (home, path) in zip(paths.items(), crashed(workshop, len(paths))):
        target = os.path.join(home, "kept.htm")
        with Editor(workshop, home, [path]) as editor:
            editor.expect(SAVE)
            do(editor, target)
            time.sleep(0.05)
        result.check(content(path) == b"<p>old\n", f"{name}: the file was touched")
        result.check((content(target) == lost) == is_saved, f"{name}: {content(target)!r}")
        with Editor(workshop, home, [path]) as editor:
            result.check((editor.box() == SAVE) == again, f"{name}: next start shows {editor.box()!r}")
        result.check(is_saved or again or lost in backups(home), f"{name}: the text is nowhere")
    return result


def several(workshop, seed, long):
    result = Result("three programs killed in one home: their texts are one list, whatever becomes of each")
    home = workshop.folder()
    lost = {}
    editors = []
    for name in ("a.htm", "b.htm", "c.htm"):
        path = put(os.path.join(home, name), f"<p>{name}\n".encode())
        editors.append(Editor(workshop, home, [path]))
        editors[-1].do("type", "typed ")
        record = editors[-1].state("recovery", f"{len(editors)}.record")
        editors[-1].until(lambda: os.path.exists(record), "the record")
        lost[name] = f"typed <p>{name}\n".encode()
    for editor in editors:
        editor.kill()
    saved = os.path.join(home, "saved.htm")
    with Editor(workshop, home) as editor:
        editor.expect(LIST)
        editor.do("press", "brecoverdiscard", **{"in": "frecovery"})  # c.htm, the newest
        editor.do("press", "brecoverlook", **{"in": "frecovery"})  # b.htm
        editor.until(lambda: editor.ask("ready")["ok"], "the text")
        result.check(editor.text() == b"typed <p>b.htm\r\n", f"looked at: {editor.text()!r}")
        editor.do("press", "breviewlater")
        editor.expect(LIST)
        editor.do("press", "brecoversave", **{"in": "frecovery"})  # a.htm
        editor.expect(TITLE)
        editor.do("choose", saved)
        editor.idle()
    result.check(content(saved) == lost["a.htm"], f"saved: {content(saved)!r}")
    folder = os.path.join(home, "state", "kevra", "backups")
    kept = [content(os.path.join(folder, name)) for name in os.listdir(folder)]
    result.check(lost["c.htm"] in kept, "discarded for good")
    with Editor(workshop, home) as editor:
        result.check(editor.box() == SAVE, f"next start shows {editor.box()!r}")
    result.check(recovered(home) == [lost["b.htm"]], f"left: {recovered(home)!r}")
    return result


def kill_start(workshop, seed, long):
    result = Result("kill -9 at system calls of the start that finds a text: it is offered at the next one")
    [(home, path)] = crashed(workshop, 1)
    for kind in ("record", "crash"):
        left = home + "-" + kind
        shutil.copytree(home, left)
        if kind == "crash":
            os.rename(left + "/state/kevra/recovery/1.record", left + "/state/kevra/recovery/1.crash")
        at, died = 1 + seed % 10, True
        while died:
            again = workshop.folder()
            shutil.copytree(left, again, dirs_exist_ok=True)
            try:
                Editor(workshop, again, [path], kill_at=at).kill()
                died = False
            except Gone:
                pass
            with Editor(workshop, again, [path]) as editor:
                result.check(editor.box() == SAVE, f"{kind} {at}: next start shows {editor.box()!r}")
            result.check(b"typed <p>old\n" in recovered(again), f"{kind} {at}: {recovered(again)}")
            at += 1 if long else 13
    return result


def damaged_records(workshop, seed, long):
    result = Result("truncated, bit-flipped, empty, foreign and huge records never stop the start")
    chance = random.Random(seed)
    [(home, _)] = crashed(workshop, 1)
    whole = content(os.path.join(home, "state", "kevra", "recovery", "1.record"))

    def damage(kind):
        if kind == "truncated":
            return whole[:chance.randrange(len(whole))]
        if kind == "flipped":
            at = chance.randrange(len(whole))
            return whole[:at] + bytes([whole[at] ^ 1 << chance.randrange(8)]) + whole[at + 1:]
        if kind == "foreign":
            return bytes(chance.randrange(256) for _ in range(chance.randrange(2000)))
        return b""

    for number in range(1000 if long else 60):
        kind = ("truncated", "flipped", "foreign", "empty")[number % 4]
        name = ("1.record", "7.record", "kept-1-1.record", "2.crash", "autosave.txt")[number % 5]
        home = workshop.folder()
        folder = os.path.join(home, "state", "kevra", *([] if name.endswith("txt") else ["recovery"]))
        os.makedirs(folder)
        put(os.path.join(folder, name), damage(kind))
        with Editor(workshop, home) as editor:
            # Any bytes can be an autosaved text; a record that is not whole is none.
            result.check(editor.box() == "" or name == "autosave.txt", f"{kind} {name}: {editor.box()!r}")
    home = workshop.folder()
    folder = os.path.join(home, "state", "kevra", "recovery")
    os.makedirs(os.path.join(folder, "4.record"))
    with open(os.path.join(folder, "3.record"), "wb") as file:
        file.truncate(3 << 30)
    with Editor(workshop, home) as editor:
        result.check(editor.box() == "", f"huge: {editor.box()!r}")
    return result


def unasked_ends(workshop, seed, long):
    result = Result("SIGTERM, SIGHUP, a crash, quitting by roads that ask nothing: the text is offered next time")
    # Everything that ends a program, but for what nobody can stop and what a library may use.
    ends = [number for number in signal.Signals if number not in (
        signal.SIGKILL, signal.SIGSTOP, signal.SIGTSTP, signal.SIGTTIN, signal.SIGTTOU, signal.SIGCHLD, signal.SIGCONT,
        signal.SIGURG, signal.SIGWINCH, signal.SIGPIPE, signal.SIGXFSZ, signal.SIGRTMIN, signal.SIGRTMAX)]
    for number in ends:
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), b"<p>old\n")
        editor = Editor(workshop, home, [path])
        editor.do("type", "typed ")
        editor.kill(number)
        with Editor(workshop, home, [path]) as again:
            result.check(again.box() == SAVE, f"{number.name}: next start shows {again.box()!r}")
        result.check(b"typed <p>old\n" in recovered(home), f"{number.name}: {recovered(home)}")

    def quit_after(name, prepare, offered):
        home = workshop.folder()
        path = put(os.path.join(home, "page.htm"), b"<p>old\n")
        with Editor(workshop, home, [path]) as editor:
            editor.do("type", "typed ")
            prepare(editor)
            editor.process.wait(20)
        with Editor(workshop, home, [path]) as again:
            result.check((again.box() == SAVE) == offered, f"{name}: next start shows {again.box()!r}")

    def leave(editor, answer):
        editor.do("close")
        editor.expect("Save current text?")
        editor.do("answer", answer)

    quit_after("colouring clears the flag", lambda e: (e.do("trigger", "mcolcode"), e.idle(), e.do("close")), True)
    quit_after("Yes, Save As cancelled",
               lambda e: (leave(e, "Yes"), e.expect("Save As"), e.do("choose", "")), True)
    quit_after("No", lambda e: leave(e, "No"), False)
    quit_after("saved", lambda e: (e.save(), e.do("close")), False)
    return result


def damaged_settings(workshop, seed, long):
    result = Result("settings damaged in many ways, every key empty, huge, negative, wrongly typed: it starts")
    chance = random.Random(seed)
    keys = {"settings": ("ifif iffso autosave automins tempfol ifcolor codecolor ifcoms ifdebug aptorun exemenu "
                         "fontface fontsize").split(),
            "windows": "edsize edt edl edw edh padt padl padw padh wintype".split()}
    whole = "[settings]\nif1=no\n" + "".join(f"{key}=yes\n" for key in keys["settings"]) + "[windows]\n" + "".join(
        f"{key}=100\n" for key in keys["windows"])
    texts = []
    for section, names in keys.items():
        for key in names:
            for value in ("", "9" * 400, "-1", "-99999999999", "a b\\xzz", "@Invalid()"):
                size = "edsize=0\n" if section == "windows" and key != "edsize" else ""
                texts.append(f"[settings]\nif1=no\n[{section}]\n{size}{key}={value}\n".encode())
    for _ in range(1000):
        data = bytearray(whole.encode())
        for _ in range(chance.randrange(1, 20)):
            data[chance.randrange(len(data))] = chance.randrange(256)
        texts.append(bytes(data[:chance.randrange(len(data))]) if chance.randrange(2) else bytes(data))
    for number, text in enumerate(texts if long else chance.sample(texts, 100)):
        home = workshop.folder()
        os.makedirs(os.path.join(home, "config", "kevra"))
        put(os.path.join(home, "config", "kevra", "kevra285.ini"), text)
        path = put(os.path.join(home, "page.htm"), b"<p>old\n")
        with Editor(workshop, home, [path]) as editor:
            while editor.box():
                editor.do("answer", "OK")
                time.sleep(0.01)
            result.check(editor.text() == b"<p>old\r\n", f"{number}: {text[:80]!r}")
    return result


def monkey(workshop, seed, long):
    steps = 100000 if long else 3000
    result = Result(f"a monkey of {steps} keys, clicks and commands: the record holds the text at the end")
    home = workshop.folder()
    path = put(os.path.join(home, "page.htm"), b"<p>old\n")
    with Editor(workshop, home, [path]) as editor:
        editor.ask("monkey", seed=seed % 1000003, steps=steps)
        end = time.monotonic() + (7200 if long else 240)
        while editor.ask("monkeyleft")["left"] > 0 and time.monotonic() < end:
            time.sleep(0.1)
        result.check(editor.ask("monkeyleft")["left"] == 0, f"stuck: {editor.ask('monkeyleft')}")
        editor.idle()
        editor.do("type", "end")
        time.sleep(3.2)
        text = editor.text()
        record = record_bytes(editor.state("recovery", "1.record"))
    written = [text.replace(b"\r\n", end).decode() for end in (b"\n", b"\r\n")]
    # In whatever the document has become: a page, a script with a mark, or still what it was.
    forms = [form.encode(*how) for form in written for how in (("utf-8",), ("cp1252", "replace"), ("utf-16",))]
    result.check(record in forms, "the record is not the text")
    return result


CASES = {"answers": answers, "several": several, "kill-start": kill_start, "damaged-records": damaged_records,
         "unasked-ends": unasked_ends, "damaged-settings": damaged_settings, "monkey": monkey}
