# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""What private desktops of either kind have in common."""

from harness import KEY_CODES, Editor


class HarnessCase:
    """The desktop is made by the cases that this is a part of."""

    def make_desktop(self):
        raise NotImplementedError

    def setUp(self):
        self.desktop = self.enterContext(self.make_desktop())
        self.keyboard = self.desktop.keyboard

    def test_keys_reach_the_active_window_alone(self):
        bystander = Editor(self.desktop, "Bystander", geometry="300x200+700+500")
        editor = Editor(self.desktop)
        self.keyboard.type_text("Hello, World!")
        editor.wait_for_text("Hello, World!")
        self.assertEqual(bystander.keys(), [])
        bystander.activate()
        self.keyboard.type_text("x")
        bystander.wait_for_text("x")
        self.assertEqual([key["code"] for key in bystander.keys() if key["pressed"]], [KEY_CODES["x"]])
