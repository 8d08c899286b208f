# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A session of Wayland whose compositor has nothing but portals to offer, as GNOME's: hot keys and the paste.

The X server stands for XWayland. Where no window of X is in front, one of Wayland is; nobody but the portal sees it, so
the portal's record says what it would have got."""

import itertools

from Xlib import X
from Xlib.protocol import event

from case import PASTED_LINE, PASTING_LINE, DesktopTestCase
from harness import CONTROL, DesktopPortal, holds_for, wait_until
from harness.zamber import READY_LINE, UNTRUSTED_LINE
from test_permission import NOT_GRANTED_LINES
from test_settings import SettingsTestCase

PERMISSION_TITLE = "Zamber — Permission Required"
GRANTED_LINE = "✅ Accessibility granted!"
CONTROL_V = [["key", 29, 1], ["key", 47, 1], ["key", 47, 0], ["key", 29, 0]]
CLOSED = ["close session", "RemoteDesktop"]
ICONIC = 3


class PortalTestCase(DesktopTestCase):
    history = ("first", "second", "third")
    ready_line = UNTRUSTED_LINE
    portal_behaviour = {}

    def prepare(self):
        self.portal = DesktopPortal(self.desktop, **self.portal_behaviour)
        self.zamber.environment = dict(self.zamber.environment, XDG_SESSION_TYPE="wayland")

    def binds(self):
        return [sorted(asked[1]) for asked in self.portal.record() if asked[0] == "bind"]

    def wait_for_binds(self, *expected):
        wait_until(lambda: self.binds() == list(expected), 6.0, lambda: f"{expected}; asked for is {self.binds()}")

    def go_to_wayland(self):
        """The user turns to a program of Wayland: no window of X is in front any more."""
        display = self.desktop.display
        for window in [window for window in self.desktop.windows() if window.visible and window.title]:
            message = event.ClientMessage(window=window.id, client_type=display.intern_atom("WM_CHANGE_STATE"),
                                          data=(32, [ICONIC, 0, 0, 0, 0]))
            display.screen().root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        display.sync()
        wait_until(lambda: self.desktop.active_window() is None, 5.0, "no window of X in front")

    def open_popover(self):
        self.portal.press("open")
        self.zamber.wait_for_popover()
        self.portal.release("open")

    def permission_window(self):
        return self.desktop.window(title=PERMISSION_TITLE, pid=self.zamber.pid)

    def ask_for_access(self):
        """By the button of the window that appears at the start."""
        wait_until(self.permission_window, 5.0, "the permission window")
        (button,) = wait_until(lambda: self.zamber.tree().all(role="push button", name="Grant Access"), 5.0, "the button")
        self.zamber.act(button, "Press")

    def grant(self):
        self.ask_for_access()
        wait_until(lambda: self.permission_window() is None, 5.0, "the permission window to be gone")
        self.expected_lines.append(GRANTED_LINE)
        self.wait_for_expected_lines()

    def assert_only_the_clipboard_gets(self, position):
        """A program of Wayland is in front, into which nothing may be typed: the log says so."""
        self.go_to_wayland()
        self.open_popover()
        self.choose(position)
        self.expected_lines += [PASTING_LINE, *NOT_GRANTED_LINES]
        self.wait_for_expected_lines()
        self.assertEqual(self.clipboard.text(), self.history[position])


class PortalHotKeyTest(PortalTestCase):
    preferences = {"quickPasteEnabled": False}

    def test_it_opens_the_history_whatever_is_in_front_and_only_what_has_an_effect_is_asked_for(self):
        self.wait_for_binds(["open"])
        wait_until(self.permission_window, 5.0, "the permission window")
        self.go_to_wayland()
        self.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.assertEqual(self.portal.record()[0], ["register", "app.zamber.Zamber"])

    def test_a_key_whose_release_the_compositor_keeps_is_neither_typed_nor_stuck(self):
        """GNOME tells XWayland that the hot key's key is down when the popover gets the focus, and never that it is up."""
        self.wait_for_binds(["open"])
        self.portal.press("open")
        self.zamber.wait_for_popover()
        self.keyboard.press("v")
        holds_for(lambda: len(self.zamber.tree().all(role="list item")) == 3, 0.9, "the key's repetition is no search")
        self.portal.release("open")
        wait_until(lambda: not self.keyboard.held_keys(), 2.0, "the key to be let go of")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()

    def test_the_keys_of_quick_paste_follow_the_preference(self):
        self.wait_for_binds(["open"])
        self.zamber.write_preferences(quickPasteEnabled=True)
        self.wait_for_binds(["open"], ["open", "paste-second", "paste-third"])
        self.zamber.write_preferences(quickPasteEnabled=False)
        self.wait_for_binds(["open"], ["open", "paste-second", "paste-third"], ["open"])
        wait_until(lambda: self.portal.open_sessions() == 1, 3.0, "one session")


class PortalRefusedTest(PortalTestCase):
    portal_behaviour = {"shortcuts": "refuse"}

    def test_xs_hot_key_is_left_and_the_user_is_not_asked_at_the_next_start(self):
        self.wait_for_binds(["open"])
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.zamber.stop()
        self.start_zamber()
        del self.expected_lines[:2]
        holds_for(lambda: self.binds() == [["open"]], 1.0, "nobody is asked again")


class PortalSilentTest(PortalTestCase):
    """One question at a time: the window about the permission waits for the first dialog's end."""

    portal_behaviour = {"shortcuts": "silent"}
    ready_line = "📋 Loaded 3 items from disk"

    def test_a_dialog_that_nobody_answers_holds_nothing_up(self):
        del self.expected_lines[1:]
        self.wait_for_binds(["open"])
        self.zamber.open_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.copy_and_wait("new", ["new", *self.history])
        self.assertIsNone(self.permission_window())


class PortalPasteTest(PortalTestCase):
    preferences = {"quickPasteEnabled": True}

    def paste(self, position):
        self.open_popover()
        self.choose(position)
        self.expect_paste()
        self.wait_for_expected_lines()

    def test_it_is_typed_by_the_portal_in_a_session_that_ends_with_it(self):
        self.grant()
        self.go_to_wayland()
        for position in (1, 2):
            self.paste(position)
            self.portal.wait_for_record(["start", "by token"], *CONTROL_V, CLOSED)
            self.assertEqual(self.clipboard.text(), self.history[position])
        self.assertEqual([asked for asked in self.portal.record() if asked == ["start", "by dialog"]],
                         [["start", "by dialog"]])

    def test_the_consent_outlives_the_program(self):
        self.grant()
        self.zamber.stop()
        self.zamber = type(self.zamber)(self.desktop, ready_line=READY_LINE)
        self.zamber.environment = dict(self.zamber.environment, XDG_SESSION_TYPE="wayland")
        self.ready_line, self.expected_lines = READY_LINE, []
        self.start_zamber()
        self.wait_for_binds(*[["open", "paste-second", "paste-third"]] * 2)
        self.go_to_wayland()
        self.paste(0)
        self.portal.wait_for_record(["start", "by token"], *CONTROL_V, CLOSED)

    def test_quick_paste_waits_until_its_keys_are_up(self):
        self.grant()
        self.go_to_wayland()
        self.portal.press("paste-second")
        holds_for(lambda: ["key", 29, 1] not in self.portal.record(), 0.6, "nothing is typed while the keys are held")
        self.portal.release("paste-second")
        self.expected_lines.append(PASTED_LINE)
        self.portal.wait_for_record(*CONTROL_V, CLOSED)
        self.assertEqual(self.clipboard.text(), "second")

    def test_without_consent_the_entry_is_on_the_clipboard_and_the_log_says_so(self):
        wait_until(self.permission_window, 5.0, "the permission window")
        self.assert_only_the_clipboard_gets(1)
        self.portal.press("paste-third")
        self.portal.release("paste-third")
        wait_until(lambda: self.clipboard.text() == "third", 3.0, "the third entry on the clipboard")
        self.assertNotIn("start", itertools.chain(*self.portal.record()))

    def test_a_program_of_x_gets_its_keystroke_from_x_also_without_consent(self):
        self.desktop.activate(self.editor.window)
        self.desktop.wait_until_active(self.editor.window)
        self.open_popover()
        mark = self.keys.mark()
        self.choose(1)
        self.expect_paste()
        self.editor.wait_for_text("second")
        self.assert_pasted_by("v", CONTROL, mark)
        self.assertNotIn("start", itertools.chain(*self.portal.record()))


class PortalRefusedPasteTest(PortalTestCase):
    portal_behaviour = {"remote": "refuse"}

    def test_a_refusal_leaves_everything_as_it_was(self):
        self.ask_for_access()
        self.portal.wait_for_record(["start", "by dialog"], CLOSED)
        self.assert_only_the_clipboard_gets(2)


class OldPortalTest(PortalTestCase):
    """One that would ask at every paste, as before GNOME 46."""

    ready_line = READY_LINE
    portal_behaviour = {"remote_version": 1}

    def test_it_is_left_alone(self):
        self.wait_for_binds(["open"])
        self.assertIsNone(self.permission_window())
        self.assert_only_the_clipboard_gets(1)


class OfferedShortcutTest(SettingsTestCase):
    """GNOME's own shortcuts are offered where the portal has not bound the key, and not where it has."""

    ready_line = UNTRUSTED_LINE

    def prepare(self):
        self.portal = DesktopPortal(self.desktop)
        self.zamber.environment = dict(self.zamber.environment, XDG_SESSION_TYPE="wayland",
                                       XDG_CURRENT_DESKTOP="GNOME", NO_AT_BRIDGE="1")

    def is_offered(self):
        self.open_from_menu()
        self.go_to_page("Shortcuts")
        offers = self.node().all(role="check box", name="Use the desktop's own shortcut")
        self.keyboard.chord("Control_L", "w")
        wait_until(lambda: self.settings() is None, 3.0, "the settings to be gone")
        return bool(offers)

    def test_the_desktops_own_shortcut_is_offered_where_the_portal_has_none(self):
        wait_until(lambda: ["bind", {"open": "LOGO+SHIFT+v"}] in self.portal.record(), 5.0, "the binding")
        self.assertFalse(self.is_offered())
        self.portal.unassign("open")
        self.assertTrue(self.is_offered())
