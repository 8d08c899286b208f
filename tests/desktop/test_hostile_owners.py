# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Programs that copy and then hang, lie, stall or vanish: the user notices nothing of it."""

import resource
import struct
import time
import zlib

from case import PASTED_LINE, PASTING_LINE
from harness import holds_for, png_bytes, wait_until
from hostile import HINT, MEBIBYTE, HostileTestCase, sha256, text

MOST_REQUESTS_A_CHANGE = 3
PIECE_BYTES = 200_000


class SilentOwnersTest(HostileTestCase):
    def test_an_owner_that_answers_nothing_at_all(self):
        owner = self.owner()
        owner.offer({"UTF8_STRING": text("never")}, targets={"silent": True})
        owner.wait_for_request("TARGETS")
        self.assert_unharmed()
        owner.offer({"UTF8_STRING": {"silent": True}})
        owner.wait_for_request("UTF8_STRING")
        self.assert_unharmed()
        owner.offer({"UTF8_STRING": text("at last")})
        self.wait_for_newest("at last")
        self.assert_partners_live()

    def test_an_owner_that_does_not_tell_its_targets_is_asked_for_a_text_all_the_same(self):
        owner = self.owner()
        owner.offer({"UTF8_STRING": text("found")}, targets={"silent": True})
        self.wait_for_newest("found", 15.0)
        self.assertEqual(owner.requests(), ["TARGETS", "UTF8_STRING"])

    def test_who_does_not_say_whether_it_is_a_secret_is_not_asked_for_it(self):
        owner = self.owner()
        owner.offer({HINT: {"silent": True}, "UTF8_STRING": text("perhaps a secret")})
        owner.wait_for_request(HINT)
        holds_for(lambda: owner.requests() == ["TARGETS", HINT], 11.0, "no more is asked")  # longer than it is waited
        self.assert_unharmed()
        self.assert_not_captured("perhaps a secret")

    def test_what_is_promised_and_not_delivered_changes_nothing(self):
        self.copy_and_wait("new", ["new", "old"])
        self.paste_entry(1)
        self.editor.wait_for_text("old")
        owner = self.owner()
        owner.offer({"UTF8_STRING": {"silent": True}})
        owner.wait_for_request("UTF8_STRING")
        self.let_a_poll_pass()
        self.copy_and_wait("newest", ["newest", "new", "old"])

    def test_an_owner_that_is_stopped_and_goes_on_later_lives_and_serves(self):
        owner = self.owner()
        owner.offer({"UTF8_STRING": text("before")})
        self.wait_for_newest("before")
        self.offer_and_stop(owner)
        self.assert_unharmed()
        owner.child.resume()
        wait_until(lambda: owner.notes("stopped_listening"), 5.0, lambda: f"the rest: {owner.child.stderr()}")
        owner.offer({"UTF8_STRING": text("after")})
        self.wait_for_newest("after")
        self.assert_partners_live()

    def test_an_owner_that_has_hung_for_longer_than_anybody_waits_can_still_finish(self):
        owner = self.owner()
        self.offer_and_stop(owner)
        self.assert_unharmed()
        holds_for(self.zamber.is_running, 10.5, "the program runs")  # longer than it takes unwanted pieces
        owner.child.resume()
        wait_until(lambda: owner.notes("finished"), 5.0, lambda: f"the rest: {owner.child.stderr()}")
        self.assert_unharmed()

    def offer_and_stop(self, owner):
        """The owner stops with a request in its queue, which it will answer piece by piece."""
        owner.offer({"UTF8_STRING": {"size": 4 * PIECE_BYTES, "incr": PIECE_BYTES, "tail": True}}, stop_after="TARGETS")
        wait_until(owner.is_stopped, what="the owner to stop")


class LyingOwnersTest(HostileTestCase):
    def test_answers_that_are_none(self):
        owner = self.owner()
        lies = {
            "the wrong type": {"UTF8_STRING": {**text("lie"), "type": "image/png"}},
            "a wrong type that is a number": {"UTF8_STRING": {"hex": "01020304", "type": "INTEGER", "format": 32}},
            "another target": {"UTF8_STRING": {**text("lie"), "notify": "STRING"}},
            "a refusal": {"UTF8_STRING": {"refuse": True}, "STRING": {"refuse": True}},
            "no bytes": {"UTF8_STRING": text("")},
            "no bytes, piece by piece": {"UTF8_STRING": {**text(""), "incr": PIECE_BYTES}},
            "a picture without bytes": {"image/png": text("")},
            "a picture that is none": {"image/bmp": text("no picture")},
        }
        for name, offer in lies.items():
            with self.subTest(name):
                seen = len(owner.requests())
                owner.offer(offer)
                wait_until(lambda: len(owner.requests()) >= seen + 2, 5.0, "the requests")
                self.assert_unharmed()
        self.assert_not_captured("lie")
        self.assert_not_captured("")

    def test_lists_of_targets_that_are_none(self):
        owner = self.owner()
        lies = {
            "none": {"refuse": True},
            "of no length": {"type": "ATOM", "format": 32},
            "a text": {**text("UTF8_STRING"), "type": "STRING"},
            "bytes that say they are atoms": {**text("abcdefghi"), "type": "ATOM"},
            "atoms that do not exist": {"hex": "ffffffff" * 64, "type": "ATOM", "format": 32},
            "for another target": {**text(""), "type": "ATOM", "format": 32, "notify": "STRING"},
        }
        for name, targets in lies.items():
            with self.subTest(name):
                seen = len(owner.requests())
                owner.offer({"UTF8_STRING": text("behind a lie")}, targets=targets)
                wait_until(lambda: len(owner.requests()) > seen, 5.0, "a request")
                self.assert_unharmed()
                self.assertLessEqual(len(owner.requests()) - seen, MOST_REQUESTS_A_CHANGE)

    def test_texts_that_need_mending(self):
        mended = "caf\N{REPLACEMENT CHARACTER} \N{REPLACEMENT CHARACTER} ok"
        owner = self.owner()
        owner.offer({"UTF8_STRING": text(b"caf\xe9 \xf0\x9f\x98 ok")})
        self.wait_for_newest(mended)
        self.partners.remove(owner)
        owner.child.kill()
        wait_until(lambda: self.clipboard.read("UTF8_STRING") == mended.encode(), 5.0, "it to be offered mended")
        owner = self.owner()
        owner.offer({"STRING": text("déjà vu ÿ".encode("latin-1"))})
        self.wait_for_newest("déjà vu ÿ")
        owner.offer({"UTF8_STRING": {**text("naïve".encode("latin-1")), "type": "STRING"}})
        self.wait_for_newest("naïve")
        owner.offer({"text/plain;charset=utf-8": text("über")})
        self.wait_for_newest("über")
        self.assert_unharmed()


class StallingOwnersTest(HostileTestCase):
    def test_an_owner_that_stops_in_the_middle(self):
        owner = self.owner()
        owner.offer({"UTF8_STRING": {"size": 10 * PIECE_BYTES, "incr": PIECE_BYTES, "pieces": 5}})
        wait_until(lambda: owner.notes("stopped"), what="the owner to stop")
        self.assert_unharmed()
        owner.offer({"UTF8_STRING": text("short")})
        self.wait_for_newest("short")

    def test_an_owner_that_never_comes_to_an_end(self):
        before = self.memory_bytes()
        owner = self.owner()
        owner.offer({"UTF8_STRING": {"endless": True, "incr": PIECE_BYTES}})
        wait_until(lambda: self.memory_bytes() > before + 60 * MEBIBYTE, 20.0, "the pieces to come")
        self.assert_unharmed()
        self.assert_memory_back(before)
        owner.offer({"UTF8_STRING": text("short")})
        self.wait_for_newest("short")

    def test_an_owner_that_vanishes(self):
        for name, answers in {
            "at the question what it offers": {"targets": {"exit": "request"}},
            "at the request": {"offer": {"exit": "request"}},
            "in the middle": {"offer": {"size": 9 * PIECE_BYTES, "incr": PIECE_BYTES, "exit": "piece"}},
        }.items():
            with self.subTest(name):
                owner = self.owner()
                self.partners.remove(owner)
                how = {"targets": answers["targets"]} if "targets" in answers else {}
                owner.offer({"UTF8_STRING": answers.get("offer", text("gone"))}, **how)
                wait_until(lambda: not owner.child.is_running(), 5.0, "the owner to be gone")
                self.assert_unharmed()

    def test_an_owner_that_copies_anew_in_the_middle(self):
        owner = self.owner()
        anew = {"UTF8_STRING": text("the new one")}
        owner.offer({"UTF8_STRING": {"size": 9 * PIECE_BYTES, "incr": PIECE_BYTES, "retake": anew, "tail": True}})
        self.wait_for_newest("the new one")
        self.assertEqual(self.zamber.history(), ["the new one", "old"])
        # The half that was under way is taken to its end, so that the owner is free, and may let go of our window.
        wait_until(lambda: owner.notes("finished"), what="the owner to finish")
        wait_until(lambda: owner.notes("stopped_listening"), what="the owner to let go")
        self.assert_unharmed()

    def test_an_owner_that_lets_go_of_our_window_late(self):
        owner = self.owner()
        owner.offer({"UTF8_STRING": {"size": 3 * PIECE_BYTES, "incr": PIECE_BYTES, "tail": True}})
        wait_until(lambda: owner.notes("stopped_listening") or not owner.child.is_running(), what="the owner")
        self.assert_unharmed()


class BusyOwnersTest(HostileTestCase):
    def test_an_owner_of_forty_targets_is_asked_for_three(self):
        owner = self.owner()
        others = {f"application/x-odd-{number}": {"silent": True} for number in range(38)}
        owner.offer({**others, "UTF8_STRING": text("forty"), "STRING": {"silent": True}})
        self.wait_for_newest("forty")
        self.assertLessEqual(len(owner.requests()), MOST_REQUESTS_A_CHANGE, owner.requests())
        with self.subTest("also when it does not keep what it promises"):
            seen = len(owner.requests())
            refused = ("image/png", "image/tiff", "image/jpeg", "UTF8_STRING", "text/plain;charset=utf-8", "STRING")
            owner.offer({**others, **{target: {"refuse": True} for target in refused}})
            wait_until(lambda: len(owner.requests()) >= seen + MOST_REQUESTS_A_CHANGE, 5.0, "the requests")
            holds_for(lambda: len(owner.requests()) == seen + MOST_REQUESTS_A_CHANGE, 0.5, owner.requests)
            self.assert_unharmed()

    def test_a_thousand_copies_in_a_row_end_with_the_last(self):
        owner = self.owner()
        before = self.memory_bytes()
        owner.offer({"UTF8_STRING": text("a thousand, answered one by one")}, times=1000)
        self.wait_for_newest("a thousand, answered one by one", 15.0)
        owner.offer({"UTF8_STRING": text("a thousand at once")}, times=1000, at_once=True)
        self.assert_popover_opens_fast()
        self.wait_for_newest("a thousand at once", 15.0)
        self.assert_unharmed()
        self.assert_memory_back(before, 10 * MEBIBYTE)

    def test_a_rival_that_takes_the_clipboard_back(self):
        rival = self.owner()
        rival.offer({"UTF8_STRING": text("rival")}, insist=5)
        self.wait_for_newest("rival")
        self.zamber.open_popover()
        self.choose(1)
        wait_until(lambda: rival.notes("taken_back"), what="the rival")
        # Whether the key still came in time is a matter of luck; what counts is that neither goes on fighting, and that
        # there was one attempt, of what was chosen, which the log calls a paste only if it was one.
        holds_for(lambda: len(rival.notes("taken_back")) <= 2, 3.0, lambda: f"peace: {len(rival.notes('taken_back'))}")
        self.assertIn(self.editor.text(), ("", "old", "rival"))
        self.expected_lines += [PASTING_LINE] if self.editor.text() == "" else [PASTING_LINE, PASTED_LINE]
        self.assertNotEqual(self.clipboard.owner(), 0)
        self.assertEqual(self.clipboard.text(), "rival")
        rival.calm_down()
        self.assert_unharmed()


class SecretOwnersTest(HostileTestCase):
    def test_secrets_and_what_is_cleared_are_neither_read_nor_offered_again(self):
        with self.subTest("a secret"):
            owner = self.owner()
            owner.offer({HINT: text("secret"), "UTF8_STRING": text("my password"), "STRING": text("my password")})
            owner.wait_for_request(HINT)
            self.assert_popover_opens_fast()
            self.let_a_poll_pass()
            self.assertEqual(set(owner.requests()), {"TARGETS", HINT})
        with self.subTest("dies with its owner"):
            self.partners.remove(owner)
            owner.child.kill()
            wait_until(lambda: self.clipboard.owner() == 0, what="the owner to be gone")
            holds_for(lambda: self.clipboard.owner() == 0, 0.6, "the clipboard is empty")
        self.assert_unharmed()
        with self.subTest("cleared on purpose"):
            owner = self.owner()
            owner.offer({"UTF8_STRING": text("cleared")})
            self.wait_for_newest("cleared")
            owner.release()
            holds_for(lambda: self.clipboard.owner() == 0, 0.6, "the clipboard is empty")
        self.assert_unharmed()
        with self.subTest("cleared on purpose after a secret that followed it"):
            owner = self.owner()
            owner.offer({"UTF8_STRING": text("harmless")})
            self.wait_for_newest("harmless")
            owner.offer({HINT: text("secret"), "UTF8_STRING": text("my password")})
            owner.wait_for_request(HINT)
            owner.release()
            holds_for(lambda: self.clipboard.owner() == 0, 0.6, "the clipboard is empty")
        self.assert_unharmed()
        self.assert_not_captured("my password")


class SlowOwnersTest(HostileTestCase):
    def test_a_picture_over_a_slow_link_takes_as_long_as_it_takes(self):
        picture = png_bytes(200, 150, seed=12, compression=0)
        piece, pause = len(picture) // 20, 6.5  # over two minutes; each piece well within what an owner has for it
        started = time.monotonic()
        owner = self.owner()
        owner.offer({"image/png": {"hex": picture.hex(), "incr": piece, "pause": pause},
                     "UTF8_STRING": text("not the picture")})
        wait_until(lambda: picture in self.zamber.history(), 22 * pause + 20, "the picture")
        self.assertGreater(time.monotonic() - started, 125)
        self.assert_unharmed()
        self.assert_not_captured("not the picture")


class MemoryTest(HostileTestCase):
    def test_an_owner_that_announces_more_than_it_sends(self):
        owner = self.owner()
        before = self.address_space_bytes()
        for number in range(6):
            owner.offer({"UTF8_STRING": {**text(f"small {number}"), "incr": 1000, "announce": 0x7fffffff}})
            self.wait_for_newest(f"small {number}")
        # A thread that starts meanwhile has an arena of 64 MiB; what is announced would be 12 GiB.
        self.assertLess(self.address_space_bytes() - before, 600 * MEBIBYTE)
        self.assert_unharmed()

    def test_what_there_is_no_memory_for_is_not_recorded_and_all_else_goes_on(self):
        owner = self.owner()
        limits = resource.prlimit(self.zamber.pid, resource.RLIMIT_AS)
        resource.prlimit(self.zamber.pid, resource.RLIMIT_AS, (self.address_space_bytes() + 100 * MEBIBYTE, limits[1]))
        owner.offer({"UTF8_STRING": {"size": 400 * MEBIBYTE, "incr": PIECE_BYTES}})
        wait_until(lambda: owner.notes("asked") == ["TARGETS", "UTF8_STRING"], 5.0, "the request")
        wait_until(lambda: owner.notes("finished") or not self.zamber.is_running(), 60.0, "the owner to be rid of it all")
        self.assertTrue(self.zamber.is_running(), self.zamber.stderr_lines())
        self.assertNotEqual(self.newest(), None)
        self.assert_unharmed()
        resource.prlimit(self.zamber.pid, resource.RLIMIT_AS, limits)
        self.assert_unharmed()
        # There may be no memory for a worker thread's stack just then.
        self.expected_errors = [line for line in self.zamber.stderr_lines() if line.startswith("QThread::start: ")]


class LargeOwnersTest(HostileTestCase):
    preferences = {"maxItems": 2}

    def forget_large_entries(self):
        """Two entries are kept, so that two copies push out what is there."""
        self.assert_next_copy_is_captured()
        self.assert_next_copy_is_captured()

    def wait_for_large_entry(self, size):
        def is_saved():
            path = self.zamber.history_path
            return path.exists() and path.stat().st_size >= size

        wait_until(is_saved, 40.0, "the large entry in the file")

    def test_two_hundred_megabytes_of_text(self):
        before = self.memory_bytes()
        content = b"".join(b"line %012d of a very long text\n" % number for number in range(5_300_000))[:200_000_000]
        path = self.desktop.directory / "large"
        path.write_bytes(content)
        digest = sha256(content)
        del content
        with open(path, "rb") as source:
            copier = self.desktop.start("xclip", ["xclip", "-quiet", "-selection", "clipboard"], stdin=source)
        wait_until(self.clipboard.owner, 20.0, "xclip to own the clipboard")
        self.assert_popover_opens_fast()
        self.wait_for_large_entry(200_000_000)
        self.assertTrue(copier.is_running(), copier.stderr())
        # Its program ends, and we go on serving it: out again, byte for byte.
        copier.stop()
        self.wait_until_taken_over()
        self.assertEqual(self.digest_of_clipboard("UTF8_STRING", "large.out"), digest)
        self.assert_memory_back(before, 240 * MEBIBYTE)
        self.forget_large_entries()
        self.assert_memory_back(before)

    def test_a_picture_of_a_hundred_megabytes(self):
        before = self.memory_bytes()
        picture = large_picture(100)
        path = self.desktop.directory / "large.png"
        path.write_bytes(picture)
        copier = self.clipboard.copy_image(path)
        self.assert_popover_opens_fast()
        self.wait_for_large_entry(len(picture))
        self.assertTrue(copier.is_running(), copier.stderr())
        copier.stop()
        self.wait_until_taken_over()
        self.assertEqual(self.digest_of_clipboard("image/png", "large.out"), sha256(picture))
        self.assert_memory_back(before, (len(picture) + 40 * MEBIBYTE))
        self.forget_large_entries()
        self.assert_memory_back(before)

    def wait_until_taken_over(self):
        wait_until(lambda: self.clipboard.owner() != 0 and self.clipboard.targets(), 10.0, "the clipboard to be owned")

    def digest_of_clipboard(self, target, name):
        path = self.desktop.directory / name
        with self.subTest("the popover opens while it is sent"):
            sender = self.desktop.start("sh", [
                "sh", "-c", f"xclip -o -selection clipboard -t {target} > {path}"])
            self.assert_popover_opens_fast()
        self.assertEqual(sender.wait(60), 0, sender.stderr())
        return sha256(path.read_bytes())


def large_picture(megabytes):
    """A small picture with that much beside it which viewers skip."""
    small = png_bytes(64, 48)
    end = small.index(b"IEND") - 4
    chunks = []
    for number in range(megabytes // 4):
        data = bytes([number, 255 - number, 7, 13]) * 1_000_000
        chunks.append(struct.pack(">I", len(data)) + b"zaMb" + data + struct.pack(">I", zlib.crc32(b"zaMb" + data)))
    return small[:end] + b"".join(chunks) + small[end:]
