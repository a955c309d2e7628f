#!/usr/bin/python3
"""Draw the pictures that ship with Kelvane Diamond Table.

Writes, below the program folder:

    Ballparks/DEFAULT1679X974.jpg   the ballpark behind the whole board
    Logos/VisLogo.jpg, HomeLogo.jpg logos for a team that has none of its own
    Logos/<team>.jpg                logos of the four example teams

Usage:  make_artwork.py [program-folder]

Needs the Debian packages python3-cairo, python3-pil, python3-numpy and, for the
lettering on fence and scoreboard, fonts-dejavu-core.  Every random choice comes
from a fixed seed, so two runs give the same pictures.
"""
import math
import sys
from pathlib import Path

import cairo
import numpy as np
from PIL import Image, ImageFilter

SLATE = (22, 38, 31)            # the colour of the board's panels
JPEG_LIMIT = 600_000            # bytes the ballpark may take

# --------------------------------------------------------------------------
# The camera.  Ground positions are feet: home plate is (0, 0), x grows towards
# first base, y towards centre field, z upwards.  The picture plane is upright,
# so a vertical edge in the park stays vertical in the picture.
# --------------------------------------------------------------------------
WIDTH, HEIGHT = 1679, 974
SUPER = 2                       # drawn this many times larger, then reduced
CENTRE_X = 840
HORIZON = 226
HOME_Y, SECOND_Y = 890, 430     # screen rows of home plate and second base
SECOND_FT = 90 * math.sqrt(2)
BACK = SECOND_FT / ((HOME_Y - HORIZON) / (SECOND_Y - HORIZON) - 1)
FALL = (HOME_Y - HORIZON) * BACK
SCALE = 613                     # pixels per foot at one foot of depth
EYE = FALL / SCALE              # how high above the field the viewer sits
MOUND_Y = 60.5
BASE = 90 / math.sqrt(2)        # x and y of first base


def project(x, y, z=0.0):
    depth = y + BACK
    return CENTRE_X + SCALE * x / depth, HORIZON + SCALE * (EYE - z) / depth


def unit(y):
    """Pixels per foot, across the view, at the distance y."""
    return SCALE / (y + BACK)


# --------------------------------------------------------------------------
# The outline of the park: a fence given by its distance from home plate at an
# angle from the line to centre field, and a straight wall along each foul side.
# --------------------------------------------------------------------------
FENCE_DEGREES = (-70, -45, -33, -20, -7, 6, 19, 33, 45, 70)
FENCE_FEET = (330, 315, 344, 374, 394, 394, 369, 337, 311, 330)
WALL_AT_HOME, WALL_SLOPE = 84.0, 0.70


def fence_table():
    degrees = np.linspace(-70, 70, 561)
    feet = np.interp(degrees, FENCE_DEGREES, FENCE_FEET)
    kernel = np.hanning(33)
    padded = np.pad(feet, 16, mode="edge")
    return np.radians(degrees), np.convolve(padded, kernel / kernel.sum(), "valid")


FENCE_ANGLES, FENCE_RADII = fence_table()


def fence_point(degrees, beyond=0.0):
    angle = math.radians(degrees)
    radius = float(np.interp(angle, FENCE_ANGLES, FENCE_RADII)) + beyond
    return radius * math.sin(angle), radius * math.cos(angle)


def corner_degrees():
    """The angle at which the fence meets the foul-side wall."""
    for degrees in np.arange(45, 70, 0.05):
        x, y = fence_point(degrees)
        if x > WALL_AT_HOME + WALL_SLOPE * y:
            return float(degrees)
    return 60.0


CORNER = corner_degrees()


# --------------------------------------------------------------------------
# Small tools
# --------------------------------------------------------------------------
def smoothstep(low, high, value):
    t = np.clip((value - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


LATTICE = np.random.RandomState(1907).rand(256, 256).astype(np.float32)


def noise(u, v):
    """Smooth value noise from -1 to 1; one bump per unit."""
    iu, iv = np.floor(u).astype(np.int32), np.floor(v).astype(np.int32)
    fu, fv = (u - iu).astype(np.float32), (v - iv).astype(np.float32)
    fu, fv = fu * fu * (3 - 2 * fu), fv * fv * (3 - 2 * fv)
    u0, u1, v0, v1 = iu & 255, (iu + 1) & 255, iv & 255, (iv + 1) & 255
    top = LATTICE[v0, u0] * (1 - fu) + LATTICE[v0, u1] * fu
    low = LATTICE[v1, u0] * (1 - fu) + LATTICE[v1, u1] * fu
    return (top * (1 - fv) + low * fv) * 2 - 1


def cover(distance):
    """How far each pixel lies inside a shape, from its signed distance."""
    down, across = np.gradient(distance)
    step = np.hypot(down, across) + 1e-6
    return np.clip(0.5 - distance / step, 0, 1)


def chalk(distance, half_width):
    """Cover of a line that never gets thinner than about one pixel."""
    down, across = np.gradient(distance)
    step = np.hypot(down, across) + 1e-6
    half = np.maximum(half_width, 0.75 * step)
    return np.clip(0.5 - (np.abs(distance) - half) / step, 0, 1)


def blend(image, colour, alpha):
    image += (np.asarray(colour, np.float32) - image) * alpha[..., None]


def canvas():
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, WIDTH * SUPER, HEIGHT * SUPER)
    context = cairo.Context(surface)
    context.scale(SUPER, SUPER)
    return surface, context


def lay_over(image, surface):
    """Put a cairo drawing on top of the float picture."""
    surface.flush()
    data = np.ndarray((surface.get_height(), surface.get_stride() // 4, 4), np.uint8,
                      surface.get_data())[:, :surface.get_width()].astype(np.float32)
    image *= 1 - data[..., 3:4] / 255
    image += data[..., 2::-1]


def ink(context, colour, alpha=1.0, light=1.0):
    context.set_source_rgba(*(min(1, c * light / 255) for c in colour), alpha)


def polygon(context, points):
    context.move_to(*points[0])
    for point in points[1:]:
        context.line_to(*point)
    context.close_path()


# --------------------------------------------------------------------------
# Sky, bay and far shore
# --------------------------------------------------------------------------
SUN_X = 585
SKY = ((-226, (36, 48, 68)), (-140, (66, 74, 94)), (-84, (126, 108, 116)),   # rows from the horizon
       (-42, (196, 140, 112)), (-13, (234, 174, 116)), (2, (246, 200, 138)))


def gradient(rows, stops):
    places = [place for place, _ in stops]
    return np.stack([np.interp(rows, places, [c[i] for _, c in stops]) for i in range(3)],
                    axis=-1).astype(np.float32)


def paint_sky(image, px, py):
    rows = py < HORIZON + 2
    x, y = px[rows], py[rows]
    colour = gradient(y - HORIZON, SKY)
    glow = np.exp(-((x - SUN_X) / 330) ** 2 - ((y - HORIZON) / 70) ** 2)
    colour += glow[..., None] * np.array((30, 24, 4), np.float32)
    depth = 900 / (HORIZON + 18 - y)               # clouds lie flat, like a ceiling
    u, v = (x - CENTRE_X) * depth / 1500 + 40, depth * 2.6
    cloud = noise(u, v) + 0.5 * noise(u * 2.1, v * 2.1) + 0.28 * noise(u * 4.4, v * 4.4)
    cloud = smoothstep(0.1, 1.1, cloud) * smoothstep(HORIZON, HORIZON - 45, y)
    lit = gradient(y - HORIZON, ((-226, (88, 86, 104)), (-100, (170, 128, 122)),
                                 (-5, (255, 206, 150))))
    colour += (lit - colour) * (cloud * 0.75)[..., None]
    image[rows] = colour


def paint_bay(image, px, py):
    rows = (py >= HORIZON + 2) & (py < 420)
    x, y = px[rows], py[rows]
    depth = FALL / (y - HORIZON)
    colour = gradient(y - HORIZON, ((2, (232, 188, 138)), (14, (178, 146, 126)),
                                    (34, (108, 106, 108)), (80, (58, 70, 76))))
    ripple = noise((x - CENTRE_X) * depth / 9000, depth / 55) * 0.6 \
        + noise((x - CENTRE_X) * depth / 3600, depth / 21) * 0.4
    colour *= (1 + 0.10 * ripple)[..., None]
    path = np.exp(-((x - SUN_X) / (34 + (y - HORIZON) * 1.5)) ** 2)
    glint = path * (0.35 + 0.65 * smoothstep(0.0, 0.7, ripple))
    colour += (np.array((255, 204, 138), np.float32) - colour) * (glint * 0.8)[..., None]
    image[rows] = colour


def ridge(context, random, base, height, step, colour):
    context.move_to(0, HORIZON + 7)
    level = base
    for x in range(0, WIDTH + step, step):
        level += random.uniform(-1, 1) * height * 0.3
        level += (base - level) * 0.12
        context.line_to(x, level)
    context.line_to(WIDTH, HORIZON + 7)
    ink(context, colour)
    context.fill()


def paint_far_shore(context, random):
    ridge(context, random, HORIZON - 9, 7, 26, (140, 112, 112))
    ridge(context, random, HORIZON - 3, 4, 14, (98, 88, 94))
    for _ in range(90):                            # lamps of the town across the bay
        x = random.normal(1120, 190)
        ink(context, (255, 214, 150), random.uniform(0.25, 0.8))
        context.arc(x, HORIZON + random.uniform(-1, 6), random.uniform(0.4, 0.9), 0, 7)
        context.fill()
    for x, size in ((452, 9), (655, 6), (742, 7), (1215, 6)):      # boats coming home
        y = HORIZON + 10 + size * 0.8
        ink(context, (52, 50, 56), 0.9)
        polygon(context, ((x - size * .5, y), (x + size * .55, y), (x + size * .35, y + 2),
                          (x - size * .35, y + 2)))
        context.fill()
        ink(context, (236, 206, 168), 0.85)
        polygon(context, ((x, y - .6), (x, y - size * 1.7), (x + size * .5, y - .6)))
        context.fill()


def tree(context, random, x, y, height):
    foot_x, foot_y = project(x, y)
    scale = unit(y)
    tall = height * scale
    crown = random.uniform(0.30, 0.42)             # half as wide as it is tall, or less
    leaves = []
    for _ in range(110):
        turn, reach = random.uniform(0, 2 * math.pi), math.sqrt(random.rand())
        leaves.append((0.60 + 0.38 * reach * math.sin(turn), crown * reach * math.cos(turn)))
    for up, aside in leaves:                       # brighter on top and towards the sun
        light = 0.62 + 0.75 * max(0, up - 0.45) - 0.35 * aside * math.copysign(1, x + 60)
        ink(context, (44, 54, 38), 0.9, light * random.uniform(0.8, 1.2))
        context.arc(foot_x + aside * tall, foot_y - up * tall,
                    random.uniform(.045, .085) * tall, 0, 7)
        context.fill()


def paint_trees(context, random):
    """The shore behind the fence, with the trees between bleachers and water."""
    near, far = list(fence_line(-75, 75)), [fence_point(d, 215) for d in range(-75, 76, 5)]
    polygon(context, [project(p[0], p[1]) for p in near] + [project(*p) for p in far[::-1]])
    ink(context, (34, 42, 34))
    context.fill()
    spots = []
    for _ in range(170):
        degrees = random.uniform(-62, 62)
        if -23 < degrees < -11:                    # leave the sun's path open
            continue
        tall = 20 + 17 * smoothstep(8, 50, abs(degrees + 3)) + random.uniform(-6, 9)
        x, y = fence_point(degrees, random.uniform(75, 190))
        spots.append((y, x, float(tall)))
    for y, x, tall in sorted(spots, reverse=True):
        tree(context, random, x, y, tall)


# --------------------------------------------------------------------------
# The field, computed for every pixel from its place on the ground
# --------------------------------------------------------------------------
GRASS = np.array((70, 90, 50), np.float32)
DIRT = np.array((150, 110, 78), np.float32)
CHALK, WHITE, SHADOW = (232, 224, 204), (240, 236, 224), (60, 42, 30)
BASES = ((0, 0), (BASE, BASE), (0, SECOND_FT), (-BASE, BASE))


def box(x, y, centre_x, centre_y, half_x, half_y):
    return np.maximum(np.abs(x - centre_x) - half_x, np.abs(y - centre_y) - half_y)


def rounded_max(a, b, size):
    """The common part of two shapes, its corners rounded."""
    return np.maximum(a, b) + np.maximum(size - np.abs(a - b), 0) ** 2 / (4 * size)


def mown(across, width, soft):
    return np.tanh(np.sin(across * math.pi / width) * soft)


class Ground:
    """Where each pixel lies on the field, and how far from each of its shapes."""

    def __init__(self, px, py):
        self.row = py
        self.depth = depth = FALL / (py - HORIZON)
        self.x = x = (px - CENTRE_X) * depth / SCALE
        self.y = y = depth - BACK
        self.near = np.clip(95 / depth, 0, 1)      # fine texture fades with distance
        self.along_first = (x + y) / math.sqrt(2)  # feet up the first-base line
        self.along_third = (y - x) / math.sqrt(2)
        self.angle = np.arctan2(x, y)
        self.from_mound = np.hypot(x, y - MOUND_Y + 1.5)

        # Signed distances, negative inside.
        radius = np.hypot(x, y)
        fence = radius - np.interp(self.angle, FENCE_ANGLES, FENCE_RADII).astype(np.float32)
        wall = (np.abs(x) - WALL_AT_HOME - WALL_SLOPE * y) / math.hypot(1, WALL_SLOPE)
        self.park = np.maximum(fence, wall)
        self.mound = self.from_mound - 9
        fair = -np.minimum(self.along_first, self.along_third) - 4
        skin = rounded_max(np.hypot(x, y - MOUND_Y) - 95, fair, 9)
        lawn = np.maximum(np.abs(self.along_first - 45), np.abs(self.along_third - 45)) - 41
        for cx, cy in BASES[1:]:
            lawn = np.maximum(lawn, 13 - np.hypot(x - cx, y - cy))
        self.lawn = lawn
        keyhole = np.maximum(np.abs(x) - 2.6, np.abs(y - 30) - 28)
        dirt = np.maximum(skin, -lawn)
        self.dirt = np.minimum(np.minimum(dirt, radius - 13), np.minimum(self.mound, keyhole))


def grass_colour(g):
    """Two crossing directions of mowing, mottled at several sizes."""
    pattern = 0.062 * mown(g.along_first, 20, 5) + 0.050 * mown(g.along_third, 20, 5)
    infield = smoothstep(1.0, -1.0, g.lawn)
    pattern += (0.052 * mown(g.along_first - 45, 10.25, 5) - pattern) * infield
    x, y = g.x, g.y
    tone = 1 + pattern + 0.05 * noise(x / 33, y / 33) + 0.035 * noise(x / 9, y / 9)
    tone += g.near * (0.06 * noise(x * 1.6, y * 1.1) + 0.07 * noise(x * 6, y * 3.4)
                      + 0.08 * noise(x * 15, y * 8))
    grass = GRASS * tone[..., None]
    grass[..., 0] *= 1 + 0.07 * noise(x / 17 + 9, y / 17)
    return grass


def dirt_colour(g):
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
    return DIRT * tone[..., None]


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


def evening_light(colour, g):
    """Warm from beyond left-centre, with the lamps over the infield."""
    x, y = g.x, g.y
    far = smoothstep(40, 400, y)
    sun = np.exp(-((g.angle + 0.28) / 0.75) ** 2) * far
    pool = np.exp(-(x ** 2 + (y - 75) ** 2) / (2 * 120 ** 2))
    level = 0.78 + 0.18 * far + 0.22 * pool + 0.24 * sun
    level *= 1 - 0.30 * np.exp(g.park / 16)        # shade at the foot of every wall
    level *= 1 - 0.34 * smoothstep(70, 150, np.abs(x) - 0.55 * y + 20)
    level *= 1 - 0.12 * smoothstep(830, HEIGHT, g.row)
    warm = np.stack((1.03 + 0.10 * far + 0.16 * sun, 1.0 + 0.02 * sun, 0.96 - 0.14 * sun),
                    axis=-1)
    colour *= level[..., None] * warm
    blend(colour, (214, 160, 112), smoothstep(250, 460, y) * 0.10)


def paint_field(image, px, py):
    top = 270 * SUPER
    g = Ground(px[top:], py[top:])
    rough = noise(g.x * 0.45, g.y * 0.45) * 0.13 + noise(g.x * 2.7, g.y * 2.7) * 0.05
    colour = grass_colour(g)
    track = cover(-g.park - 13 + rough) * 0.88     # the warning track
    dirt = np.maximum(cover(g.dirt + rough), track)
    colour += (dirt_colour(g) - colour) * dirt[..., None]
    lip = np.exp(-np.abs(g.dirt + rough + 0.25) / 0.55) * g.near
    colour *= (1 - 0.22 * lip)[..., None]          # where turf meets dirt
    paint_chalk(colour, g)
    paint_bags(colour, g)
    evening_light(colour, g)
    blend(image[top:], colour, cover(g.park))


# --------------------------------------------------------------------------
# Stands, walls, scoreboard, light towers
# --------------------------------------------------------------------------
CLOTHES = ((206, 196, 178), (180, 170, 156), (112, 124, 140), (74, 84, 104), (150, 92, 70),
           (128, 62, 54), (88, 102, 84), (196, 166, 112), (60, 58, 62), (226, 218, 202))
SKIN = ((214, 168, 136), (188, 138, 106), (142, 98, 72), (98, 68, 52))


def wall_line(side, first, last, count=40):
    """Ground points along a foul-side wall, with the direction away from the field.

    That direction is straight across the view, so that the back rows never
    reach behind the viewer."""
    for y in np.linspace(first, last, count):
        yield side * (WALL_AT_HOME + WALL_SLOPE * y), y, side, 0.0


def fence_line(first, last, count=40):
    for degrees in np.linspace(first, last, count):
        angle = math.radians(degrees)
        yield (*fence_point(degrees), math.sin(angle), math.cos(angle))


def paint_stand(context, random, line, front, rows, rise, gap, light, full):
    """Rows of seats climbing away from a wall, drawn from the back forwards."""
    line = list(line)

    def at(index, back, z):
        x, y, nx, ny = line[index]
        return x + nx * back, y + ny * back, z

    steps = np.hypot(np.diff([p[0] for p in line]), np.diff([p[1] for p in line]))
    for row in range(rows, -1, -1):
        back, z = row * gap + gap, front + row * rise
        upper = [project(*at(i, back, z)) for i in range(len(line))]
        lower = [project(*at(i, back - gap, z - rise * 1.6)) for i in range(len(line))]
        ink(context, (40, 52, 47), 1, light * random.uniform(0.86, 1.0))
        polygon(context, upper + lower[::-1])
        context.fill()
        backs = [project(*at(i, back, z + 1.3)) for i in range(len(line))]
        ink(context, (64, 90, 76), 1, light * random.uniform(0.72, 0.82))
        polygon(context, upper + backs[::-1])
        context.fill()
        for i, step in enumerate(steps):
            if i % 7 == 6:                         # an aisle
                continue
            seats = max(1, int(step / 2.1))
            for seat in range(seats):
                t = (seat + random.uniform(0.2, 0.8)) / seats
                a, b = at(i, back, z), at(i + 1, back, z)
                x, y = a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t
                sx, sy = project(x, y, z)
                if random.rand() > full or not -8 < sx < WIDTH + 8 or sy > HEIGHT + 20:
                    continue
                size = unit(y)
                tone = light * random.uniform(0.55, 1.0)
                ink(context, CLOTHES[random.randint(len(CLOTHES))], 0.92, tone)
                context.save()
                context.translate(sx, sy - 0.7 * size)
                context.scale(0.92 * size, 1.15 * size)
                context.arc(0, 0, 1, 0, 7)
                context.restore()
                context.fill()
                ink(context, SKIN[random.randint(len(SKIN))], 0.95, tone * 1.05)
                context.arc(sx, sy - 2.1 * size, 0.50 * size, 0, 7)
                context.fill()


def paint_roof(context, line, front, back, low, high):
    """The roof of a grandstand on thin columns, and its row of pennants."""
    line = list(line)

    def at(point, away, z):
        x, y, nx, ny = point
        return project(x + nx * away, y + ny * away, z)

    for point in line[::3]:
        ink(context, (30, 42, 38))
        context.set_line_width(max(1.2, 1.1 * unit(point[1])))
        context.move_to(*at(point, front + 3, low))
        context.line_to(*at(point, front + 3, 20))
        context.stroke()
    front_edge = [at(p, front, low) for p in line]
    back_edge = [at(p, back, high) for p in line]
    polygon(context, front_edge + back_edge[::-1])
    ink(context, (42, 56, 52))
    context.fill()
    for a, b in zip(front_edge, back_edge):
        context.move_to(*a)
        context.line_to(*b)
    ink(context, (26, 38, 34), 0.6)
    context.set_line_width(0.7)
    context.stroke()
    under = [at(p, front, low - 4) for p in line]
    polygon(context, front_edge + under[::-1])
    ink(context, (150, 132, 104), 1, 0.75)
    context.fill()
    for number, point in enumerate(line[1::4]):
        size = unit(point[1])
        x, y = at(point, back, high)
        ink(context, (40, 44, 44))
        context.set_line_width(0.9)
        context.move_to(x, y)
        context.line_to(x, y - 13 * size)
        context.stroke()
        polygon(context, ((x, y - 13 * size), (x + 10 * size, y - 11 * size), (x, y - 8.5 * size)))
        ink(context, ((150, 70, 54), (196, 168, 112))[number % 2])
        context.fill()


def strip(context, line, low, high, colour, light=1.0, alpha=1.0):
    lower = [project(p[0], p[1], low) for p in line]
    upper = [project(p[0], p[1], high) for p in line]
    polygon(context, lower + upper[::-1])
    ink(context, colour, alpha, light)
    context.fill()


def paint_outfield_wall(context):
    line = list(fence_line(-CORNER, CORNER, 120))
    strip(context, line, 0, 10, (30, 58, 46))
    strip(context, line, 0, 1.2, (20, 36, 30))
    strip(context, line, 9.2, 10.3, (196, 164, 82), 0.9)
    ink(context, (18, 38, 31), 0.7)
    context.set_line_width(0.7)
    for x, y, _, _ in line[::3]:
        context.move_to(*project(x, y, 1))
        context.line_to(*project(x, y, 9.2))
    context.stroke()
    context.select_font_face("DejaVu Sans", cairo.FONT_SLANT_NORMAL,
                             cairo.FONT_WEIGHT_BOLD)
    for degrees, text in ((-42.5, "315"), (-21, "372"), (0, "395"), (20, "366"), (42.5, "311")):
        x, y = project(*fence_point(degrees), 2.4)
        context.set_font_size(7.4 * unit(fence_point(degrees)[1]))
        extents = context.text_extents(text)
        ink(context, (224, 212, 178), 0.9)
        context.move_to(x - extents.width / 2 - extents.x_bearing, y)
        context.show_text(text)
    for side in (-45, 45):                         # foul poles
        x, y = fence_point(side)
        context.set_line_width(2.0)
        ink(context, (222, 186, 92))
        context.move_to(*project(x, y, 0))
        context.line_to(*project(x, y, 46))
        context.stroke()


def paint_foul_walls(context, side):
    line = list(wall_line(side, -40, fence_point(CORNER)[1], 60))
    strip(context, line, 0, 4.2, (34, 54, 46))
    strip(context, line, 3.7, 4.4, (168, 148, 112), 0.8)
    dugout = list(wall_line(side, 2, 46, 10))
    strip(context, dugout, 0, 4.6, (12, 18, 17))
    for x, y, _, _ in dugout:                      # posts of the dugout
        context.move_to(*project(x, y, 0))
        context.line_to(*project(x, y, 5))
    ink(context, (96, 104, 92))
    context.set_line_width(2)
    context.stroke()
    strip(context, dugout, 4.6, 6.2, (52, 78, 66))
    strip(context, dugout, 6.0, 6.4, (190, 170, 128), 0.85)


def paint_batters_eye(context):
    line = list(fence_line(-9, 9, 14))
    strip(context, [(x * 1.02, y * 1.02, a, b) for x, y, a, b in line], 0, 25, (22, 40, 33))
    strip(context, [(x * 1.02, y * 1.02, a, b) for x, y, a, b in line], 24, 25.2, (66, 84, 70))


def paint_scoreboard(context):
    """A board worked by hand, standing in right-centre."""
    x, y = fence_point(19, 14)
    scale = unit(y)
    left, base = project(x - 44, y, 10)
    width, height = 88 * scale, 36 * scale
    top = base - height
    context.rectangle(left - 2, top - 2, width + 4, height + 8)
    ink(context, (16, 28, 23))
    context.fill()
    context.rectangle(left, top, width, height)
    ink(context, (32, 60, 48))
    context.fill()
    ink(context, (170, 150, 104), 0.9)
    context.set_line_width(1)
    context.rectangle(left, top, width, height)
    context.stroke()
    context.select_font_face("DejaVu Sans", cairo.FONT_SLANT_NORMAL,
                             cairo.FONT_WEIGHT_BOLD)
    column = width * 0.55 / 10
    for row, name in enumerate(("", "VISITORS", "HOME")):      # no numbers hung: they are
        middle = top + height * (0.2 + 0.28 * row)              # on the program's own board
        ink(context, (236, 222, 180), 0.55 if row == 0 else 0.95)
        context.set_font_size(height * 0.145)
        context.move_to(left + width * 0.03, middle + height * 0.06)
        context.show_text(name)
        for inning, digit in enumerate("123456789R"):
            cell = left + width * 0.42 + inning * column
            if row:
                ink(context, (14, 26, 21))
                context.rectangle(cell, middle - height * 0.11, column * 0.84, height * 0.22)
                context.fill()
            else:
                extents = context.text_extents(digit)
                context.move_to(cell + column * 0.42 - extents.width / 2 - extents.x_bearing,
                                middle + height * 0.06)
                context.show_text(digit)
    context.new_path()
    clock_x, clock_y, clock = left + width / 2, top - 6, 8.5
    context.arc(clock_x, clock_y, clock + 1.3, 0, 7)
    ink(context, (16, 28, 23))
    context.fill()
    context.arc(clock_x, clock_y, clock - 0.6, 0, 7)
    ink(context, (242, 226, 180))
    context.fill()
    ink(context, (30, 34, 30))
    context.set_line_width(1.1)
    for turn, reach in ((0.61, 4.2), (0.33, 6.0)):
        context.move_to(clock_x, clock_y)
        context.line_to(clock_x + reach * math.sin(turn * 2 * math.pi),
                        clock_y - reach * math.cos(turn * 2 * math.pi))
    context.stroke()


def paint_tower(context, glow, x, y, bottom, top):
    foot, head, scale = project(x, y, bottom), project(x, y, top), unit(y)
    ink(context, (38, 44, 46))
    context.set_line_width(1.0)
    half = 2.6 * scale
    for side in (-1, 1):
        context.move_to(foot[0] + side * half * 1.4, foot[1])
        context.line_to(head[0] + side * half, head[1])
    z = bottom
    while z < top - 6:                             # the lattice
        a, b = project(x, y, z)[1], project(x, y, z + 7)[1]
        context.move_to(foot[0] - half * 1.2, a)
        context.line_to(foot[0] + half * 1.2, b)
        context.move_to(foot[0] + half * 1.2, a)
        context.line_to(foot[0] - half * 1.2, b)
        z += 7
    context.stroke()
    wide, tall = 26 * scale, 15 * scale
    context.rectangle(head[0] - wide / 2, head[1] - tall, wide, tall)
    ink(context, (46, 50, 50))
    context.fill()
    for row in range(4):
        for lamp in range(7):
            lx = head[0] + (lamp - 3) * wide / 7.4
            ly = head[1] - tall * (0.13 + 0.245 * row)
            for target, colour in ((context, (255, 246, 222)), (glow, (255, 226, 170))):
                ink(target, colour)
                target.arc(lx, ly, wide / 20, 0, 7)
                target.fill()


# --------------------------------------------------------------------------
# The whole ballpark
# --------------------------------------------------------------------------
def ballpark():
    random = np.random.RandomState(58)
    rows, columns = HEIGHT * SUPER, WIDTH * SUPER
    py, px = np.mgrid[0:rows, 0:columns].astype(np.float32)
    px, py = (px + 0.5) / SUPER, (py + 0.5) / SUPER
    image = np.zeros((rows, columns, 3), np.float32)
    image[:] = (30, 38, 34)
    paint_sky(image, px, py)
    paint_bay(image, px, py)

    surface, context = canvas()
    glow_surface, glow = canvas()
    paint_far_shore(context, random)
    paint_trees(context, random)
    for degrees in (-33, 31):
        paint_tower(context, glow, *fence_point(degrees, 62), 0, 96)
    far_end = fence_point(CORNER)[1]
    paint_stand(context, random, fence_line(-CORNER + 2, -10, 46), 11, 10, 1.7, 3.4, 0.80, 0.82)
    paint_stand(context, random, fence_line(27, CORNER - 2, 28), 11, 10, 1.7, 3.4, 0.72, 0.80)
    paint_batters_eye(context)
    paint_scoreboard(context)
    for side in (-1, 1):
        paint_stand(context, random, wall_line(side, far_end, -38, 90), 5, 22, 1.35, 3.0,
                    0.62, 0.86)
        paint_roof(context, wall_line(side, far_end - 34, -38, 40), 46, 84, 52, 58)
        paint_tower(context, glow, side * 190, 95, 57, 98)
    lay_over(image, surface)

    paint_field(image, px, py)

    surface, context = canvas()
    for side in (-1, 1):
        paint_foul_walls(context, side)
    paint_outfield_wall(context)
    lay_over(image, surface)

    lamps = np.zeros_like(image)
    lay_over(lamps, glow_surface)
    return finish(image, lamps, random)


def as_picture(image):
    return Image.fromarray(np.clip(image + 0.5, 0, 255).astype(np.uint8), "RGB")


def blurred(image, size):
    return np.asarray(as_picture(image).filter(ImageFilter.GaussianBlur(size)), np.float32)


def finish(image, lamps, random):
    """Reduce, let the lamps and the sky bloom, darken the corners, add grain."""
    size = (WIDTH, HEIGHT)
    image = np.asarray(as_picture(image).resize(size, Image.LANCZOS), np.float32)
    lamps = np.asarray(as_picture(lamps).resize(size, Image.LANCZOS), np.float32)
    for radius, strength in ((3, 0.9), (12, 1.3), (46, 2.4)):
        image = image + blurred(lamps, radius) * strength * (1 - image / 300)
    bright = np.clip(image - 170, 0, 90)
    image = image + blurred(bright, 18) * 0.5
    y, x = np.mgrid[0:HEIGHT, 0:WIDTH].astype(np.float32)
    edge = np.hypot((x - CENTRE_X) / 1080, (y - 520) / 760)
    image = image * (1 - 0.42 * smoothstep(0.45, 1.1, edge))[..., None]
    contrast = image / 255
    image = 255 * (contrast + 0.10 * contrast * (1 - contrast) * (2 * contrast - 1) * 2)
    grain = random.normal(0, 1, (HEIGHT, WIDTH)).astype(np.float32)
    grain = grain * 0.6 + np.roll(grain, 1, 1) * 0.3 + np.roll(grain, 1, 0) * 0.3
    return as_picture(image + grain[..., None] * 2.0)


# --------------------------------------------------------------------------
# Logos: a roundel on the slate of the panels, drawn in a box of 100 by 100
# --------------------------------------------------------------------------
LOGO = 256
CREAM, INK = (238, 228, 204), (24, 28, 30)


def disc(context, x, y, radius, colour):
    context.new_path()
    context.arc(x, y, radius, 0, 2 * math.pi)
    ink(context, colour)
    context.fill()


def fill(context, points, colour, outline=None, width=2.0):
    polygon(context, points)
    ink(context, colour)
    context.fill_preserve()
    if outline:
        ink(context, outline)
        context.set_line_width(width)
        context.set_line_join(cairo.LINE_JOIN_ROUND)
        context.stroke()
    context.new_path()


def roundel(context, rim, ring, field):
    disc(context, 50, 50, 49, rim)
    disc(context, 50, 50, 46, ring)
    disc(context, 50, 50, 40.5, rim)
    disc(context, 50, 50, 38.5, field)


def baseball(context, x, y, radius, stitch=(168, 52, 44)):
    disc(context, x, y, radius * 1.09, INK)
    disc(context, x, y, radius, (244, 238, 222))
    context.save()
    context.arc(x, y, radius, 0, 2 * math.pi)
    context.clip()
    ink(context, stitch)
    for side in (-1, 1):
        seam, reach = x + side * radius * 1.28, radius * 0.92
        context.set_line_width(radius * 0.07)
        context.arc(seam, y, reach, 0, 2 * math.pi)
        context.stroke()
        for turn in np.linspace(-0.9, 0.9, 9):
            angle = turn + (math.pi if side > 0 else 0)
            for tilt in (-0.16, 0.16):
                context.move_to(seam + reach * math.cos(angle), y + reach * math.sin(angle))
                far = reach * (1.17 if tilt > 0 else 0.83)
                context.line_to(seam + far * math.cos(angle + 0.13),
                                y + far * math.sin(angle + 0.13))
            context.stroke()
    context.restore()
    context.new_path()


def bat(context, degrees, wood):
    context.save()
    context.translate(50, 50)
    context.rotate(math.radians(degrees))
    context.move_to(-36, -3.6)                     # knob, handle, barrel and back
    context.curve_to(-33, -3.6, -33, -1.7, -30, -1.7)
    context.curve_to(-8, -1.9, 0, -5.6, 22, -5.8)
    context.curve_to(38, -5.8, 38, 5.8, 22, 5.8)
    context.curve_to(0, 5.6, -8, 1.9, -30, 1.7)
    context.curve_to(-33, 1.7, -33, 3.6, -36, 3.6)
    context.close_path()
    ink(context, INK)
    context.set_line_width(3.2)
    context.stroke_preserve()
    ink(context, wood)
    context.fill()
    context.restore()


def visitors_logo(context):
    roundel(context, (206, 208, 202), (74, 88, 98), (122, 136, 142))
    baseball(context, 50, 50, 27)


def home_logo(context):
    roundel(context, CREAM, (38, 84, 62), (226, 214, 184))
    bat(context, -45, (190, 132, 76))
    bat(context, -135, (204, 148, 90))
    baseball(context, 50, 50, 13.5)


def terns_logo(context):
    roundel(context, CREAM, (32, 56, 92), (86, 140, 164))
    context.save()
    context.translate(48, 52)
    context.rotate(math.radians(-38))
    context.set_line_width(4.6)
    context.set_line_join(cairo.LINE_JOIN_ROUND)
    for colour, paint in (((22, 38, 62), context.stroke), ((246, 242, 230), context.fill)):
        ink(context, colour)
        for side in (-1, 1):
            context.move_to(13, 0)                 # a wing, swept back
            context.curve_to(12, side * 14, 4, side * 26, -17, side * 37)
            context.curve_to(-8, side * 24, -8, side * 14, -9, side * 2)
            context.close_path()
            paint()
            context.move_to(-6, 0)                 # half of the forked tail
            context.curve_to(-16, side * 6, -26, side * 7, -37, side * 9)
            context.curve_to(-28, side * 4, -24, side * 1, -21, 0)
            context.close_path()
            paint()
        context.move_to(26, 0)                     # the body
        context.curve_to(24, -7, 0, -9, -18, 0)
        context.curve_to(0, 9, 24, 7, 26, 0)
        context.close_path()
        paint()
    fill(context, ((24, -2.8), (37, 0), (24, 2.8)), (222, 110, 50), (22, 38, 62), 1.4)
    context.move_to(27, 0)                         # the black cap
    context.curve_to(25, -7, 15, -6.5, 13, 0)
    context.curve_to(15, 6.5, 25, 7, 27, 0)
    ink(context, INK)
    context.fill()
    context.restore()


def lanterns_logo(context):
    roundel(context, (232, 190, 96), (112, 34, 36), (60, 26, 32))
    context.set_line_width(4)
    context.arc(50, 32, 12, math.pi, 2 * math.pi)
    ink(context, (232, 190, 96))
    context.stroke()
    fill(context, ((44, 24), (56, 24), (66, 36), (34, 36)), (214, 168, 78), INK, 1.6)
    fill(context, ((36, 37), (64, 37), (68, 66), (32, 66)), (255, 224, 140), INK, 2)
    context.move_to(50, 40)                        # the flame
    context.curve_to(62, 52, 60, 64, 50, 64)
    context.curve_to(40, 64, 38, 52, 50, 40)
    ink(context, (226, 104, 40))
    context.fill()
    disc(context, 50, 57.5, 4, (255, 240, 190))
    context.set_line_width(2)
    ink(context, INK)
    for x, y in ((43, 41), (57, 59)):
        context.move_to(x, 37)
        context.line_to(y, 66)
    fill(context, ((29, 66), (71, 66), (66, 77), (34, 77)), (214, 168, 78), INK, 1.6)


def anvils_logo(context):
    roundel(context, (206, 204, 196), (58, 64, 70), (196, 104, 46))
    baseball(context, 52, 30.4, 10.5)
    context.move_to(17, 42)                        # horn, face, waist and foot
    context.line_to(80, 42)
    context.line_to(80, 53)
    context.curve_to(68, 53, 63, 56, 62, 64)
    context.curve_to(64, 68, 70, 69, 75, 71)
    context.line_to(75, 79)
    context.line_to(31, 79)
    context.line_to(31, 71)
    context.curve_to(36, 69, 42, 68, 44, 64)
    context.curve_to(43, 56, 26, 56, 17, 42)
    context.close_path()
    ink(context, (34, 38, 42))
    context.fill()
    fill(context, ((20, 42), (80, 42), (80, 46), (23, 46)), (112, 118, 122))


def windmills_logo(context):
    roundel(context, CREAM, (48, 92, 88), (226, 178, 84))
    fill(context, ((42, 46), (58, 46), (65, 84), (35, 84)), (120, 52, 40), INK, 2.2)
    fill(context, ((46, 72), (54, 72), (55, 84), (45, 84)), INK)
    context.arc(50, 46, 9.5, math.pi, 2 * math.pi)
    context.close_path()
    ink(context, INK)
    context.fill()
    for turn in range(4):
        context.save()
        context.translate(50, 43)
        context.rotate(math.radians(45 + 90 * turn))
        fill(context, ((0, -1.6), (31, -1.6), (31, 1.6), (0, 1.6)), INK)
        fill(context, ((8, 1.4), (30, 1.4), (30, 10.5), (8, 10.5)), (246, 240, 224), INK, 2.4)
        ink(context, INK)
        context.set_line_width(1.4)
        for x in (15.3, 22.7):
            context.move_to(x, 1.4)
            context.line_to(x, 10.5)
        context.stroke()
        context.restore()
    disc(context, 50, 43, 4.6, INK)
    disc(context, 50, 43, 2.4, CREAM)


LOGOS = {"VisLogo": visitors_logo, "HomeLogo": home_logo,
         "Harbor Terns 1958": terns_logo, "Iron Gap Anvils 1949": anvils_logo,
         "Millbrook Lanterns 1978": lanterns_logo, "Sorrel Plains Windmills 1984": windmills_logo}


def logo(draw):
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, LOGO * 4, LOGO * 4)
    context = cairo.Context(surface)
    context.scale(LOGO * 4 / 100, LOGO * 4 / 100)
    ink(context, SLATE)
    context.paint()
    draw(context)
    image = np.zeros((LOGO * 4, LOGO * 4, 3), np.float32)
    lay_over(image, surface)
    return as_picture(image).resize((LOGO, LOGO), Image.LANCZOS)


def main():
    program = Path(sys.argv[1]) if len(sys.argv) > 1 \
        else Path(__file__).resolve().parent.parent / "program"
    (program / "Ballparks").mkdir(parents=True, exist_ok=True)
    picture = ballpark()
    target = program / "Ballparks" / "DEFAULT1679X974.jpg"
    for quality in range(90, 70, -2):
        picture.save(target, quality=quality, optimize=True)
        if target.stat().st_size < JPEG_LIMIT:
            break
    print(f"{target}: quality {quality}, {target.stat().st_size} bytes")
    (program / "Logos").mkdir(parents=True, exist_ok=True)
    for name, draw in LOGOS.items():
        logo(draw).save(program / "Logos" / f"{name}.jpg", quality=92, subsampling=0)


if __name__ == "__main__":
    main()
