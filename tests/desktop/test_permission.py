# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""An X server without XTEST: the window about the missing permission, and all the rest, which works without it."""

from Xlib import X, Xatom
from Xlib.protocol import event

from case import PASTING_LINE, DesktopTestCase
from harness import holds_for, wait_until
from harness.zamber import UNTRUSTED_LINE

TITLE = "Zamber — Permission Required"
NOT_GRANTED_LINES = [
    "❌ Accessibility NOT granted. Clipboard is set — press ⌘+V manually.",
    "💡 To fix: System Settings → Privacy → Accessibility → add Xcode (or Zamber)",
    "💡 Then REMOVE it and RE-ADD it, then restart the app.",
]
# The actions that a window allows to the user (Motif's hints for window managers).
MAY_MINIMISE, MAY_MAXIMISE = 1 << 3, 1 << 4


class PermissionTest(DesktopTestCase):
    xtest = False
    ready_line = UNTRUSTED_LINE
    history = ("first", "second")

    def permission_window(self):
        return next((window for window in self.zamber.windows() if window.title == TITLE), None)

    def wait_for_permission_window(self):
        return wait_until(self.permission_window, what="the permission window")

    def property(self, window, name, kind):
        display = self.desktop.display
        reply = display.create_resource_object("window", window.id).get_full_property(display.intern_atom(name), kind)
        return list(reply.value) if reply else []

    def close_as_the_user_does(self, window):
        display = self.desktop.display
        message = event.ClientMessage(window=window.id, client_type=display.intern_atom("_NET_CLOSE_WINDOW"),
                                      data=(32, [X.CurrentTime, 2, 0, 0, 0]))
        display.screen().root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        display.sync()

    def test_the_window_is_centred_and_above_the_others(self):
        window = self.wait_for_permission_window()
        self.assertEqual(window.width, 380)
        self.assertGreaterEqual(window.height, 200)
        self.assertAlmostEqual(window.x + window.width / 2, 640, delta=4)
        self.assertAlmostEqual(window.y + window.height / 2, 414, delta=24)
        above = self.desktop.display.intern_atom("_NET_WM_STATE_ABOVE")
        wait_until(lambda: above in self.property(window, "_NET_WM_STATE", Xatom.ATOM), what="the state above")

    def test_the_keyboard_stays_where_it_was(self):
        self.wait_for_permission_window()

        def is_editor_in_front():
            active, focus = self.desktop.active_window(), self.desktop.focused_window()
            return active and focus and active.id == focus.id == self.editor.window.id

        holds_for(is_editor_in_front, 1.0,
                  lambda: f"active {self.desktop.active_window()}, focus {self.desktop.focused_window()}")

    def test_it_can_be_neither_resized_nor_minimised(self):
        window = self.wait_for_permission_window()
        resource = self.desktop.display.create_resource_object("window", window.id)
        hints = resource.get_wm_normal_hints()
        self.assertEqual((hints.min_width, hints.min_height), (window.width, window.height))
        self.assertEqual((hints.max_width, hints.max_height), (window.width, window.height))
        has_functions, functions = self.property(window, "_MOTIF_WM_HINTS", X.AnyPropertyType)[:2]
        self.assertTrue(has_functions & 1)
        self.assertEqual(functions & (MAY_MINIMISE | MAY_MAXIMISE), 0)

    def test_it_says_what_to_do(self):
        self.wait_for_permission_window()
        labels = [node.name for node in self.zamber.tree().all(role="label")]
        for text in ("Zamber needs Accessibility", "Click the + button", "Add Zamber (or Xcode)", "Toggle it on ✅",
                     "This window closes automatically once granted."):
            self.assertIn(text, labels)

    def test_closing_it_by_hand_ends_nothing(self):
        self.close_as_the_user_does(self.wait_for_permission_window())
        wait_until(lambda: self.permission_window() is None, what="the window to be gone")
        holds_for(lambda: self.permission_window() is None and self.zamber.is_running(), 2.2,
                  "the program runs and does not show it again")

    def test_the_clipboard_is_watched(self):
        self.copy_and_wait("third", ["third", "first", "second"])

    def test_a_chosen_entry_is_on_the_clipboard_and_the_log_says_how_to_go_on(self):
        self.wait_for_permission_window()
        self.desktop.activate(self.editor.window)
        self.zamber.activate_by_bus()
        self.zamber.wait_for_popover()
        row = wait_until(lambda: self.zamber.tree().all(role="list item", name="second"), what="the entry")[0]
        self.zamber.act(row, "Press")
        self.expected_lines += [PASTING_LINE, *NOT_GRANTED_LINES]
        self.zamber.wait_until_closed()
        self.desktop.wait_until_active(self.editor.window)
        self.wait_for_expected_lines()
        self.assertEqual(self.clipboard.text(), "second")
        self.assertEqual(self.editor.text(), "")


class TilingPermissionTest(PermissionTest):
    """It floats where windows are tiled."""

    window_manager = "i3"
