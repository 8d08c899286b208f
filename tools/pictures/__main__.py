# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The pictures of the documentation, taken of the running program on a private desktop: light, and dark beside it.

    tools/pictures           takes them anew, into docs/
    tools/pictures --check   fails when one differs from the program; build/pictures/ then has old and new side by side
"""

import argparse
import contextlib
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from Xlib import X  # noqa: E402

from harness import PrivateDesktop, SettingsPortal, Zamber, default_binary  # noqa: E402
from scenes import SCALE, SCENES, keep_off_the_edges, paint_background, write_history  # noqa: E402

DOCS = ROOT / "docs"
DIFFERENCES = ROOT / "build" / "pictures"
LOOKS = {"light": ("uint32 2", (0xB9, 0xC8, 0xD8)), "dark": ("uint32 1", (0x3B, 0x48, 0x5A))}
TOOL_SECONDS = 60.0
# The fonts of the packages that the tests need, and none of those that happen to be on this machine, drawn alike.
FONTS = """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/opentype/inter</dir>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <dir>/usr/share/fonts/truetype/noto</dir>
  <cachedir>{cache}</cachedir>
  <match target="font">
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="hinting" mode="assign"><bool>false</bool></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
  </match>
</fontconfig>
"""
MOST_LOOKS = 12
# The same pixels are the same bytes.
PLAIN = ("-strip", "-define", "png:exclude-chunks=date,time", "-define", "png:compression-level=9")


def magick(tool, *arguments):
    return subprocess.run([f"/usr/bin/{tool}", *map(str, arguments)], stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=TOOL_SECONDS, check=False)


def differing_pixels(one, other):
    """How many there are; all of them where the sizes differ."""
    answer = magick("compare", "-metric", "AE", one, other, "null:")
    return int(float(answer.stderr.split()[0])) if answer.returncode in (0, 1) else sys.maxsize


def shot(desktop, place, picture):
    """A part of the screen as it is at this moment; a tool's start would take as long as a caret blinks."""
    width, height = place.width, place.height
    data = desktop.display.screen().root.get_image(place.x, place.y, width, height, X.ZPixmap, 0xFFFFFFFF).data
    colours = bytearray(3 * width * height)
    colours[0::3], colours[1::3], colours[2::3] = data[2::4], data[1::4], data[0::4]
    bare = picture.with_suffix(".ppm")
    bare.write_bytes(b"P6 %d %d 255\n" % (width, height) + bytes(colours))
    magick("convert", bare, *PLAIN, picture)


def take(desktop, scene, zamber, picture, kept):
    """Takes the picture of the program at rest: as the one that is kept, else as in two looks in a row. A caret blinks
    when it likes, so several looks may differ from the picture that is kept before one does not."""
    before = None
    for look in range(MOST_LOOKS):
        scene.refresh(desktop)
        place = scene.place(zamber)
        time.sleep(0.1 + 0.07 * look)  # what is on the glass cannot be asked for; the caret is there, or not, by turns
        shot(desktop, place, picture)
        if kept and differing_pixels(kept, picture) == 0:
            return
        is_at_rest = before and differing_pixels(before, picture) == 0
        if is_at_rest and (not kept or look > MOST_LOOKS // 2):
            return
        before = shutil.copy(picture, picture.with_suffix(".before.png"))
    raise RuntimeError(f"the program does not come to rest: {scene.name}")


def half_of(scene, look, folder):
    """The light or the dark half of the picture that is kept, if there is one."""
    kept = DOCS / f"{scene.name}.png"
    if not kept.exists():
        return None
    half = folder / f"{scene.name}-{look}-kept.png"
    magick("convert", kept, "-gravity", "west" if look == "light" else "east", "-crop", "50%x100%+0+0", "+repage", half)
    return half


def shoot(scene, look, folder, kept):
    """One look of a scene, as a file in the folder."""
    picture = folder / f"{scene.name}-{look}.png"
    scheme, background = LOOKS[look]
    with PrivateDesktop(size=(1500, 1000), compositor="picom", tray="none") as desktop:
        fonts = desktop.directory / "fonts.conf"
        fonts.write_text(FONTS.format(cache=desktop.directory / "font-cache"))
        paint_background(desktop.display, background)
        keep_off_the_edges(desktop.display)
        desktop.mouse.move(5, 5)
        SettingsPortal(desktop).set("org.freedesktop.appearance", "color-scheme", scheme)
        zamber = Zamber(desktop)
        zamber.environment = dict(zamber.environment, QT_SCALE_FACTOR=str(SCALE), FONTCONFIG_FILE=str(fonts))
        write_history(zamber)
        zamber.start()
        scene.prepare(desktop, zamber)
        take(desktop, scene, zamber, picture, kept)
        zamber.stop()
    return picture


def make(scene, folder, is_check):
    """Both looks side by side."""
    result = folder / f"{scene.name}.png"
    halves = [shoot(scene, look, folder, half_of(scene, look, folder) if is_check else None) for look in LOOKS]
    magick("convert", *halves, "+append", *PLAIN, result)
    return result


def report(scene, made, kept):
    """Whether the picture is as it was; if not, both are put side by side, the older one to the left."""
    count = differing_pixels(kept, made) if kept.exists() else sys.maxsize
    if count == 0:
        print(f"{kept.relative_to(ROOT)} is as the program looks", flush=True)
        return True
    DIFFERENCES.mkdir(parents=True, exist_ok=True)
    both = DIFFERENCES / f"{scene.name}.png"
    magick("convert", *([kept] if kept.exists() else []), made, "+append", both)
    amount = "is missing, or has another size" if count == sys.maxsize else f"differs in {count} pixels"
    print(f"{kept.relative_to(ROOT)} {amount}: see {both.relative_to(ROOT)} (old to the left); tools/pictures takes "
          "it anew", flush=True)
    return False


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true", help="compare instead of replacing")
    arguments = parser.parse_args()
    if not default_binary().is_file():
        parser.error(f"there is no {default_binary()}: ./run builds it")
    shutil.rmtree(DIFFERENCES, ignore_errors=True)
    good = True
    with contextlib.ExitStack() as stack:
        folder = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory()))
        for scene in SCENES:
            made, kept = make(scene, folder, arguments.check), DOCS / f"{scene.name}.png"
            if arguments.check:
                good = report(scene, made, kept) and good
            else:
                shutil.copy(made, kept)
                print(f"{kept.relative_to(ROOT)}: {kept.stat().st_size // 1024} KiB", flush=True)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
