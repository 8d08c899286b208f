# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""The sound of a paste: heard at the sound server's other end, and no trouble where there is none."""

import array
import pathlib
import runpy
import tempfile
import unittest
import wave

from case import PASTED_LINE, DesktopTestCase
from harness import KEY_CODES, holds_for, wait_until

SOUND_FOLDER = pathlib.Path(__file__).resolve().parents[2] / "packaging" / "sound"
AUDIBLE = 3000  # of 32767
START_SECONDS = 10.0


class SoundServer:
    """A sound server that records the sounds instead of playing them."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._record = desktop.directory / "sound.raw"
        self.start()

    def start(self):
        socket = self._desktop.runtime_folder / "sound"
        self._desktop.environment["PULSE_SERVER"] = f"unix:{socket}"
        self.child = self._desktop.start("pulseaudio", [
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "--load=module-null-sink sink_name=test", f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1",
        ])
        wait_until(self._answers, START_SECONDS, lambda: f"the sound server: {self.child.stderr()}")
        self._record.unlink(missing_ok=True)
        self._recorder = self._desktop.start("parec", [
            "parec", "-d", "test.monitor", "--raw", "--format=s16le", "--channels=1", "--latency-msec=20", self._record,
        ])
        wait_until(lambda: self._record.exists() and self._record.stat().st_size > 0, START_SECONDS, "the record")

    def _answers(self):
        try:
            return self._desktop.run(["pactl", "info"])
        except RuntimeError:
            return False

    def stop(self):
        self._recorder.stop()
        self.child.stop()

    def loudest(self):
        data = self._record.read_bytes()
        samples = array.array("h", data[: len(data) // 2 * 2])
        return max(map(abs, samples), default=0)


class SoundTestCase(DesktopTestCase):
    history = ("first", "second")
    preferences = {"playSoundOnPaste": True, "quickPasteEnabled": True}

    def prepare(self):
        self.server = SoundServer(self.desktop)


class SoundTest(SoundTestCase):
    def test_a_paste_from_the_popover_is_heard(self):
        self.assertLess(self.server.loudest(), AUDIBLE)
        self.paste_entry(0)
        wait_until(lambda: self.server.loudest() > AUDIBLE, 5.0, "a sound")
        self.editor.wait_for_text("first")

    def test_a_quick_paste_is_heard(self):
        self.keyboard.chord("Super_L", "Shift_L", "2")
        self.expected_lines.append(PASTED_LINE)
        wait_until(lambda: self.server.loudest() > AUDIBLE, 5.0, "a sound")
        self.editor.wait_for_text("second")

    def test_a_sound_server_that_was_restarted_plays_again(self):
        self.paste_entry(0)
        wait_until(lambda: self.server.loudest() > AUDIBLE, 5.0, "a sound")
        self.editor.wait_for_text("first")
        self.server.stop()
        self.paste_entry(0)
        self.editor.wait_for_text("firstfirst")
        self.server.start()
        self.paste_entry(0)
        self.editor.wait_for_text("firstfirstfirst")
        wait_until(lambda: self.server.loudest() > AUDIBLE, 5.0, "a sound again")

    def test_a_sound_server_that_hangs_keeps_nobody_waiting(self):
        self.server.child.pause()
        for expected in ("first", "firstfirst", "firstfirstfirst"):
            mark = self.keys.mark()
            self.paste_entry(0)
            self.editor.wait_for_text(expected)
            chosen, pasted = (self.keys.presses(KEY_CODES[key], mark)[0] for key in ("Return", "v"))
            self.assertLess(pasted.time - chosen.time, 1000)
        self.server.child.resume()

    def paste_and_quit(self):
        self.paste_entry(0)
        self.editor.wait_for_text("first")
        self.wait_for_expected_lines()
        self.click_tray_icon(button=3)
        wait_until(self.zamber.menu, what="the menu")
        self.zamber_has_ended = True
        self.keyboard.type_text("q")
        self.assertEqual(self.zamber.child.wait(2), 0)

    def test_quitting_does_not_wait_for_a_sound_server_that_hangs(self):
        self.server.child.pause()
        self.paste_and_quit()
        self.server.child.resume()

    def test_quitting_while_a_sound_plays_is_quiet(self):
        self.paste_and_quit()


class SilenceTest(SoundTestCase):
    preferences = {"playSoundOnPaste": False}

    def test_with_the_preference_off_nothing_is_heard(self):
        self.paste_entry(0)
        self.editor.wait_for_text("first")
        holds_for(lambda: self.server.loudest() < AUDIBLE, 0.8, "silence")


class NoSoundServerTest(DesktopTestCase):
    history = ("first",)
    preferences = {"playSoundOnPaste": True}

    def test_a_paste_is_as_quick_and_nobody_complains(self):
        for expected in ("first", "firstfirst"):
            mark = self.keys.mark()
            self.paste_entry(0)
            self.editor.wait_for_text(expected)
            chosen, pasted = (self.keys.presses(KEY_CODES[key], mark)[0] for key in ("Return", "v"))
            self.assertLess(pasted.time - chosen.time, 700)


class SampleTest(unittest.TestCase):
    def test_the_sample_is_what_its_script_makes(self):
        with tempfile.TemporaryDirectory() as folder:
            made = pathlib.Path(folder) / "tink.wav"
            runpy.run_path(str(SOUND_FOLDER / "tink.py"))["write"](made)
            with wave.open(str(made)) as new, wave.open(str(SOUND_FOLDER / "tink.wav")) as kept:
                self.assertEqual(new.getparams(), kept.getparams())
                new, kept = (array.array("h", sound.readframes(sound.getnframes())) for sound in (new, kept))
            # Another machine's mathematics may round the last digit otherwise.
            self.assertLessEqual(max(abs(a - b) for a, b in zip(new, kept)), 1)
