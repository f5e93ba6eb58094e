# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as a screen reader meets it: roles, names, texts and actions, never a position in a tree."""
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 15  # seconds that a condition may take; a met one costs nothing
GLANCE = 0.03  # seconds between two looks


class NotSeen(AssertionError):
    pass


def wait_for(what, look):
    """The first thing `look` finds that is not false."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            found = look()
        except GLib.Error:  # the object went away while it was looked at
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise NotSeen(what)
        time.sleep(GLANCE)


def keys(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "4", text], check=True)


class Reader:
    """Looks at one program on the accessibility bus."""

    def __init__(self, process):
        Atspi.init()
        self._program = wait_for("the program on the accessibility bus", lambda: self._find_program(process.pid))

    @staticmethod
    def _find_program(pid):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            if program and program.get_process_id() == pid:
                program.set_cache_mask(Atspi.Cache.NONE)
                return program
        return None

    def windows(self):
        return [self._program.get_child_at_index(i) for i in range(self._program.get_child_count())]

    def _showing(self, title):
        return next((w for w in self.windows() if w and w.get_name() == title and showing(w)), None)

    def window(self, title):
        """The window of this title, once it is on the screen."""
        return wait_for(f"window '{title}'", lambda: self._showing(title))

    def no_window(self, title):
        wait_for(f"no window '{title}'", lambda: not self._showing(title))

    def activate(self, title):
        """Brings the window whose title begins so to the front, as a click on it would."""
        # The search fails when a closing box goes while the windows are listed; then it is made again.
        wait_for(f"'{title}' brought to the front", lambda: subprocess.run(
            ["xdotool", "search", "--sync", "--onlyvisible", "--name", "^" + title, "windowactivate", "--sync"],
            timeout=PATIENCE).returncode == 0)

    def active_window(self, title):
        window = self.window(title)
        wait_for(f"'{title}' in front", lambda: has_state(window, Atspi.StateType.ACTIVE))
        return window


def has_state(thing, state):
    return thing.get_state_set().contains(state)


def showing(thing):
    return has_state(thing, Atspi.StateType.SHOWING)


def things(root, depth=12):
    """Everything below `root`."""
    for index in range(root.get_child_count()):
        child = root.get_child_at_index(index)
        if child:
            yield child
            if depth:
                yield from things(child, depth - 1)


def find(root, name, role=None):
    return wait_for(f"'{name}'", lambda: next(
        (t for t in things(root) if t.get_name() == name and (role is None or t.get_role_name() == role)), None))


def text_of(thing):
    return Atspi.Text.get_text(thing, 0, Atspi.Text.get_character_count(thing))


def enter(thing, text):
    """Puts a text into an entry, without the help that typing calls up."""
    Atspi.EditableText.set_text_contents(thing, text)
    wait_for(f"'{text}' in the entry", lambda: text_of(thing) == text)


def press(thing):
    """The thing's first action, as a screen reader offers it."""
    if not Atspi.Action.do_action(thing, 0):
        raise NotSeen(f"an action on '{thing.get_name()}'")


def caret_of(thing):
    """In characters."""
    return Atspi.Text.get_caret_offset(thing)


def selection_of(thing):
    selected = Atspi.Text.get_selection(thing, 0)
    return Atspi.Text.get_text(thing, selected.start_offset, selected.end_offset)


def is_focused(thing):
    return has_state(thing, Atspi.StateType.FOCUSED)


def colour_at(thing, offset):
    """Red, green and blue as "0,0,255"."""
    return Atspi.Text.get_attribute_run(thing, offset, True)[0].get("fg-color")
