# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Programs that paste in ways that strain the owner of the clipboard: it goes on serving the others."""

import os
import pathlib

from Xlib import X, Xatom
from Xlib.ext import res
from Xlib.protocol import event

from harness import convert, holds_for, png_bytes, wait_until
from hostile import HostileTestCase, sha256, text

HINT = "x-kde-passwordManagerHint"
# Today's servers take 16 MB in one request; larger answers go piece by piece.
LARGE_BYTES = 40_000_000


class RequestorsTestCase(HostileTestCase):
    def serve(self, data, target=None):
        """The program serves this, taken over from a program that has ended."""
        path = pathlib.Path(self.desktop.directory / "served")
        path.write_bytes(data)
        options = ["-t", target] if target else []
        with open(path, "rb") as source:
            copier = self.desktop.start("xclip", ["xclip", "-quiet", "-selection", "clipboard", *options], stdin=source)
        wait_until(lambda: self.zamber.history_path.stat().st_size >= len(data) and self.newest() != "old", 20.0,
                   "the copy in the history")
        copier.stop()
        wait_until(lambda: self.clipboard.owner() != 0, what="the clipboard to be taken over")

    def assert_served(self, requestor, target, data):
        (answer,) = requestor.ask(target)
        self.assertIsNotNone(answer, target)
        self.assertEqual((answer["bytes"], answer["sha256"]), (len(data), sha256(data)))
        return answer


class LargeRequestsTest(RequestorsTestCase):
    def test_requestors_that_die_or_dawdle_in_the_middle(self):
        data = b"0123456789abcdef" * (LARGE_BYTES // 16)
        self.serve(data)
        before = self.memory_bytes()
        for pieces in (1, 2, 30):
            with self.subTest(f"dies after {pieces}"):
                dying = self.requestor()
                self.partners.remove(dying)
                dying.begin_asking("UTF8_STRING", pieces=pieces)
                self.assertEqual(dying.child.wait(15), 0, dying.child.stderr())
                self.assert_popover_opens_fast()
        with self.subTest("takes nothing of what it asked for"):
            dawdling = self.requestor()
            dawdling.ask("UTF8_STRING", "STRING", "text/plain", times=10, take=False)
            self.assert_popover_opens_fast()
        with self.subTest("is stopped and goes on"):
            stopped = self.requestor()
            stopped.begin_asking("UTF8_STRING", times=2)
            stopped.child.pause()
            self.assert_popover_opens_fast()
            stopped.child.resume()
            self.assertEqual([answer and answer["sha256"] for answer in stopped.finish()], 2 * [sha256(data)])
        with self.subTest("others get it all"):
            self.assertTrue(self.assert_served(self.requestor(), "UTF8_STRING", data)["incremental"])
        self.assert_unharmed()
        # An answer that is not taken is still held; it is one copy for all requests.
        self.assert_memory_back(before)

    def test_many_large_requests_side_by_side_keep_nobody_waiting(self):
        data = b"0123456789abcdef" * (LARGE_BYTES // 16)
        self.serve(data)
        before = self.memory_bytes()
        many = [self.requestor() for _ in range(3)]
        for requestor in many:
            requestor.begin_asking("UTF8_STRING", times=4)
        self.assert_popover_opens_fast()
        for requestor in many:
            self.assertEqual([answer and answer["sha256"] for answer in requestor.finish(60)], 4 * [sha256(data)])
        self.assert_unharmed()
        self.assert_memory_back(before)


class ManyRequestsTest(RequestorsTestCase):
    def test_two_hundred_requests_at_once(self):
        data = ("many " * 20_000).encode()
        self.serve(data)
        requestor = self.requestor()
        with self.subTest("for a text"):
            requestor.begin_asking("UTF8_STRING", times=200)
            self.assert_popover_opens_fast()
            self.assertEqual({answer and answer["sha256"] for answer in requestor.finish()}, {sha256(data)})
        with self.subTest("for what there is not"):
            requestor.begin_asking("image/png", "application/x-unknown", "DELETE", "MULTIPLE", times=50)
            self.assert_popover_opens_fast()
            self.assertEqual(requestor.finish(), 200 * [None])
        self.assert_unharmed()

    def test_two_hundred_requests_for_a_picture_that_has_to_be_converted(self):
        picture = png_bytes(1000, 800, seed=9)
        self.serve(picture, "image/png")
        before = self.memory_bytes()
        requestor = self.requestor()
        alone = self.cpu_seconds()
        for _ in range(10):
            requestor.ask("image/bmp")
        alone = (self.cpu_seconds() - alone) / 10
        together = self.cpu_seconds()
        requestor.begin_asking("image/bmp", times=200)
        self.assert_popover_opens_fast()
        answers = requestor.finish()
        together = self.cpu_seconds() - together
        (bmp,) = {answer and (answer["type"], answer["bytes"], answer["sha256"]) for answer in answers}
        self.assertEqual(bmp[:2], ("image/bmp", len(convert(picture, "png", "bmp3"))))
        # Two hundred times as much, if each request had its own conversion; one conversion leaves only the sending.
        self.assertLess(together, 80 * alone)
        self.assert_unharmed()
        self.assert_memory_back(before)

    def cpu_seconds(self):
        """The processor time of the program, all threads together."""
        with open(f"/proc/{self.zamber.pid}/stat", encoding="ascii") as stat:
            user, system = stat.read().rpartition(")")[2].split()[11:13]
        return (int(user) + int(system)) / os.sysconf("SC_CLK_TCK")



class ConventionsTest(RequestorsTestCase):
    history = ("naïve – 1 €, ÿ", "old")

    def test_every_name_of_a_text(self):
        self.paste_entry(0)
        self.editor.wait_for_text(self.history[0])
        requestor = self.requestor()
        utf8 = self.history[0].encode()
        for target, kind in {"UTF8_STRING": "UTF8_STRING", "TEXT": "UTF8_STRING", "text/plain": "text/plain",
                             "text/plain;charset=utf-8": "text/plain;charset=utf-8"}.items():
            with self.subTest(target):
                self.assertEqual(self.assert_served(requestor, target, utf8)["type"], kind)
        with self.subTest("STRING is Latin-1, and what that does not have a question mark"):
            latin = self.assert_served(requestor, "STRING", "naïve ? 1 ?, ÿ".encode("latin-1"))
            self.assertEqual(latin["type"], "STRING")
        with self.subTest("TIMESTAMP"):
            (stamp,) = requestor.ask("TIMESTAMP")
            self.assertEqual((stamp["type"], stamp["format"], stamp["bytes"]), ("INTEGER", 32, 4))
            self.assertNotEqual(stamp["hex"], "00000000")
        with self.subTest("TARGETS"):
            (targets,) = requestor.ask("TARGETS")
            self.assertEqual((targets["type"], targets["format"]), ("ATOM", 32))
            self.assertLessEqual({"TARGETS", "TIMESTAMP", "MULTIPLE", "UTF8_STRING", "STRING"},
                                 set(self.clipboard.targets()))
        with self.subTest("MULTIPLE"):
            answers = requestor.multiple("UTF8_STRING", "image/png", "STRING", "TIMESTAMP")
            self.assertIsNone(answers[1])
            self.assertEqual([answers[index]["type"] for index in (0, 2, 3)], ["UTF8_STRING", "STRING", "INTEGER"])
            self.assertEqual(bytes.fromhex(answers[0]["hex"]), utf8)
        self.assert_unharmed()

    def test_strangers_that_meddle_with_our_windows(self):
        self.paste_entry(0)
        self.editor.wait_for_text(self.history[0])
        stranger = self.desktop.connect()
        self.addCleanup(stranger.close)
        stranger.set_error_handler(lambda *_: None)  # windows come and go
        for window in self.windows_of_ours(stranger):
            for name in ("ZAMBER_ANSWER", "ZAMBER_TEST_SCRIBBLE"):
                atom = stranger.intern_atom(name)
                window.change_property(atom, Xatom.STRING, 8, b"scribble")
                window.delete_property(atom)
                window.send_event(event.PropertyNotify(window=window, atom=atom, time=1, state=X.PropertyNewValue))
            clipboard = stranger.intern_atom("CLIPBOARD")
            window.send_event(event.SelectionClear(time=X.CurrentTime, window=window, atom=clipboard))
            window.send_event(event.SelectionNotify(time=1, requestor=window, selection=clipboard, target=clipboard,
                                                    property=X.NONE))
        stranger.sync()
        self.assert_popover_opens_fast()
        with self.subTest("what we own we go on serving"):
            self.assert_served(self.requestor(), "UTF8_STRING", self.history[0].encode())
        self.assert_unharmed()

    def windows_of_ours(self, display):
        """The windows that hold no pixels: ours for the clipboard and the like, with their owner's process id."""
        ids = display.res_query_client_ids([{"client": 0, "mask": res.LocalClientPIDMask}]).ids
        mine = {entry.spec.client for entry in ids if list(entry.value) == [self.zamber.pid]}
        mask = next(client.resource_mask for client in display.res_query_clients().clients)
        windows = [window for window in display.screen().root.query_tree().children
                   if window.id & ~mask in {client & ~mask for client in mine}]
        self.assertGreater(len(windows), 3)
        return windows


class HandOverTest(RequestorsTestCase):
    def test_programs_that_hand_their_copy_over_before_they_end(self):
        with self.subTest("a text"):
            owner = self.owner()
            owner.offer({"UTF8_STRING": text("last words"), "text/html": text("<b>last words</b>")})
            owner.hand_over()
            wait_until(lambda: owner.notes("handed_over") == [True], 5.0, "the clipboard manager to have it")
            self.partners.remove(owner)
            owner.child.kill()
            self.wait_for_newest("last words")
            wait_until(lambda: self.clipboard.owner() != 0, what="the clipboard to be taken over")
            self.assertEqual(self.clipboard.text(), "last words")
        with self.subTest("a secret is not taken"):
            owner = self.owner()
            owner.offer({HINT: text("secret"), "UTF8_STRING": text("my password")})
            owner.hand_over()
            wait_until(lambda: owner.notes("handed_over") == [False], 5.0, "the refusal")
            self.assertNotIn("UTF8_STRING", owner.requests())
        with self.subTest("what never comes does not make it wait for us when the user has pasted something else"):
            owner = self.owner()
            owner.offer({"UTF8_STRING": {"silent": True}})
            owner.hand_over()
            owner.wait_for_request("UTF8_STRING")
            self.paste_entry(1)
            self.editor.wait_for_text("old")
            wait_until(lambda: owner.notes("handed_over"), 3.0, "an answer")
        self.assert_unharmed()
        holds_for(lambda: self.clipboard.owner() != 0, 0.3, "the clipboard is owned")
