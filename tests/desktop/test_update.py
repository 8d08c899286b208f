# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The look for a newer version, by the real program at a service of the tests' own, and what is left of it."""

import json
import os
import pathlib
import signal
import subprocess

from case import DesktopTestCase
from harness import wait_until

CHECK_SECONDS = 20.0
END_SECONDS = 5.0
FETCH = "zamber-fetch"
PARTNER = pathlib.Path(__file__).parent / "partners" / "update_service.py"
TLS = ("libssl", "libcrypto", "libQt6Network")


def namespaces():
    """What runs a program with a network and mounts of its own, and the right to change them."""
    if os.geteuid() == 0:
        return ["unshare", "--net", "--mount", "--"]
    return ["unshare", "--user", "--map-current-user", "--keep-caps", "--net", "--mount", "--"]


def libraries(pid):
    """The file names of what the process has mapped."""
    maps = pathlib.Path(f"/proc/{pid}/maps").read_text().splitlines()
    return {pathlib.Path(line.split(maxsplit=5)[5]).name for line in maps if len(line.split(maxsplit=5)) == 6}


class UpdateTestCase(DesktopTestCase):
    answer = None

    def prepare(self):
        self.folder = self.desktop.directory / "service"
        certificates = self.folder / "certificates"
        certificates.mkdir(parents=True)
        self.make_certificate(certificates / "authority", "Authority of the tests", "basicConstraints=critical,CA:TRUE")
        authority = certificates / "authority.pem"
        self.make_certificate(self.folder / "service", "Service", "subjectAltName=DNS:zamber.example",
                              "-CA", authority, "-CAkey", certificates / "authority.key")
        # Authorities are looked up by this name.
        name = self.desktop.run(["openssl", "x509", "-hash", "-noout", "-in", authority]).strip()
        (certificates / f"{name}.0").symlink_to(authority.name)
        if self.answer is not None:
            (self.folder / "answer").write_text(json.dumps(self.answer))
        self.zamber.started_by = [*namespaces(), "/usr/bin/python3", PARTNER, self.folder]

    def make_certificate(self, path, name, extension, *arguments):
        self.desktop.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                          "-nodes", "-days", "2", "-subj", f"/CN={name}", "-addext", extension,
                          "-keyout", path.with_suffix(".key"), "-out", path.with_suffix(".pem"), *arguments])

    def requests(self):
        path = self.folder / "requests"
        return path.read_text().splitlines() if path.exists() else []

    def wait_for_request(self):
        wait_until(self.requests, CHECK_SECONDS, lambda: f"a request; the log is {self.zamber.child.stdout_lines()}")
        version, _, rest = self.requests()[0].removeprefix("GET /api/update/check?version=").partition("&")
        self.assertRegex(version, r"\d+\.\d+\.\d+")
        self.assertRegex(rest, r"build=\d+ HTTP/1\.1")

    def fetching(self):
        """The processes that make a request for the program."""
        return [int(pid) for task in pathlib.Path(f"/proc/{self.zamber.pid}/task").iterdir()
                for pid in (task / "children").read_text().split()
                if pathlib.Path(f"/proc/{pid}/comm").read_text().strip() == FETCH]


class UpdateTest(UpdateTestCase):
    answer = {"updateAvailable": True, "latestVersion": "9.9.9", "downloadUrl": "https://zamber.example/get"}

    def test_it_is_learnt_of_a_newer_version_and_nothing_is_left_of_the_request(self):
        self.expected_lines.append("🔄 Update available: v9.9.9")
        self.wait_for_request()
        self.wait_for_expected_lines()
        self.assertEqual(self.fetching(), [])
        mapped = libraries(self.zamber.pid)
        self.assertTrue([name for name in mapped if name.startswith("libQt6Core")])
        self.assertEqual([name for name in mapped if name.startswith(TLS)], [])
        self.assertEqual(len(self.requests()), 1)
        self.zamber.open_popover()
        tree = self.zamber.tree()
        self.assertTrue(tree.all(name="v9.9.9 available"), "the banner")
        self.keyboard.tap("Escape")
        self.zamber.wait_until_closed()


class UnfinishedUpdateTest(UpdateTestCase):
    """The service is silent."""

    def request_under_way(self):
        self.wait_for_request()
        fetching = self.fetching()
        self.assertEqual(len(fetching), 1)
        mapped = libraries(fetching[0])
        for library in TLS:
            self.assertTrue([name for name in mapped if name.startswith(library)], library)
        return pathlib.Path(f"/proc/{fetching[0]}")

    def test_quitting_ends_the_request(self):
        request = self.request_under_way()
        self.zamber.child.process.send_signal(signal.SIGTERM)
        try:
            self.assertEqual(self.zamber.child.wait(END_SECONDS), 0)
        except subprocess.TimeoutExpired:
            self.fail(f"still running {END_SECONDS} s after the signal")
        self.zamber_has_ended = True
        self.assertFalse(request.exists(), "the process of the request is still there")

    def test_a_request_does_not_outlive_a_program_that_is_killed(self):
        request = self.request_under_way()
        self.zamber.child.process.kill()
        self.zamber.child.wait(END_SECONDS)
        self.zamber_has_ended = True
        wait_until(lambda: not request.exists() or "State:\tZ" in (request / "status").read_text(), END_SECONDS,
                   "the process of the request to end")
