#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
"""Makes tink.wav, the sound of a paste: a small glass touched once. Run it after a change; the file is in the repository.

Modes of a struck glass are not multiples of one pitch, and the higher ones die away sooner. Every run gives the same
bytes.
"""

import math
import pathlib
import struct
import sys
import wave

SAMPLES_A_SECOND = 44100
SECONDS = 0.22
ATTACK_SECONDS = 0.0008  # without it the sound would begin with a click
RELEASE_SECONDS = 0.03
PEAK = 0.5

# Hertz, loudness, seconds in which the mode falls to 1/e
MODES = (
    (2093.0, 1.00, 0.050),
    (3391.0, 0.42, 0.036),
    (5318.0, 0.26, 0.022),
    (7740.0, 0.12, 0.012),
    (10420.0, 0.05, 0.006),
)


def sample(time):
    sound = sum(loudness * math.exp(-time / decay) * math.sin(2 * math.pi * pitch * time)
                for pitch, loudness, decay in MODES)
    attack = min(1.0, time / ATTACK_SECONDS)
    release = min(1.0, (SECONDS - time) / RELEASE_SECONDS)
    return sound * attack * release


def frames():
    samples = [sample(index / SAMPLES_A_SECOND) for index in range(int(SECONDS * SAMPLES_A_SECOND))]
    scale = PEAK * 32767 / max(map(abs, samples))
    return b"".join(struct.pack("<h", round(value * scale)) for value in samples)


def write(path):
    with wave.open(str(path), "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(SAMPLES_A_SECOND)
        sound.writeframes(frames())


if __name__ == "__main__":
    write(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).with_name("tink.wav"))
