# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The package in the hands of a user: installed by dpkg into a clean root, started from the menu, used, removed."""

import pathlib

from case import DesktopTestCase
from harness import NotifierHost, wait_until
from harness.zamber import READY_LINE
from installed import LAUNCH_BY_FILE, LAUNCH_BY_NAME, InstalledZamber
from package import ID, Root, changes, declared, entry_keys, package, run, tree

CHECKED, UNCHECKED = "✓ Launch at Login", "  Launch at Login"
SETTINGS_TITLE = "Zamber Settings"


class InstalledTestCase(DesktopTestCase):
    def prepare(self):
        self.root = Root(self.desktop.directory / "root")
        self.before = self.root.tree()
        self.root.install(package())
        self.binary = self.root.folder / "usr" / "bin" / "zamber"
        share = self.root.folder / "usr" / "share"
        self.zamber = InstalledZamber(self.desktop, self.binary, PATH=self.binary.parent,
                                      XDG_DATA_DIRS=f"{self.entries_for_this_root(share)}:{share}")

    def entries_for_this_root(self, share):
        """A folder with the package's entry, whose program is named by its whole path, as it is below this root."""
        folder = self.desktop.directory / "share"
        (folder / "applications").mkdir(parents=True)
        entry = (share / "applications" / f"{ID}.desktop").read_text()
        self.assertIn("Exec=/usr/bin/zamber\n", entry)
        (folder / "applications" / f"{ID}.desktop").write_text(entry.replace("/usr/bin/zamber", str(self.binary)))
        return folder

    def start_zamber(self):
        self.launch(LAUNCH_BY_NAME, f"{ID}.desktop")

    def launch(self, script, entry):
        self.expected_lines.append(READY_LINE)
        self.zamber.launch(script, entry)

    def stop_zamber(self):
        """Looks at the log as after a case: the next start has one of its own."""
        self.wait_for_expected_lines()
        self.assert_lines(self.zamber.stdout_lines(), self.expected_lines)
        self.zamber.stop()
        self.zamber_has_ended = True

    def files_of_the_user(self):
        """The files in the user's folders, but for the window manager's log."""
        folders = {"home": self.desktop.home, "config": self.desktop.config_home, "data": self.desktop.data_home,
                   "cache": self.desktop.directory / "cache", "state": self.desktop.directory / "state"}
        return {f"{name}/{path}" for name, folder in folders.items()
                for path, (mode, _) in tree(folder).items() if not mode.startswith("d")} - {"cache/openbox/openbox.log"}


class FromTheMenuTest(InstalledTestCase):
    def test_it_is_installed_started_used_and_removed_without_a_trace_but_the_users_data(self):
        # It runs, and it is the installed one.
        self.assertEqual(self.root.status(), "Status: install ok installed")
        self.assertEqual(self.zamber.pids(), [self.zamber.pid])

        icon = self.click_tray_icon()
        self.assertGreater(icon.width, 0)
        self.zamber.wait_for_popover()
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()
        self.copy_and_wait("copied with the installed program", ["copied with the installed program"])
        self.zamber.open_popover()
        self.choose()
        self.expect_paste()
        self.editor.wait_for_text("copied with the installed program")

        # The tree is as it was packed while the program runs.
        self.assertEqual(run("dpkg", f"--root={self.root.folder}", "--verify", "zamber"), "")
        self.stop_zamber()
        self.root.remove()
        self.assertEqual(changes(self.before, self.root.tree()), {})
        self.assertIn(self.root.status(), (None, "Status: deinstall ok not-installed", "Status: purge ok not-installed"))
        self.assertEqual(self.files_of_the_user(),
                         {"data/Zamber/clipboard_history.json", "data/Zamber/clipboard_history.json.lock"})
        self.assertEqual(self.zamber.history(), ["copied with the installed program"])

    def test_purging_leaves_no_trace_either(self):
        self.stop_zamber()
        self.root.purge()
        self.assertEqual(changes(self.before, self.root.tree()), {})
        self.assertIn(self.root.status(), (None, "Status: purge ok not-installed"))

    def test_installed_again_over_itself_it_still_starts(self):
        self.stop_zamber()
        self.root.install(package())
        self.zamber_has_ended, self.expected_lines = False, []
        self.start_zamber()

    def test_the_settings_show_the_version_and_build_of_the_package(self):
        version, build, _ = declared()
        self.zamber.open_popover()
        (gear,) = self.zamber.tree().all(role="push button", name="Settings", states=["showing"])
        self.desktop.mouse.click(*gear.centre)
        wait_until(lambda: self.desktop.window(title=SETTINGS_TITLE, pid=self.zamber.pid), what="the settings")
        self.wait_for_label(f"v{version} ({build})")
        (about,) = self.zamber.tree().all(role="list item", name="About")
        self.desktop.mouse.click(*about.centre)
        self.wait_for_label(f"Version {version}")

    def wait_for_label(self, text):
        wait_until(lambda: self.zamber.tree().all(name=text, states=["showing"]), 5.0,
                   lambda: f"{text!r} in\n{self.zamber.tree().outline()}")


class AtLoginTest(InstalledTestCase):
    tray = "none"

    def prepare(self):
        super().prepare()
        self.host = NotifierHost(self.desktop)

    def launch(self, script, entry):
        super().launch(script, entry)
        self.host.wait_for_item()

    def title(self):
        return self.host.open_menu()["lines"][2]["label"]

    def test_the_login_item_starts_the_installed_program(self):
        self.host.choose(UNCHECKED)
        self.expected_lines.append("✅ Launch at Login: enabled")
        self.wait_for_expected_lines()
        entry = self.zamber.autostart_path()
        keys = entry_keys(entry)
        self.assertEqual((keys["Exec"], keys["TryExec"], keys["Icon"]), (str(self.binary), str(self.binary), ID))
        run("desktop-file-validate", entry)

        self.stop_zamber()
        self.zamber_has_ended, self.expected_lines = False, []
        self.launch(LAUNCH_BY_FILE, entry)
        self.assertEqual(self.title(), CHECKED)

    def test_one_that_stays_behind_when_the_package_is_removed_starts_nothing(self):
        self.host.choose(UNCHECKED)
        self.expected_lines.append("✅ Launch at Login: enabled")
        self.stop_zamber()
        self.root.remove()
        # Sessions pass over an entry whose TryExec is not there.
        self.assertFalse(pathlib.Path(entry_keys(self.zamber.autostart_path())["TryExec"]).exists())
        with self.assertRaises(AssertionError):
            self.zamber.launch(LAUNCH_BY_FILE, self.zamber.autostart_path())
