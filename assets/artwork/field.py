"""The field, computed for every pixel from its place on the ground."""
import math
from dataclasses import dataclass
from typing import Callable

import numpy as np

from .camera import BACK, CENTRE_X, FALL, HORIZON, SCALE, SECOND_FT, SUPER
from .grid import blend, chalk, cover, noise, smoothstep

MOUND_Y = 60.5
BASE = 90 / math.sqrt(2)        # x and y of first base
BASES = ((0, 0), (BASE, BASE), (0, SECOND_FT), (-BASE, BASE))
CHALK, WHITE, SHADOW = (232, 224, 204), (240, 236, 224), (60, 42, 30)


@dataclass
class Turf:
    """How the ground of one park looks."""
    grass: tuple
    dirt: tuple
    mowing: Callable             # ground -> brightness pattern of the cut grass
    light: Callable              # (colour, ground) -> lights the ground, in place
    wear: Callable | None = None  # ground -> how far the grass is worn to dirt
    track: float = 13            # width of the warning track, in feet
    top: int = 270               # first screen row that can show ground


def box(x, y, centre_x, centre_y, half_x, half_y):
    return np.maximum(np.abs(x - centre_x) - half_x, np.abs(y - centre_y) - half_y)


def rounded_max(a, b, size):
    """The common part of two shapes, its corners rounded."""
    return np.maximum(a, b) + np.maximum(size - np.abs(a - b), 0) ** 2 / (4 * size)


def mown(across, width, soft):
    return np.tanh(np.sin(across * math.pi / width) * soft)


class Ground:
    """Where each pixel lies on the field, and how far from each of its shapes."""

    def __init__(self, px, py, outline):
        self.row = py
        self.depth = depth = FALL / (py - HORIZON)
        self.x = x = (px - CENTRE_X) * depth / SCALE
        self.y = y = depth - BACK
        self.near = np.clip(95 / depth, 0, 1)      # fine texture fades with distance
        self.along_first = (x + y) / math.sqrt(2)  # feet up the first-base line
        self.along_third = (y - x) / math.sqrt(2)
        self.angle = np.arctan2(x, y)
        self.from_mound = np.hypot(x, y - MOUND_Y + 1.5)
        self.park = self.inside_park(outline)
        self.shape_infield()

    # The shapes are signed distances, negative inside.

    def inside_park(self, outline):
        fence = np.hypot(self.x, self.y) \
            - np.interp(self.angle, outline.angles, outline.radii).astype(np.float32)
        slope = outline.wall_slope
        wall = (np.abs(self.x) - outline.wall_at_home - slope * self.y) / math.hypot(1, slope)
        return np.maximum(fence, wall)

    def shape_infield(self):
        x, y = self.x, self.y
        self.mound = self.from_mound - 9
        fair = -np.minimum(self.along_first, self.along_third) - 4
        skin = rounded_max(np.hypot(x, y - MOUND_Y) - 95, fair, 9)
        lawn = np.maximum(np.abs(self.along_first - 45), np.abs(self.along_third - 45)) - 41
        for cx, cy in BASES[1:]:
            lawn = np.maximum(lawn, 13 - np.hypot(x - cx, y - cy))
        self.lawn = lawn
        keyhole = np.maximum(np.abs(x) - 2.6, np.abs(y - 30) - 28)
        dirt = np.maximum(skin, -lawn)
        self.dirt = np.minimum(np.minimum(dirt, np.hypot(x, y) - 13),
                               np.minimum(self.mound, keyhole))


def grass_colour(g, turf):
    """Mown, and mottled at several sizes."""
    x, y = g.x, g.y
    tone = 1 + turf.mowing(g) + 0.05 * noise(x / 33, y / 33) + 0.035 * noise(x / 9, y / 9)
    tone += g.near * (0.06 * noise(x * 1.6, y * 1.1) + 0.07 * noise(x * 6, y * 3.4)
                      + 0.08 * noise(x * 15, y * 8))
    grass = np.array(turf.grass, np.float32) * tone[..., None]
    grass[..., 0] *= 1 + 0.07 * noise(x / 17 + 9, y / 17)
    return grass


def dirt_colour(g, turf):
    """Swept around the mound, damp in places, scuffed where feet go."""
    x, y = g.x, g.y
    sweep = noise(np.hypot(x, y - MOUND_Y) * 0.9, np.arctan2(x, y - MOUND_Y) * 5)
    tone = 1 + 0.05 * noise(x / 14 + 3, y / 14) + 0.04 * noise(x / 4, y / 4) + 0.025 * sweep
    tone += g.near * (0.06 * noise(x * 3, y * 2.2) + 0.06 * noise(x * 9, y * 6))
    for cx, cy in BASES:
        worn = np.exp(-((x - cx) ** 2 + (y - cy) ** 2) / 40)
        tone -= worn * (0.05 + 0.07 * noise(x * 0.9 + 31, y * 0.9))
    rise = np.clip((g.mound + 9) / 9, 0, 1)        # the mound's far side catches the light
    slope = np.where(g.mound < 0, np.sin(rise * math.pi), 0)
    middle = np.maximum(g.from_mound, 0.5)
    tone += slope * (0.10 * (y - MOUND_Y + 1.5) - 0.09 * x) / middle
    return np.array(turf.dirt, np.float32) * tone[..., None]


def paint_chalk(colour, g):
    x, y, along_first, along_third = g.x, g.y, g.along_first, g.along_third
    beyond_home = cover(3.8 - np.abs(x))           # the lines start at the batter's boxes
    lines = np.zeros_like(x)
    for along, other in ((along_third, along_first), (along_first, along_third)):
        lines = np.maximum(lines, chalk(along, 0.17) * (other > 0) * beyond_home)
    for side in (-1, 1):
        batter = box(x, y, side * 3.0, 0.7, 1.85, 3.1)
        lines = np.maximum(lines, chalk(batter, 0.13))
        up, out = (along_first, along_third) if side > 0 else (along_third, along_first)
        coach = chalk(box(up, out, 80, -14, 10, 5), 0.15) * (out > -18.6)
        lines = np.maximum(lines, coach * 0.8)
    lane = chalk(along_third + 3, 0.12) * (np.abs(along_first - 67) < 22)
    lines = np.maximum(lines, lane * 0.9)
    catcher = chalk(np.abs(x) - 2.2, 0.13) * (y < -2.4) * (y > -8)
    lines = np.maximum(lines, catcher)
    blend(colour, CHALK, lines * (0.80 + 0.16 * noise(x * 1.3, y * 1.3)))


def paint_bags(colour, g):
    """Bases, pitcher's plate and home plate, with their small shadows."""
    x, y = g.x, g.y
    for cx, cy in ((BASE - .9, BASE), (0, SECOND_FT - .3), (-BASE + .9, BASE)):
        shadow = np.abs(x - cx) + np.abs(y - cy + 0.9) - 1.95
        blend(colour, SHADOW, cover(shadow) * 0.55)
        blend(colour, WHITE, cover(np.abs(x - cx) + np.abs(y - cy) - 1.75))
    blend(colour, WHITE, cover(box(x, y, 0, MOUND_Y, 1.15, 0.36)))
    plate = np.maximum(box(x, y, 0, 0.72, 0.72, 0.72), np.abs(x) - y)
    blend(colour, SHADOW, cover(plate - 0.16) * 0.5)
    blend(colour, WHITE, cover(plate))


def paint_field(image, px, py, outline, turf):
    top = turf.top * SUPER
    g = Ground(px[top:], py[top:], outline)
    rough = noise(g.x * 0.45, g.y * 0.45) * 0.13 + noise(g.x * 2.7, g.y * 2.7) * 0.05
    colour = grass_colour(g, turf)
    track = cover(-g.park - turf.track + rough) * 0.88
    dirt = np.maximum(cover(g.dirt + rough), track)
    if turf.wear:
        dirt = np.maximum(dirt, turf.wear(g))
    colour += (dirt_colour(g, turf) - colour) * dirt[..., None]
    lip = np.exp(-np.abs(g.dirt + rough + 0.25) / 0.55) * g.near
    colour *= (1 - 0.22 * lip)[..., None]          # where turf meets dirt
    paint_chalk(colour, g)
    paint_bags(colour, g)
    turf.light(colour, g)
    blend(image[top:], colour, cover(g.park))


def pools(g, spread=120):
    """The light that lamps throw on the infield."""
    return np.exp(-(g.x ** 2 + (g.y - 75) ** 2) / (2 * spread ** 2))


def corners_of_sight(g):
    """The darker ground at the sides and the foot of the picture."""
    return smoothstep(70, 150, np.abs(g.x) - 0.55 * g.y + 20)
