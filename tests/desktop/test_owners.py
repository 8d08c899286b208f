# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Programs that copy and then behave badly, or just end."""

import pathlib

from Xlib import X

from case import DesktopTestCase
from harness import SelectionOwner, holds_for, wait_until

HINT = "x-kde-passwordManagerHint"


class OwnersTest(DesktopTestCase):
    history = ("old",)

    def test_an_owner_that_never_delivers_costs_nothing(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"UTF8_STRING": None})
        wait_until(lambda: "UTF8_STRING" in owner.requests(), what="the request")
        self.paste_entry(0)
        self.editor.wait_for_text("old")
        self.copy_and_wait("next", ["next", "old"])

    def test_a_stopped_owner_costs_nothing(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"UTF8_STRING": b"late"})
        self.zamber.wait_for_history(["late", "old"])
        owner.child.pause()
        self.paste_entry(1)
        self.editor.wait_for_text("old")
        self.copy_and_wait("next", ["next", "late", "old"])
        owner.child.resume()

    def test_a_burst_of_copies_ends_with_the_last(self):
        owner = SelectionOwner(self.desktop)
        for number in range(60):
            owner.offer({"UTF8_STRING": b"copy %d" % number})
        wait_until(lambda: self.zamber.history()[:1] == ["copy 59"], 6.0, "the last copy")

    def test_a_secret_is_neither_asked_for_nor_kept(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({HINT: b"secret", "UTF8_STRING": b"my password"})
        wait_until(lambda: HINT in owner.requests(), what="the hint to be read")
        self.let_a_poll_pass()
        self.copy_and_wait("harmless", ["harmless", "old"])
        self.assertNotIn("UTF8_STRING", owner.requests())

    def test_a_hint_that_says_otherwise_is_no_secret(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({HINT: b"public", "UTF8_STRING": b"harmless"})
        self.zamber.wait_for_history(["harmless", "old"])

    def test_what_was_copied_outlives_the_program_it_was_copied_from(self):
        copier = self.clipboard.copy_text("orphan")
        self.zamber.wait_for_history(["orphan", "old"])
        copier.kill()
        wait_until(lambda: self.clipboard.text() == "orphan", 5.0, "the text to be served")
        self.keyboard.chord("Control_L", "v")
        self.editor.wait_for_text("orphan")
        self.let_a_poll_pass()
        self.copy_and_wait("next", ["next", "orphan", "old"])

    def test_what_was_cleared_on_purpose_stays_cleared(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"UTF8_STRING": b"cleared"})
        self.zamber.wait_for_history(["cleared", "old"])
        owner.release()
        holds_for(lambda: self.clipboard.owner() == 0, 0.8, "the clipboard is empty")

    def test_a_secret_dies_with_its_owner(self):
        owner = SelectionOwner(self.desktop)
        owner.offer({"UTF8_STRING": b"harmless"})
        self.zamber.wait_for_history(["harmless", "old"])
        owner.offer({HINT: b"secret", "UTF8_STRING": b"my password"})
        wait_until(lambda: HINT in owner.requests(), what="the hint to be read")
        owner.child.kill()
        wait_until(lambda: self.clipboard.owner() == 0, what="the owner to be gone")
        holds_for(lambda: self.clipboard.owner() == 0, 0.8, "the clipboard is empty")

    def test_what_was_pasted_can_be_pasted_again_after_the_program_is_gone_and_back(self):
        self.paste_entry(0)
        self.editor.wait_for_text("old")
        self.wait_for_expected_lines()
        self.assertEqual(self.clipboard.text(), "old")
        self.zamber.stop()
        self.expected_lines = []
        self.start_zamber()
        self.paste_entry(0)
        self.editor.wait_for_text("oldold")


class StartTest(DesktopTestCase):
    history = ("first",)

    def test_a_second_start_shows_the_popover_of_the_first(self):
        second = self.desktop.start("second", [self.zamber.binary])
        self.assertEqual(second.wait(5), 0)
        self.zamber.wait_for_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("first")
        self.assertEqual((second.stdout(), second.stderr()), ("", ""))

    def test_programs_are_told_of_a_clipboard_manager_that_comes(self):
        self.zamber.stop()
        self.expected_lines = []
        listener = self.desktop.connect()
        listener.screen().root.change_attributes(event_mask=X.StructureNotifyMask)
        listener.sync()
        manager, selection = listener.intern_atom("MANAGER"), listener.intern_atom("CLIPBOARD_MANAGER")
        self.start_zamber()
        told = []

        def is_told():
            told.extend(seen for seen in (listener.next_event() for _ in range(listener.pending_events()))
                        if seen.type == X.ClientMessage and seen.client_type == manager and seen.data[1][1] == selection)
            return told

        wait_until(is_told, 5.0, "the message")
        self.assertEqual(told[0].data[1][2], listener.get_selection_owner(selection).id)

    def test_without_a_display_it_says_so_and_ends(self):
        environment = {name: value for name, value in self.desktop.environment.items() if name != "DISPLAY"}
        # Its own bus address is wrong on purpose: the one that runs must not be asked.
        environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={pathlib.Path(self.desktop.directory) / 'none'}"
        lonely = self.desktop.start("lonely", [self.zamber.binary], environment=environment)
        self.assertGreater(lonely.wait(10), 0, "it has crashed instead")
        self.assertEqual(lonely.stdout(), "")
        self.assertNotEqual(lonely.stderr().strip(), "")
