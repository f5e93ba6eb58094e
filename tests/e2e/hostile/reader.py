# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen reader as a page meets it: it hears every event and asks about what the event is of. Prints a line once it
listens and, when it is ended, the most events of one second."""

import signal
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

heard = {}


def hear(event):
    second = int(time.monotonic())
    heard[second] = heard.get(second, 0) + 1
    try:
        event.source.get_name()
        event.source.get_role_name()
        event.source.get_child_count()
    except GLib.Error:  # it went away meanwhile
        pass


Atspi.init()
listener = Atspi.EventListener.new(hear)
for kind in ("object", "document", "window", "focus"):
    listener.register(kind)
signal.signal(signal.SIGTERM, lambda *_: Atspi.event_quit())
GLib.timeout_add(100, lambda: True)  # so that the signal is noticed
print("listening", flush=True)
Atspi.event_main()
print(max(heard.values(), default=0))
sys.exit(0)
