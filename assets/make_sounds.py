#!/usr/bin/python3
"""Make the two sounds of Kelvane Diamond Table.

    DiceRoll.wav        four dice rattle, fall on wood and come to rest
    BaseballCrowd.wav   a murmuring crowd, to be played in a loop without a seam

Usage:  make_sounds.py [program-folder]

Needs the Debian package python3-numpy.  Every random choice comes from a fixed seed, so
two runs give the same sounds.  The crowd is made on a circle: noise is shaped by its
spectrum, and every clap, whistle and shout that runs past the end goes on at the start.
"""
import sys
import wave
from pathlib import Path

import numpy as np

RATE = 22_050
DICE_SECONDS, CROWD_SECONDS = 1.1, 16.0
DICE_LIMIT, CROWD_LIMIT = 120_000, 900_000      # bytes


# --------------------------------------------------------------------------
# Small tools
# --------------------------------------------------------------------------
def silence(seconds):
    return np.zeros(int(seconds * RATE))


def times(seconds):
    return np.arange(int(seconds * RATE)) / RATE


def lay(track, sound, at, around=False):
    """Add a sound at a second of a track; around: what runs past the end goes on at the start."""
    start = int(at * RATE)
    if around:
        np.add.at(track, (start + np.arange(len(sound))) % len(track), sound)
    else:
        sound = sound[:max(0, len(track) - start)]
        track[start:start + len(sound)] += sound


def shaped_noise(random, length, curve):
    """Circular noise whose spectrum follows the curve, a function of the frequency; RMS 1."""
    frequencies = np.fft.rfftfreq(length, 1 / RATE)
    phases = random.uniform(0, 2 * np.pi, len(frequencies))
    strength = random.rayleigh(1, len(frequencies)) * curve(np.maximum(frequencies, 1))
    strength[0] = 0
    noise = np.fft.irfft(strength * np.exp(1j * phases), length)
    return noise / np.sqrt(np.mean(noise ** 2))


def bell(frequencies, centre, width):
    return np.exp(-0.5 * ((frequencies - centre) / width) ** 2)


def swell(length, random, depth, waves):
    """A slow circular rise and fall around 1."""
    turn = 2 * np.pi * np.arange(length) / length
    slow = sum(np.sin(n * turn + random.uniform(0, 2 * np.pi)) / n for n in waves)
    return 1 + depth * slow / np.max(np.abs(slow))


# --------------------------------------------------------------------------
# The dice
# --------------------------------------------------------------------------
def knock(random, pitch, hardness, wood):
    """One blow: a short click of plastic and the answer of the table."""
    t = times(0.09)
    click = np.zeros(len(t))
    for ratio, weight, decay in ((1, 1, 260), (1.58, 0.7, 340), (2.31, 0.45, 480)):
        click += weight * np.sin(2 * np.pi * pitch * ratio * t + random.uniform(0, 6)) \
            * np.exp(-decay * t)
    edge = random.standard_normal(len(t)) * np.exp(-t * 1100)
    board = np.zeros(len(t))
    for mode, weight, decay in ((172, 1.0, 42), (287, 0.8, 55), (431, 0.5, 70), (702, 0.3, 95)):
        board += weight * np.sin(2 * np.pi * mode * random.uniform(0.98, 1.02) * t) \
            * np.exp(-decay * t)
    onset = np.minimum(1, t / 0.0006)
    return onset * hardness * (0.5 * click + 0.45 * edge + wood * board)


def dice_roll():
    random = np.random.default_rng(2024)
    track = silence(DICE_SECONDS)
    for at in np.sort(random.uniform(0.01, 0.27, 17)):          # in the hand
        lay(track, knock(random, random.uniform(2300, 3900), random.uniform(0.40, 0.85), 0.06), at)
    for pitch in (2450, 2700, 2950, 1900):                      # each die bounces to rest
        at, gap, force = random.uniform(0.31, 0.38), random.uniform(0.13, 0.17), 1.0
        while at < DICE_SECONDS - 0.18 and force > 0.05:
            lay(track, knock(random, pitch * random.uniform(0.93, 1.07), force, 0.8), at)
            at += gap * random.uniform(0.8, 1.15)
            gap *= 0.76
            force *= random.uniform(0.62, 0.80)
            if gap < 0.025:
                gap = 0.025
    fade = np.minimum(1, (DICE_SECONDS - times(DICE_SECONDS)) / 0.06)
    return level(np.tanh(1.1 * track / np.max(np.abs(track))), peak=0.85) * fade


# --------------------------------------------------------------------------
# The crowd
# --------------------------------------------------------------------------
def murmur(random, length):
    """Voices that melt together: noise in the bands of speech, each band on its own swell."""
    sound = np.zeros(length)
    for centre, width, weight in ((260, 90, 0.8), (480, 140, 1.0), (820, 230, 0.75),
                                  (1400, 380, 0.40), (2500, 600, 0.18)):
        band = shaped_noise(random, length, lambda f: bell(f, centre, width))
        syllables = np.abs(shaped_noise(random, length, lambda f: bell(f, 3.5, 1.8)))
        sound += weight * band * (0.7 + 0.3 * syllables) * swell(length, random, 0.22, (1, 2, 3, 5))
    air = shaped_noise(random, length, lambda f: 1 / (1 + (f / 900) ** 1.6))
    sound = (sound + 0.30 * air) * swell(length, random, 0.28, (1, 2, 3))
    return sound / np.sqrt(np.mean(sound ** 2))


def clap(random):
    t = times(0.05)
    centre = random.uniform(900, 1700)
    noise = shaped_noise(random, len(t), lambda f: bell(f, centre, 500))
    return noise * np.exp(-t * random.uniform(90, 150)) * np.minimum(1, t / 0.001)


def whistle(random):
    t = times(random.uniform(0.35, 0.6))
    where = t / t[-1]
    pitch = random.uniform(1700, 2100) * (1 + 0.16 * np.sin(np.pi * where) - 0.10 * where)
    tone = np.sin(2 * np.pi * np.cumsum(pitch) / RATE)
    breath = 0.15 * random.standard_normal(len(t))
    return (tone + breath * tone) * np.sin(np.pi * where) ** 0.7


def shout(random):
    """A vague call from far away: a buzzing voice through two moving formants."""
    pieces = []
    base = random.uniform(150, 230)
    for low, high, long in ((620, 1150, 0.22), (480, 1750, 0.18), (700, 1200, 0.42)):
        t = times(long * random.uniform(0.9, 1.2))
        where = t / t[-1]
        pitch = base * (1 + 0.10 * np.sin(np.pi * where)) * random.uniform(0.95, 1.1)
        phase = 2 * np.pi * np.cumsum(pitch) / RATE
        voice = np.zeros(len(t))
        for harmonic in range(1, 22):
            f = pitch * harmonic
            strength = bell(f, low, 110) + 0.6 * bell(f, high, 170) + 0.02
            voice += strength * np.sin(harmonic * phase) / harmonic ** 0.3
        voice += 0.3 * shaped_noise(random, len(t), lambda g: bell(g, high, 300))
        pieces.append(voice * np.sin(np.pi * where) ** 0.5)
    sound = np.concatenate(pieces)
    return sound / np.max(np.abs(sound))


def far(sound):
    """Take the nearness out of a sound: soften its highs and let the stands answer."""
    softened = np.convolve(sound, np.hanning(9) / np.hanning(9).sum())
    track = np.zeros(len(softened) + int(0.45 * RATE))
    for delay, gain in ((0, 1), (0.083, 0.4), (0.171, 0.28), (0.293, 0.16)):
        lay(track, gain * softened, delay)
    return track


def crowd():
    random = np.random.default_rng(1958)
    length = int(CROWD_SECONDS * RATE)
    track = 0.30 * murmur(random, length)
    for at, people in ((2.6, 7), (7.9, 16), (13.4, 9)):         # a few hands, then more of them
        for _ in range(people):
            pace = random.uniform(0.19, 0.31)
            start, loud = at + random.uniform(0, 1.1), random.uniform(0.08, 0.24)
            for beat in range(random.integers(5, 12)):
                lay(track, loud * far(clap(random)), start + beat * pace + random.normal(0, 0.008),
                    around=True)
    for at, loud in ((5.3, 0.13), (11.2, 0.10), (15.7, 0.11)):
        lay(track, loud * far(whistle(random)), at, around=True)
    for at, loud in ((1.1, 0.60), (4.2, 0.42), (9.6, 0.54), (12.3, 0.38), (14.8, 0.48)):
        lay(track, loud * far(shout(random)), at, around=True)
    return level(track, rms=0.11, peak=0.9)


# --------------------------------------------------------------------------
# Level, checks, files
# --------------------------------------------------------------------------
def level(sound, peak, rms=None):
    """Bring a sound to its loudness; a limiter bends what would go over the peak."""
    if rms:
        sound = sound * rms / np.sqrt(np.mean(sound ** 2))
    else:
        sound = sound * peak / np.max(np.abs(sound))
    knee = 0.7 * peak
    over = np.abs(sound) > knee
    rest = peak - knee
    bent = knee + rest * np.tanh((np.abs(sound) - knee) / rest)
    return np.where(over, np.sign(sound) * bent, sound)


def write(path, sound, limit):
    samples = np.round(sound * 32767).astype("<i2")
    assert np.max(np.abs(samples.astype(int))) < 32_000, "clipped"
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())
    assert path.stat().st_size < limit, "too large"
    peak, rms = np.max(np.abs(sound)), np.sqrt(np.mean(sound ** 2))
    print(f"{path.name}: {len(samples) / RATE:.2f} s, {path.stat().st_size // 1000} kB, "
          f"peak {peak:.2f}, RMS {rms:.3f}")
    return samples.astype(int)


def check_seam(samples):
    """The step over the seam is no larger than those around it, nor is the loudness."""
    step = abs(samples[0] - samples[-1])
    near = np.abs(np.diff(np.concatenate((samples[-400:], samples[:400]))))
    usual = np.percentile(near, 95)
    assert step <= usual, f"seam of {step}, usual {usual}"
    tail, head = (np.sqrt(np.mean(part.astype(float) ** 2))
                  for part in (samples[-RATE // 4:], samples[:RATE // 4]))
    assert 0.6 < tail / head < 1.67, f"loudness {tail} before the seam, {head} after it"
    print(f"  seam: a step of {step}, 95 of 100 steps around are below {usual:.0f}; "
          f"loudness {tail:.0f} before, {head:.0f} after")


def main():
    here = Path(__file__).resolve().parents[1] / "program"
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else here
    write(folder / "DiceRoll.wav", dice_roll(), DICE_LIMIT)
    check_seam(write(folder / "BaseballCrowd.wav", crowd(), CROWD_LIMIT))


if __name__ == "__main__":
    main()
