# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Copies in several forms: which one becomes the entry, and which are served when their program has gone."""

from harness import holds_for, png_bytes, wait_until
from hostile import HINT, HostileTestCase, text

FILES = "file:///home/zoe/one.txt\r\nfile:///home/zoe/two%20words.txt\r\n"
PATHS = "/home/zoe/one.txt\n/home/zoe/two words.txt"
CELLS = "1\t2\n3\t4\n"
IMAGES = ("image/png", "image/tiff", "image/jpeg", "image/gif", "image/bmp", "image/x-bmp", "image/svg+xml")
URI_LIST, CUT_MARK, GNOME_FILES = "text/uri-list", "application/x-kde-cutselection", "x-special/gnome-copied-files"


def refusal():
    return {"refuse": True}


class FormsTestCase(HostileTestCase):
    picture = png_bytes(60, 40, seed=21)

    def offer(self, contents, **how):
        owner = self.owner()
        owner.offer(contents, **how)
        return owner

    def wait_for_picture(self, picture):
        wait_until(lambda: self.zamber.history()[:1] == [picture], 8.0, lambda: f"a picture; {self.newest()!r:.80} is on top")

    def wait_until_asked_for(self, owner, *targets):
        wait_until(lambda: set(targets) <= set(owner.requests()), 5.0, lambda: f"{targets} among {owner.requests()}")

    def end(self, owner):
        """The owner ends; returns once its clipboard has been taken over."""
        self.partners.remove(owner)
        window = self.clipboard.owner()
        owner.child.kill()
        self.wait_until_taken_over(window)

    def wait_until_taken_over(self, window):
        wait_until(lambda: self.clipboard.owner() not in (0, window), 5.0, "the clipboard to be taken over")


class TextOrPictureTest(FormsTestCase):
    def test_copied_cells_and_words_are_a_text_and_their_picture_is_not_asked_for(self):
        # The types that the programs of Debian 12 offer; names without a meaning are left out.
        programs = {
            "Calc": ("application/x-openoffice-embed-source-xml;windows_formatname=\"Star Embed Source (XML)\"",
                     "application/x-openoffice-sylk;windows_formatname=\"Sylk\"", "text/html", "text/rtf",
                     "text/richtext", "application/x-libreoffice-tsvc"),
            "AbiWord": ("text/rtf", "application/rtf", "application/x-goffice-graph", "text/html",
                        "application/vnd.oasis.opendocument.text"),
            "Gnumeric": ("application/x-gnumeric", "Biff8", "text/html"),
            "a spreadsheet of few words": ("text/csv",),
        }
        for name, others in programs.items():
            with self.subTest(name):
                words = f"{name}\t{CELLS}"
                owner = self.offer({**{other: {"silent": True} for other in others},
                                    **{image: {"hex": self.picture.hex()} for image in IMAGES},
                                    "UTF8_STRING": text(words), "STRING": text(words)})
                self.wait_for_newest(words)
                self.let_a_poll_pass()
                self.assertEqual(owner.requests(), ["TARGETS", "UTF8_STRING"])
        self.assert_unharmed()

    def test_a_picture_with_its_address_or_a_plain_text_stays_a_picture(self):
        for seed, others in enumerate((
            {"UTF8_STRING": text("https://zamber.example/a.png"), "text/html": text("<img>")},
            {"text/html": text("<img>"), "text/x-moz-url": text("x"), "text/uri-list": text("https://zamber.example/")},
            {"STRING": text("a picture"), "text/plain": text("a picture")},
            {"text/rtf": text("{\\rtf1}")},  # without a text beside it
        ), start=30):
            with self.subTest(sorted(others)):
                picture = png_bytes(20, 20, seed=seed)
                self.offer({**others, "image/png": {"hex": picture.hex()}})
                self.wait_for_picture(picture)
        self.assert_unharmed()

    def test_a_picture_that_does_not_come_is_not_the_end_of_the_text(self):
        truncated = self.picture[:-30]
        for name, answers in {
            "refused": {image: refusal() for image in IMAGES},
            "of no length": {image: text("") for image in IMAGES},
            "of no length, piece by piece": {"image/png": {**text(""), "incr": 1000}},
            "none": {"image/png": text("no picture")},
            "cut short": {"image/png": {"hex": truncated.hex()}},
            "a lesser one that is none": {"image/bmp": text("no picture")},
            "under a wrong type": {"image/png": {**text("x"), "type": "STRING"}},
            "refused, and it is said to be no secret": {HINT: text("public"), "image/png": refusal()},
        }.items():
            with self.subTest(name):
                owner = self.offer({**answers, "UTF8_STRING": text(f"beside a picture {name}")})
                self.wait_for_newest(f"beside a picture {name}")
                asked = [target for target in owner.requests() if target.startswith("image/")]
                self.assertEqual(len(asked), 1, owner.requests())
                self.end(owner)
                self.assertEqual(self.clipboard.text(), f"beside a picture {name}")
        self.assert_unharmed()

    def test_a_picture_that_breaks_off_is_not_recorded_as_its_text(self):
        half = {"size": 900_000, "incr": 200_000}
        with self.subTest("its owner stops"):
            owner = self.offer({"image/png": {**half, "pieces": 2}, "UTF8_STRING": text("not the picture")})
            wait_until(lambda: owner.notes("stopped"), what="the owner to stop")
            holds_for(lambda: "UTF8_STRING" not in owner.requests(), 11.5, "the text is not asked for")
        self.assert_unharmed()
        with self.subTest("its owner dies"):
            owner = self.offer({"image/png": {**half, "exit": "piece"}, "UTF8_STRING": text("not the picture")})
            self.partners.remove(owner)
            wait_until(lambda: not owner.child.is_running(), what="the owner to be gone")
            self.let_a_poll_pass()
        self.assert_unharmed()
        self.assert_not_captured("not the picture")


class ServedOnTest(FormsTestCase):
    """After the owner has gone."""

    def test_text_and_picture_of_one_copy(self):
        address = "https://zamber.example/picture.png"
        owner = self.offer({"text/html": text("<img>"), "image/png": {"hex": self.picture.hex()},
                            "image/tiff": refusal(), "UTF8_STRING": text(address), "STRING": text(address)})
        self.wait_for_picture(self.picture)
        self.wait_until_asked_for(owner, "UTF8_STRING")
        self.let_a_poll_pass()
        self.assertEqual(owner.requests(), ["TARGETS", "image/png", "UTF8_STRING"])
        self.end(owner)
        self.assertEqual(self.clipboard.read("image/png"), self.picture)
        self.assertEqual(self.clipboard.text(), address)
        self.assertLessEqual({"image/png", "image/bmp", "UTF8_STRING", "STRING"}, set(self.clipboard.targets()))
        self.let_a_poll_pass()
        self.assertEqual(self.zamber.history(), [self.picture, "old"])
        self.assert_unharmed()

    def test_a_text_beside_a_picture_that_is_not_given_costs_nothing(self):
        for seed, answer in enumerate(({"refuse": True}, {"silent": True}, text("")), start=50):
            with self.subTest(str(answer)):
                picture = png_bytes(20, 20, seed=seed)
                owner = self.offer({"image/png": {"hex": picture.hex()}, "UTF8_STRING": answer})
                self.wait_for_picture(picture)
                self.end(owner)
                self.assertEqual(self.clipboard.read("image/png"), picture)
        self.assert_unharmed()

    def test_files_stay_files(self):
        owner = self.offer({URI_LIST: text(FILES), GNOME_FILES: text("copy\n" + FILES), CUT_MARK: text("0"),
                            "UTF8_STRING": text(PATHS)})
        self.wait_for_newest(PATHS)
        self.wait_until_asked_for(owner, URI_LIST, GNOME_FILES)
        self.let_a_poll_pass()
        self.assertEqual(len(owner.requests()), len(set(owner.requests())), "nothing is asked for twice")
        self.end(owner)
        self.assertEqual(self.clipboard.read(URI_LIST), FILES.encode())
        self.assertEqual(self.clipboard.read(GNOME_FILES), b"copy\n" + FILES.encode())
        self.assertEqual(self.clipboard.text(), PATHS)
        self.assertNotIn(CUT_MARK, self.clipboard.targets())
        self.assert_unharmed()

    def test_files_without_any_text(self):
        owner = self.offer({URI_LIST: text(FILES)})
        self.wait_until_asked_for(owner, URI_LIST)
        self.let_a_poll_pass()
        self.assertEqual(self.zamber.history(), ["old"])
        self.end(owner)
        self.assertEqual(self.clipboard.read(URI_LIST), FILES.encode())
        self.assert_unharmed()

    def test_files_that_were_cut_are_not_served_as_copied_ones(self):
        for name, mark in {"by one mark": {GNOME_FILES: text("cut\n" + FILES)}, "by another": {CUT_MARK: text("1")}}.items():
            with self.subTest(name):
                owner = self.offer({URI_LIST: text(FILES), **mark, "UTF8_STRING": text(f"{PATHS} {name}")})
                self.wait_for_newest(f"{PATHS} {name}")
                self.wait_until_asked_for(owner, *mark)
                self.let_a_poll_pass()
                self.end(owner)
                self.assertEqual(self.clipboard.text(), f"{PATHS} {name}")
                self.assertFalse({URI_LIST, GNOME_FILES, CUT_MARK} & set(self.clipboard.targets()))
        self.assert_unharmed()

    def test_a_program_that_hands_its_files_over(self):
        owner = self.offer({URI_LIST: text(FILES), "UTF8_STRING": text(PATHS)})
        owner.hand_over()
        wait_until(lambda: owner.notes("handed_over") == [True], 5.0, "the clipboard manager to have them")
        self.end(owner)
        self.assertEqual(self.clipboard.read(URI_LIST), FILES.encode())
        self.assert_unharmed()

    def test_what_a_program_clears_as_it_ends(self):
        for number, seconds in enumerate((0, 0.04, 0.6)):
            with self.subTest(f"{seconds} s before its end"):
                owner = self.offer({"UTF8_STRING": text(f"words {number}")})
                self.wait_for_newest(f"words {number}")
                self.partners.remove(owner)
                window = self.clipboard.owner()
                owner.leave(seconds)
                owner.child.wait(5)
                self.wait_until_taken_over(window)
                self.assertEqual(self.clipboard.text(), f"words {number}")
                self.let_a_poll_pass()
                self.assertEqual(self.zamber.history()[0], f"words {number}")
        self.assert_unharmed()

    def test_what_a_program_clears_and_lives_on(self):
        for number, order in enumerate(("release", "leave")):
            with self.subTest(order):
                owner = self.offer({"UTF8_STRING": text(f"words {number}")})
                self.wait_for_newest(f"words {number}")
                owner.release() if order == "release" else owner.leave(None)
                holds_for(lambda: self.clipboard.owner() == 0, 3.0, "the clipboard is empty")
        self.assert_unharmed()

    def test_a_secret_that_its_program_clears_as_it_ends(self):
        self.assert_next_copy_is_captured()
        owner = self.offer({HINT: text("secret"), "UTF8_STRING": text("my password")})
        owner.wait_for_request(HINT)
        self.partners.remove(owner)
        owner.leave(0.02)
        owner.child.wait(5)
        holds_for(lambda: self.clipboard.owner() == 0, 2.5, "the clipboard is empty")
        self.assert_unharmed()

    def test_a_program_that_gives_its_copy_away_only_so_often(self):
        copier = self.desktop.start("sh", ["sh", "-c", "printf twice | xclip -quiet -loops 2 -selection clipboard"])
        self.wait_for_newest("twice")
        self.let_a_poll_pass()
        self.assertTrue(copier.is_running(), "one of the two is left")
        window = self.clipboard.owner()
        self.assertEqual(self.clipboard.text(), "twice")
        copier.wait(5)
        self.wait_until_taken_over(window)
        self.assertEqual(self.clipboard.text(), "twice")
        self.assert_unharmed()
