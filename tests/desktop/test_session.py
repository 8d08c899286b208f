# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A session manager that starts the programs of the last session again."""

from case import DesktopTestCase
from harness import SessionManager, wait_until

RESTART_NEVER = 3


class SessionManagerTest(DesktopTestCase):
    history = ("first",)

    def prepare(self):
        self.manager = SessionManager(self.desktop)
        self.zamber.environment = dict(self.zamber.environment, SESSION_MANAGER=self.manager.address)

    def restart_hints(self):
        told = self.manager.told()
        return [properties["RestartStyleHint"] for properties in told if "RestartStyleHint" in properties]

    def test_it_is_told_never_to_start_the_program(self):
        wait_until(self.restart_hints, what=lambda: f"the program's hint; {self.manager.told()}")
        self.assertEqual(set(self.restart_hints()), {RESTART_NEVER})
        known = len(self.restart_hints())
        self.manager.save()
        wait_until(lambda: len(self.restart_hints()) > known, what="its hint when the session is saved")
        self.assertEqual(set(self.restart_hints()), {RESTART_NEVER})


class OpenedAddressTest(DesktopTestCase):
    """Programs that the history opens are started as the desktop would start them."""

    address = "https://example.org/page"
    history = (f"see {address} there",)
    preferences = {"previewURLs": True}

    def prepare(self):
        folder = self.desktop.directory / "programs"
        folder.mkdir()
        self.report = folder / "report"
        opener = folder / "xdg-open"
        opener.write_text(f"""#!/bin/sh
echo "printed by a browser"; echo "warned by a browser" >&2
streams=$(for stream in 0 1 2; do readlink /proc/$$/fd/$stream; done)
{{ echo "address $1"; env; echo "$streams"; }} >{self.report}.new
mv {self.report}.new {self.report}
""")
        opener.chmod(0o755)
        path = f"{folder}:{self.desktop.environment['PATH']}"
        self.zamber.environment = dict(self.zamber.environment, PATH=path, QT_QPA_PLATFORM="wayland;xcb",
                                       DESKTOP_STARTUP_ID="of-this-program")

    def test_it_has_the_users_environment_and_no_part_in_the_log(self):
        popover = self.zamber.open_popover()
        self.desktop.mouse.click(popover.x + popover.width // 2, popover.y + 90, 3)
        wait_until(self.zamber.menu, what="the row's menu")
        self.keyboard.tap("Down", "Down", "Return")
        wait_until(self.report.exists, what="the program for addresses")
        lines = self.report.read_text().splitlines()
        self.assertIn(f"address {self.address}", lines)
        self.assertIn("QT_QPA_PLATFORM=wayland;xcb", lines)
        self.assertEqual([line for line in lines if line.startswith(("QT_QPA_UPDATE", "DESKTOP_STARTUP"))], [])
        self.assertEqual(lines.count("/dev/null"), 3)


class WithoutSessionBusTest(DesktopTestCase):
    """Without a bus the running program cannot be asked; two programs would write the same history."""

    history = ("first",)

    def prepare(self):
        self.zamber.environment = dict(self.zamber.environment, DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")

    def start_another(self):
        environment = dict(self.desktop.environment, **self.zamber.environment)
        return self.desktop.start("another", [self.zamber.binary], environment=environment)

    def test_the_second_is_refused_and_says_so(self):
        another = self.start_another()
        self.assertNotEqual(another.wait(10), 0)
        self.assertEqual(another.stdout(), "")
        self.assertIn("is running already", another.stderr())
        self.copy_and_wait("second", ["second", "first"])

    def test_after_a_crash_the_next_start_works(self):
        self.zamber.child.kill()
        self.zamber.start()
        self.copy_and_wait("second", ["second", "first"])


class SeveralSessionsTest(WithoutSessionBusTest):
    """The user is logged in twice, each time with a bus of its own."""

    def prepare(self):
        pass

    def start_another(self):
        bus = self.desktop.start("another bus", ["dbus-daemon", "--session", "--nofork", "--print-address",
                                                 f"--address=unix:dir={self.desktop.runtime_folder}"])
        wait_until(bus.stdout_lines, what="the other session's bus")
        environment = dict(self.desktop.environment, DBUS_SESSION_BUS_ADDRESS=bus.stdout_lines()[0])
        return self.desktop.start("another", [self.zamber.binary], environment=environment)
