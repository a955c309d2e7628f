"""Skies: heaped clouds, stars, and the mountains below them."""
import numpy as np

from .camera import HORIZON, SHARP, SUPER
from .grid import noise, smoothstep


def billows(u, v, octaves=5):
    """Noise with detail at every size, from about -1 to 1."""
    total, strength = 0, 1.0
    for octave in range(octaves):
        scale = 2.03 ** octave
        total = total + strength * noise(u * scale + 17 * octave, v * scale + 5 * octave)
        strength *= 0.52
    return total / 1.7


def heap(x, y, clouds):
    """How deep each pixel lies inside the nearest cloud; 0 at its edge.

    Every cloud is (middle, base, half width, height): flat below, heaped above."""
    depth = np.full_like(x, -9)
    for middle, base, half, height in clouds:
        up = (base - y) / height
        across = (x - middle) / half
        body = 1 - across ** 2 - np.where(up > 0, up, -7 * up) ** 2
        ruffle = billows((x - middle) / half * 3.4 + middle, (y - base) / height * 1.6 + base)
        depth = np.maximum(depth, body * 0.9 + ruffle * 0.75 * np.clip(0.55 + up, 0.05, 1) - 0.25)
    return depth


def paint_heaped_clouds(colour, x, y, clouds, lit, shade, lean=(-7, -9)):
    """White where the sun strikes, grey towards the base and away from it."""
    depth = heap(x, y, clouds)
    towards = heap(x + lean[0], y + lean[1], clouds)
    light = np.clip(0.62 - 1.15 * (towards - depth) - 0.30 * np.clip(depth, 0, 1), 0, 1)
    for middle, base, half, height in clouds:      # the base in the cloud's own shadow
        own = np.exp(-((x - middle) / half) ** 2 * 1.2)
        light = light - 0.38 * own * smoothstep(base - 0.45 * height, base, y) \
            * smoothstep(base + 0.4 * height, base, y)
    light = np.clip(light, 0, 1)
    tone = np.asarray(shade, np.float32) \
        + (np.asarray(lit, np.float32) - np.asarray(shade, np.float32)) * light[..., None]
    alpha = smoothstep(0.0, 0.30, depth)
    colour += (tone - colour) * (alpha * 0.96)[..., None]


def paint_stars(colour, random, count, faint):
    """Small points, set into the rows of a sky that is still a picture of numbers."""
    size = SUPER
    rows, columns = colour.shape[:2]
    for _ in range(count):
        row = int((random.rand() ** 1.4) * (rows - 30 * SUPER))
        column = random.randint(columns - size)
        bright = random.uniform(0.2, 1.0) ** 3 * (1 - row / rows) * faint
        colour[row:row + size, column:column + size] += bright


class Range:
    """A range of mountains: the row of its crest at every column."""

    def __init__(self, columns, seed, peaks, rough):
        """`peaks` are (column, row) of the crest; between them it is `rough`."""
        known, rows = zip(*peaks)
        self.columns = columns
        crest = np.interp(columns, known, rows)
        detail = sum(noise(columns / size + seed, columns * 0 + seed * 3.7) * size * rough
                     for size in (64, 27, 11, 5, 2.4))
        self.crest = (crest + detail).astype(np.float32)
        reach = 8 * SUPER
        kernel = np.hanning(2 * reach - 1)
        smooth = np.convolve(np.pad(self.crest, reach - 1, mode="edge"), kernel / kernel.sum(),
                             "valid")
        self.slope = np.gradient(smooth, columns)

    def paint(self, image, x, y, rock, snow, haze, snowline, hazed):
        """Sides turned to the left are lit; snow lies on the heights."""
        below = y - self.crest[None, :]
        spurs = noise((x + 0.62 * below) / 25, y / 90 + 3) - noise((x - 0.7 * below) / 21 + 9, y / 90)
        fine = noise((x + 0.8 * below) / 8, y / 12) - noise((x - 0.8 * below) / 7 + 5, y / 12)
        face = np.tanh(-self.slope[None, :] * 0.9 + 1.5 * spurs + 0.55 * fine)
        light = 0.82 + 0.30 * face
        line = snowline + 13 * face + 9 * billows(x / 9 + 40, y / 50, 3)
        white = smoothstep(5, -5, y - line)
        tone = np.asarray(rock, np.float32) * light[..., None]
        tone += (np.asarray(snow, np.float32) * (0.84 + 0.17 * face)[..., None] - tone) \
            * white[..., None]
        depth = hazed + (1 - hazed) * 0.75 * smoothstep(HORIZON - 70, HORIZON + 6, y)
        tone += (np.asarray(haze, np.float32) - tone) * depth[..., None]
        image += (tone - image) * np.clip(below * SHARP + 0.5, 0, 1)[..., None]


def columns_of(px):
    return px[0, :].astype(np.float32)

