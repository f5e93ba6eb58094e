# SPDX-License-Identifier: GPL-3.0-or-later
"""One sitting with the installed program, driven from outside as a person with a screen reader and a keyboard would."""
import os
import subprocess
import sys

import desktop

desktop.on_private_bus()

from screen_reader import (  # noqa: E402
    Reader, caret_of, colour_at, enter, find, is_focused, keys, press, selection_of, showing, text_of, things,
    type_text, wait_for)

PAGE = "<HTML>\n<P>caf\u00e9</P>\n</HTML>\n"
MAIN_WINDOW_NAMES = (
    "Document", "Line numbers", "Information", "Line", "Column", "Characters", "Lines", "Font face", "Font size",
    "OPEN FILE", "SAVE AS", "PRINT", "CUT", "COPY", "PASTE", "CLIPPING PAD", "FIND AND REPLACE",
    "MULTI-PAGE REPLACE", "COLOR CODE TEXT", "NO COLOR CODING", "COLOR FINDER", "VIEW IMAGE", "RUN DEBUGGER",
    "USE LINE DEBUGGING", "NO LINE DEBUGGING", "AUTOSAVE")
SETTINGS_NAMES = (
    "Webpage temp folder", "Autosave interval", "Default font face", "Default font size", "Program path",
    "Menu text", "Popup menu when fso. is typed", "No popup menu", "Autosave on at startup")
FIND_NAMES = ("String to find", "Replacement", "Number of occurrences", "FIND NEXT", "REPLACE ALL")
BROWSER_NAMES = ("Link target", "Page", "VIEW TEXT", "EXIT", "Loading")
PANEL_NAMES = ("Sampled color", "Image size", "Image path", "Color code", "Hex code")
SCRIPT = 'If a = 1 Then\nMsgBox "text"\n'
TYPED = "typed<P></P>"
FOUND = "found<P></P>"
BLUE = "0,0,255"
BLACK = "0,0,0"


def expect_names(window, names):
    told = {thing.get_name() for thing in things(window)}
    assert told.issuperset(names), f"never told: {set(names) - told}"


class Sitting:
    def __init__(self, here, build):
        program = os.path.join(here.home, "installed")
        subprocess.run(["cmake", "--install", build, "--prefix", program], check=True, stdout=subprocess.DEVNULL)
        self.folder = os.path.join(here.home, "pages")
        os.mkdir(self.folder)
        self.process = here.start(os.path.join(program, "bin", "kevra"))
        self.reader = Reader(self.process)
        self.window = self.reader.window("KEVRA")

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8", newline="") as file:
            file.write(text)

    def read(self, name):
        with open(self.path(name), encoding="utf-8", newline="") as file:
            return file.read()

    @property
    def document(self):
        return find(self.window, "Document", "text")

    def expect_text(self, text):
        wait_for(f"the document to be {text!r}, not {text_of(self.document)!r}",
                 lambda: text_of(self.document).replace("\r\n", "\n") == text)

    def expect_colour(self, piece, colour):
        wait_for(f"'{piece}' in {colour}", lambda: colour_at(
            self.document, text_of(self.document).index(piece)) == colour)

    def open(self, name, leaving_unsaved=False):
        self.reader.activate("KEVRA")
        keys("ctrl+o")
        if leaving_unsaved:
            self.answer("Save the current text?", "No")
        dialog = self.reader.active_window("Open a File")
        enter(find(dialog, "File name:", "text"), self.path(name))
        press(find(dialog, "Open", "push button"))

    def answer(self, question, button):
        box = wait_for(f"the question '{question}'", lambda: next(
            (w for w in self.reader.windows() for t in things(w) if showing(w) and t.get_name() == question), None))
        press(find(box, button))


def greets_at_the_first_start(sitting):
    greeting = sitting.reader.window("KEVRA information")
    find(greeting, "THIS WINDOW WILL SHOW ONLY AT FIRST STARTUP")
    press(find(greeting, "Close"))
    sitting.reader.no_window("KEVRA information")


def names_every_control(sitting):
    expect_names(sitting.window, MAIN_WINDOW_NAMES + PANEL_NAMES)


def opens_and_colours_a_page(sitting):
    sitting.write("page.htm", PAGE)
    sitting.open("page.htm")
    sitting.reader.window("KEVRA - " + sitting.path("page.htm"))
    sitting.expect_text(PAGE)
    sitting.expect_colour("<P>", BLUE)
    sitting.expect_colour("caf", BLACK)


def types_into_it(sitting):
    sitting.reader.activate("KEVRA")
    keys("ctrl+End")
    type_text("typed")
    sitting.expect_text(PAGE + "typed")


def puts_a_snippet_in(sitting):
    press(find(sitting.window, "P", "push button"))
    sitting.expect_text(PAGE + "typed<P>")
    wait_for("the focus back in the document", lambda: is_focused(sitting.document))
    type_text("</P>")
    sitting.expect_text(PAGE + TYPED)
    sitting.expect_colour("<P></P>", BLUE)


def goes_to_a_line(sitting):
    keys("ctrl+g")
    sitting.reader.active_window("Go to Line")
    type_text("2")
    keys("Return")
    sitting.reader.no_window("Go to Line")
    wait_for("the caret on line 2", lambda: caret_of(sitting.document) == text_of(sitting.document).index("<P>caf"))


def finds_and_replaces(sitting):
    keys("ctrl+f")
    dialog = sitting.reader.active_window("Find and Replace")
    expect_names(dialog, FIND_NAMES)
    type_text("typed")
    keys("Return")
    wait_for("the hit selected", lambda: selection_of(sitting.document) == "typed")
    press(find(dialog, "Find number of occurences"))
    counted = find(dialog, "Number of occurrences", "text")
    wait_for("one occurrence counted", lambda: text_of(counted) == "1")
    enter(find(dialog, "Replacement", "text"), "found")
    press(find(dialog, "REPLACE THIS"))
    sitting.expect_text(PAGE + FOUND)
    keys("Escape")
    sitting.reader.no_window("Find and Replace")


def looks_at_the_page(sitting):
    sitting.reader.activate("KEVRA")
    keys("F5")
    page = sitting.reader.active_window("KEVRA - " + sitting.path("page.htm"))
    expect_names(page, BROWSER_NAMES)
    find(page, "caf\u00e9")
    assert sitting.read("kevratemp.html").replace("\r\n", "\n") == PAGE + FOUND
    keys("Escape")
    wait_for("the text in front again", lambda: is_focused(sitting.document))
    assert not os.path.exists(sitting.path("kevratemp.html"))


def keeps_pieces_in_the_pad(sitting):
    keys("ctrl+a", "ctrl+c", "ctrl+d")
    pad = sitting.reader.active_window("Clipping Pad")
    keys("ctrl+v")
    parked = find(pad, "Clipping pad", "text")
    wait_for("the piece in the pad", lambda: text_of(parked).replace("\r\n", "\n") == PAGE + FOUND)
    keys("alt+F4")
    sitting.reader.no_window("Clipping Pad")


def sets_an_option(sitting):
    sitting.reader.activate("KEVRA")
    keys("ctrl+comma")
    settings = sitting.reader.active_window("Settings")
    expect_names(settings, SETTINGS_NAMES)
    press(find(settings, "Do not include comments with auto-insert"))
    stored = os.path.join(os.environ["XDG_CONFIG_HOME"], "kevra", "kevra285.ini")
    wait_for("the option in the store", lambda: "ifcoms=no" in open(stored, encoding="utf-8").read())
    keys("Escape")
    sitting.reader.no_window("Settings")


def saves_what_was_typed(sitting):
    sitting.reader.activate("KEVRA")
    keys("ctrl+s")
    wait_for("the saved file", lambda: sitting.read("page.htm") == PAGE + FOUND)


def offers_the_recent_files(sitting):
    sitting.write("other.txt", "other")
    sitting.open("other.txt")
    sitting.expect_text("other")
    keys("alt+f", "r", "2")
    sitting.answer("Save the current text?", "No")
    sitting.expect_text(PAGE + FOUND)


def checks_a_script(sitting):
    sitting.write("script.vbs", SCRIPT)
    sitting.open("script.vbs", leaving_unsaved=True)
    sitting.expect_text(SCRIPT)
    sitting.expect_colour("If", BLUE)
    sitting.expect_colour("text", BLACK)
    keys("F8")
    information = find(sitting.window, "Information", "text")
    wait_for(f"a verdict, not {text_of(information)!r}", lambda: "END IF" in text_of(information).upper())


def asks_before_it_quits(sitting):
    type_text("!")
    keys("ctrl+q")
    sitting.answer("Save current text?", "Cancel")
    sitting.reader.activate("KEVRA")
    keys("ctrl+q")
    sitting.answer("Save current text?", "No")
    assert sitting.process.wait(10) == 0, "the program's exit status"
    assert sitting.read("script.vbs") == SCRIPT


STEPS = (
    greets_at_the_first_start,
    names_every_control,
    opens_and_colours_a_page,
    types_into_it,
    puts_a_snippet_in,
    goes_to_a_line,
    finds_and_replaces,
    looks_at_the_page,
    keeps_pieces_in_the_pad,
    sets_an_option,
    saves_what_was_typed,
    offers_the_recent_files,
    checks_a_script,
    asks_before_it_quits,
)


def main():
    with desktop.Desktop() as here:
        sitting = Sitting(here, sys.argv[1])
        for step in STEPS:
            print(step.__name__.replace("_", " "), flush=True)
            try:
                step(sitting)
            except BaseException:
                here.keep_picture("e2e-failure.png")
                raise
    print("all steps")


main()
