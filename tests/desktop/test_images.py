# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Pictures on the clipboard, in and out."""

from case import DesktopTestCase
from harness import SelectionOwner, convert, pixels, png_bytes, wait_until

PNG_MAGIC = b"\x89PNG\r\n\x1a\n"
MOST_REQUESTS_A_CHANGE = 3


class ImageTest(DesktopTestCase):
    def copy_picture(self, data, target="image/png", name="picture"):
        path = self.desktop.directory / name
        path.write_bytes(data)
        self.clipboard.copy_image(path, target)

    def test_a_copied_picture_is_pasted_back_as_it_was(self):
        picture = png_bytes(160, 120)
        self.copy_picture(picture)
        self.zamber.wait_for_history([picture])
        self.copy_and_wait("later", ["later", picture])
        self.paste_entry(1)
        self.editor.wait_for_image(picture)
        self.assertEqual(self.clipboard.read("image/png"), picture)
        self.assertEqual(self.editor.text(), "")

    def test_a_picture_is_offered_in_every_format_that_programs_ask_for(self):
        picture = png_bytes(48, 32, seed=3)
        self.zamber.write_history(picture)
        self.restart()
        self.paste_entry(0)
        self.editor.wait_for_image(picture)
        self.assertLessEqual({"image/png", "image/tiff", "image/bmp"}, set(self.clipboard.targets()))
        self.assertEqual(self.clipboard.read("image/png"), picture)
        # The label is always TIFF, the bytes are the captured ones.
        self.assertEqual(pixels(self.clipboard.read("image/tiff")), pixels(picture))
        self.assertEqual(pixels(self.clipboard.read("image/bmp"), "bmp"), pixels(picture))

    def test_a_tiff_picture_is_kept_as_it_came_and_given_as_png_too(self):
        tiff = convert(png_bytes(40, 30, seed=4), "png", "tiff")
        self.copy_picture(tiff, "image/tiff")
        self.zamber.wait_for_history([tiff])
        self.copy_and_wait("later", ["later", tiff])
        self.paste_entry(1)
        self.wait_for_expected_lines()
        self.assertEqual(self.clipboard.read("image/tiff"), tiff)
        png = self.clipboard.read("image/png")
        self.assertEqual(png[:8], PNG_MAGIC)
        self.assertEqual(pixels(png, "png"), pixels(tiff, "tiff"))
        self.editor.wait_for_image(png)

    def test_a_picture_in_a_lesser_format_becomes_a_png(self):
        bmp = convert(png_bytes(40, 30, seed=5), "png", "bmp")
        self.copy_picture(bmp, "image/bmp")
        wait_until(self.zamber.history, 6.0, "an entry")
        (captured,) = self.zamber.history()
        self.assertEqual(captured[:8], PNG_MAGIC)
        self.assertEqual(pixels(captured, "png"), pixels(bmp, "bmp"))

    def test_a_large_picture_comes_and_goes_in_pieces(self):
        picture = png_bytes(1200, 800, seed=6, compression=0)
        self.assertGreater(len(picture), 2_000_000)
        self.copy_picture(picture)
        self.zamber.wait_for_history([picture])
        self.copy_and_wait("later", ["later", picture])
        self.paste_entry(1)
        self.editor.wait_for_image(picture)

    def test_a_picture_with_a_text_beside_it_is_recorded_as_a_picture_only(self):
        picture = png_bytes(seed=7)
        owner = SelectionOwner(self.desktop)
        owner.offer({"text/html": b"<img src='a.png'>", "UTF8_STRING": b"http://example.org/a.png",
                     "image/png": picture})
        self.zamber.wait_for_history([picture])
        self.copy_and_wait("later", ["later", picture])
        self.assertLessEqual(len(owner.requests()), MOST_REQUESTS_A_CHANGE, owner.requests())

    def test_an_owner_is_asked_for_little_however_much_it_offers(self):
        picture = png_bytes(seed=8)
        owner = SelectionOwner(self.desktop)
        others = {f"image/x-odd-{number}": b"never" for number in range(40)}
        owner.offer({**others, "image/tiff": convert(picture, "png", "tiff"), "image/png": picture,
                     "UTF8_STRING": b"text"})
        self.zamber.wait_for_history([picture])
        self.assertLessEqual(len(owner.requests()), MOST_REQUESTS_A_CHANGE, owner.requests())
        self.assertNotIn("image/tiff", owner.requests())

    def restart(self):
        self.zamber.stop()
        self.expected_lines = []
        self.start_zamber()
