# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Which program a window belongs to: the name in the log, and the machine that it runs on."""

from Xlib import Xatom

from case import PASTED_LINE, DesktopTestCase
from harness import CONTROL, Editor


class ApplicationNamesTest(DesktopTestCase):
    history = ("first",)

    def prepare(self):
        self.zamber.environment = dict(self.zamber.environment, LANGUAGE="de_AT:fr")
        self.applications = self.desktop.data_home / "applications"
        self.write_entry("editor", "Name=Editor", "Name[fr]=Rédacteur", "Name[de]=Bearbeiter")

    def write_entry(self, name, *keys):
        path = self.applications / f"{name}.desktop"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join(["[Desktop Entry]", "Type=Application", "Exec=true", *keys, ""]))

    def expect_paste_into(self, name):
        self.zamber.open_popover()
        self.choose()
        self.expected_lines += [f"🔵 Pasting into: {name}", PASTED_LINE]
        self.wait_for_expected_lines()
        self.assertEqual(self.zamber.stdout_lines()[-2:], self.expected_lines[-2:])

    def start_editor(self, class_name):
        return Editor(self.desktop, f"Window of {class_name.strip('./')[:20]}", class_name=class_name)

    def test_it_is_in_the_users_language(self):
        self.expect_paste_into("Bearbeiter")

    def test_a_window_class_that_an_entry_names_is_that_programs(self):
        self.write_entry("org.example.Writer", "Name=Writer", "Name[fr]=Écrivain", "StartupWMClass=writer-bin")
        self.start_editor("Writer-bin")
        self.expect_paste_into("Écrivain")

    def test_an_entry_in_a_folder_of_its_own_is_found(self):
        self.write_entry("vendor/tool", "Name=Vendor's tool", "StartupWMClass=vtool")
        self.start_editor("vtool")
        self.expect_paste_into("Vendor's tool")

    def test_a_program_installed_meanwhile_has_its_name_from_then_on(self):
        self.start_editor("Newcomer-bin")
        self.expect_paste_into("Newcomer-bin")
        self.write_entry("newcomer", "Name=Newcomer", "StartupWMClass=Newcomer-bin")
        self.expect_paste_into("Newcomer")

    def test_a_window_class_names_no_file_elsewhere(self):
        self.write_entry("../secret", "Name=Secret")
        self.start_editor("../secret")
        self.expect_paste_into("../secret")

    def test_a_window_class_without_end_and_full_of_control_characters_costs_a_short_line(self):
        self.start_editor("\x1b[31mred\n" + "x" * 20_000)
        self.zamber.open_popover()
        self.choose()
        self.wait_until_pasted()
        line = self.zamber.stdout_lines()[-2]
        self.assertTrue(line.startswith("🔵 Pasting into: ␛[31mred␊xxx"), line[:80])
        self.assertTrue(line.endswith("x…"), line[-80:])
        self.assertLess(len(line), 4100)
        self.expected_lines += [line, PASTED_LINE]

    def wait_until_pasted(self):
        self.expected_lines += [None, None]
        self.wait_for_expected_lines()
        del self.expected_lines[-2:]


class WindowOfAnotherMachineTest(DesktopTestCase):
    """Its process id may be that of this program's, and says nothing."""

    history = ("first", "second")
    preferences = {"quickPasteEnabled": True}

    def set_property(self, name, kind, size, value):
        display = self.desktop.display
        window = display.create_resource_object("window", self.editor.window.id)
        window.change_property(display.intern_atom(name), kind, size, value)
        display.sync()

    def test_it_is_pasted_into_when_it_comes_to_the_front_while_the_keys_are_held(self):
        """A window of this program that comes while the paste waits gets nothing."""
        self.set_property("WM_CLIENT_MACHINE", Xatom.STRING, 8, b"elsewhere.example")
        self.set_property("_NET_WM_PID", Xatom.CARDINAL, 32, [self.zamber.pid])
        self.bystander_may_get_keys = True
        self.bystander.activate()
        self.expected_lines.append(PASTED_LINE)
        self.keyboard.play((0.0, "+Super_L"), (0.02, "+Shift_L"), (0.08, "+2"), (0.4, "-2"))
        self.editor.activate()
        self.keyboard.play((0.0, "-Shift_L"), (0.1, "-Super_L"))
        self.editor.wait_for_text("second")
        self.assertEqual(self.bystander.text(), "")
