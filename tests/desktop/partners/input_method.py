#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Two input methods of IBus: "phrases" composes letters, from which a person chooses a phrase, as one writes Chinese;
"syllables" makes a syllable of each two letters and writes it with the first letter of the next, as one writes Korean.
The one that is named becomes the one in use. Whatever an input method is told is a line of JSON in a file."""

import json
import sys

import gi

gi.require_version("IBus", "1.0")
from gi.repository import GLib, IBus  # noqa: E402

PHRASES = {"nihao": ["你好", "拟好", "你号"]}
SYLLABLES = {"ga": "가", "na": "나", "da": "다"}
NAMES = ("phrases", "syllables")
SERVICE = "app.zamber.tests.InputMethod"
HANDS_OFF = (IBus.ModifierType.RELEASE_MASK | IBus.ModifierType.CONTROL_MASK | IBus.ModifierType.MOD1_MASK
             | IBus.ModifierType.SUPER_MASK | IBus.ModifierType.MOD4_MASK)

log = open(sys.argv[2], "a", encoding="utf-8", buffering=1)


def note(**told):
    log.write(json.dumps(told) + "\n")


class Engine(IBus.Engine):
    """Shows what is being composed in the program's own text, and takes the keys that belong to it."""

    letters, choice = "", 0

    def do_process_key_event(self, symbol, _, state):
        if state & HANDS_OFF:
            return False
        name = IBus.keyval_name(symbol)
        is_letter = len(name) == 1 and "a" <= name <= "z"
        takes = (is_letter or bool(self.letters)) and self.take(name, is_letter)
        note(key=name, taken=takes)
        return takes

    def take(self, name, is_letter):
        raise NotImplementedError

    def compose(self, letters):
        self.letters, self.choice = letters, 0
        shown = IBus.Text.new_from_string(letters)
        shown.append_attribute(IBus.AttrType.UNDERLINE, IBus.AttrUnderline.SINGLE, 0, len(letters))
        self.update_preedit_text(shown, len(letters), bool(letters))

    def write(self, text):
        self.commit_text(IBus.Text.new_from_string(text))

    def do_set_cursor_location(self, x, y, width, height):
        note(caret=[x, y, width, height])

    def do_focus_in(self):
        note(focus=True)

    def do_focus_out(self):
        self.letters = ""
        note(focus=False)

    def do_reset(self):
        self.letters = ""
        note(reset=True)


class Phrases(Engine):
    __gtype_name__ = "Phrases"

    def take(self, name, is_letter):
        phrases = PHRASES.get(self.letters, [self.letters])
        if is_letter:
            self.compose(self.letters + name)
        elif name == "BackSpace":
            self.compose(self.letters[:-1])
        elif name == "Escape":
            self.compose("")
        elif name in ("Up", "Down"):
            self.choice = (self.choice + (1 if name == "Down" else -1)) % len(phrases)
        elif name == "Return":
            self.finish(self.letters)
        elif name == "space":
            self.finish(phrases[self.choice])
        elif name.isdigit() and 0 < int(name) <= len(phrases):
            self.finish(phrases[int(name) - 1])
        return True  # whatever is pressed in between is no one else's

    def finish(self, text):
        self.compose("")
        self.write(text)


class Syllables(Engine):
    __gtype_name__ = "Syllables"

    def take(self, name, is_letter):
        if is_letter and len(self.letters) == 2:
            self.write(SYLLABLES.get(self.letters, self.letters))
            self.compose(name)
        elif is_letter:
            self.compose(self.letters + name)
        elif name == "BackSpace":
            self.compose(self.letters[:-1])
        else:  # any other key ends the syllable and does what it does
            letters = self.letters
            self.compose("")
            self.write(SYLLABLES.get(letters, letters))
            return False
        return True


IBus.init()
bus = IBus.Bus()
factory = IBus.Factory.new(bus.get_connection())
component = IBus.Component.new(SERVICE, "Tests", "1", "MIT", "", "", "", "")
for name, kind in zip(NAMES, (Phrases, Syllables)):
    factory.add_engine(name, kind.__gtype__)
    component.add_engine(IBus.EngineDesc.new(name, name, "", "en", "MIT", "", "", "us"))
if not bus.register_component(component):
    sys.exit("the daemon does not take the component")
bus.request_name(SERVICE, 0)
loop = GLib.MainLoop()
bus.connect("disconnected", lambda _: loop.quit())


def is_chosen(_, answer):
    note(ready=bus.set_global_engine_async_finish(answer))


bus.set_global_engine_async(sys.argv[1], -1, None, is_chosen)
loop.run()
