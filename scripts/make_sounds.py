#!/usr/bin/python3
"""Make the sounds that ship with Kelvane Diamond Table.

Writes, below the program folder:

    DiceRoll.wav        dice that rattle and settle on a wooden table
    BaseballCrowd.wav   a crowd; its end runs into its beginning without a seam

Usage:  make_sounds.py [program-folder]

Needs the Debian package python3-numpy.  Every random choice comes from a fixed seed, so
two runs give the same sounds.
"""
import sys
import wave
from pathlib import Path

import numpy as np

RATE = 22050


def write(path, samples, peak):
    samples = samples / np.abs(samples).max() * peak
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes((samples * 32767).astype("<i2").tobytes())


# --------------------------------------------------------------------------
# Dice
# --------------------------------------------------------------------------
def knock(random, loudness):
    """A die that hits wood: a click, and the table that answers for a moment."""
    time = np.arange(int(0.09 * RATE)) / RATE
    click = random.normal(size=time.size) * np.exp(-time / 0.0022)
    answer = sum(np.sin(2 * np.pi * pitch * time + random.uniform(0, 6)) * np.exp(-time / decay) * share
                 for pitch, decay, share in ((random.uniform(1900, 2600), 0.007, 0.5),
                                             (random.uniform(700, 950), 0.013, 0.6),
                                             (random.uniform(170, 240), 0.024, 0.7)))
    return loudness * (click + answer)


def dice():
    random = np.random.RandomState(41)
    sound = np.zeros(int(1.15 * RATE))
    for _ in range(4):                              # each die bounces, lower and faster each time
        moment, gap, loudness = random.uniform(0.02, 0.16), random.uniform(0.13, 0.19), 1.0
        while gap > 0.012 and moment < 1.0:
            hit = knock(random, loudness * random.uniform(0.6, 1))
            start = int(moment * RATE)
            end = min(sound.size, start + hit.size)
            sound[start:end] += hit[:end - start]
            moment += gap * random.uniform(0.7, 1.2)
            gap *= 0.74
            loudness *= 0.76
    fade = int(0.05 * RATE)
    sound[-fade:] *= np.linspace(1, 0, fade)
    return sound


# --------------------------------------------------------------------------
# Crowd.  All is made of waves that fit the loop a whole number of times.
# --------------------------------------------------------------------------
SECONDS = 16


def looped_noise(random, shape):
    """Noise whose strength at each frequency is shape(frequency); it has no seam."""
    count = SECONDS * RATE
    pitch = np.fft.rfftfreq(count, 1 / RATE)
    phase = random.uniform(0, 2 * np.pi, pitch.size)
    return np.fft.irfft(shape(pitch) * np.exp(1j * phase), count)


def band(middle, width):
    return lambda pitch: np.exp(-((pitch - middle) / width) ** 2)


def swell(random, slowest, fastest, depth):
    """A loudness that rises and falls, and ends as it began."""
    time = np.arange(SECONDS * RATE) / (SECONDS * RATE)
    wave_sum = sum(np.sin(2 * np.pi * (turns * time + random.uniform())) / turns ** 0.5
                   for turns in range(slowest, fastest))
    return 1 + depth * wave_sum / np.abs(wave_sum).max()


def unit(sound):
    return sound / sound.std()


def add_around(sound, part, start):
    """Add a part; what goes beyond the end comes in at the beginning."""
    places = (start + np.arange(part.size)) % sound.size
    np.add.at(sound, places, part)


def crowd():
    random = np.random.RandomState(1926)
    murmur = unit(looped_noise(random, lambda f: 1 / (1 + (f / 420) ** 2) * (f > 60)))
    sound = 0.9 * murmur * swell(random, 1, 9, 0.22)
    # Many voices: vowels, each with a life of its own.
    for middle, width, loudness in ((520, 110, 0.6), (760, 140, 0.5), (1150, 190, 0.35),
                                    (1750, 260, 0.22), (2500, 330, 0.12)):
        voices = unit(looped_noise(random, band(middle, width)))
        sound += loudness * voices * swell(random, 2, 40, 0.5)
    for _ in range(150):                            # scattered hands
        time = np.arange(int(0.05 * RATE)) / RATE
        clap = random.normal(size=time.size) * np.exp(-time / random.uniform(0.006, 0.012))
        add_around(sound, clap * random.uniform(0.05, 0.4), random.randint(sound.size))
    for _ in range(3):                              # somebody whistles, far away
        time = np.arange(int(random.uniform(0.35, 0.6) * RATE)) / RATE
        pitch = random.uniform(2000, 2500) + 350 * np.sin(2 * np.pi * 2.2 * time)
        whistle = np.sin(2 * np.pi * np.cumsum(pitch) / RATE) * np.hanning(time.size)
        add_around(sound, 0.16 * whistle, random.randint(sound.size))
    return sound


def main():
    program = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent / "program")
    write(program / "DiceRoll.wav", dice(), 0.8)
    write(program / "BaseballCrowd.wav", crowd(), 0.55)


if __name__ == "__main__":
    main()
