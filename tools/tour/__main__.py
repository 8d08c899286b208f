# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""A tour of Zamber with real applications in private desktops, on an X server and on sway. What it says is checked from
outside the program: by what an editor saves, what the clipboard gives, what is in the history file and what a screen
reader would read."""

import pathlib
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from guide import TourFailed, say  # noqa: E402
from harness import default_binary  # noqa: E402
from on_sway import SwayTour  # noqa: E402
from on_x11 import X11Tour  # noqa: E402

PICTURES = ROOT / "build" / "tour"
KINDS = {kind.folder: kind for kind in (X11Tour, SwayTour)}


def play(kind):
    """Plays one tour; whether all stages were as they should be."""
    pictures = PICTURES / kind.folder
    pictures.mkdir(parents=True)
    started = time.monotonic()
    say(f"\n== On {kind.name}")
    with kind.make_desktop() as desktop:
        tour = kind(desktop, pictures)
        try:
            tour.play()
        except (TourFailed, AssertionError) as failure:
            if not isinstance(failure, TourFailed):
                say(f"FAILED: {failure}")
            say("\nThe tour has failed.")
            return False
        finally:
            if tour.zamber.child:
                (pictures / "zamber.log").write_text(tour.zamber.child.stdout() + tour.zamber.child.stderr())
    say(f"\nAll {tour.guide.stages} stages on {kind.name} are as they should be ({time.monotonic() - started:.0f} s).")
    return True


def play_apart(name):
    """Plays one tour in a process of its own: python-xlib knows the extensions of one X server at a time."""
    with subprocess.Popen([sys.executable, pathlib.Path(__file__).parent, name]) as process:
        try:
            return process.wait() == 0
        except BaseException:
            process.terminate()
            raise


def main(names):
    if not default_binary().is_file():
        say(f"There is no {default_binary()}: ./run builds it.")
        return 1
    # Being asked to end is leaving the desktop the ordinary way, with all that is cleared up then.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    if names:
        return 0 if all([play(KINDS[name]) for name in names]) else 1
    shutil.rmtree(PICTURES, ignore_errors=True)
    say("No display is used: this opens private desktops, starts Zamber in them and shows it round. Nothing touches "
        "your clipboard, your files or your settings.")
    went_well = all([play_apart(name) for name in KINDS])
    say("\nScreenshots and Zamber's log: build/tour/")
    return 0 if went_well else 1


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except KeyboardInterrupt:
        say("\nEnded before its end.")
        sys.exit(130)
