"""The default ballpark: an evening by the harbour."""
import math

import cairo
import numpy as np

from .camera import CENTRE_X, FALL, HEIGHT, HORIZON, project, unit
from .field import Turf, corners_of_sight, mown, paint_field, pools
from .finish import Print, empty_picture, finish
from .grid import blend, gradient, noise, smoothstep
from .outline import Outline
from .pen import area, canvas, drawing, ink, lay_over, lettering, oblong, spot, strokes
from .scenery import paint_ceiling_clouds, paint_land, ridge, tree
from .stands import Roof, Stand, paint_roof, paint_stand
from .walls import (Fence, FoulWall, Tower, paint_batters_eye, paint_distances, paint_fence,
                    paint_foul_poles, paint_foul_wall, paint_tower)

OUTLINE = Outline(((-70, 330), (-45, 315), (-33, 344), (-20, 374), (-7, 394), (6, 394),
                   (19, 369), (33, 337), (45, 311), (70, 330)))
SUN_X = 585
SKY = ((-226, (36, 48, 68)), (-140, (66, 74, 94)), (-84, (126, 108, 116)),   # rows from the horizon
       (-42, (196, 140, 112)), (-13, (234, 174, 116)), (2, (246, 200, 138)))
CLOUDS = ((-226, (88, 86, 104)), (-100, (170, 128, 122)), (-5, (255, 206, 150)))
BAY = ((2, (232, 188, 138)), (14, (178, 146, 126)), (34, (108, 106, 108)), (80, (58, 70, 76)))


def paint_sky(image, px, py):
    rows = py < HORIZON + 2
    x, y = px[rows], py[rows]
    colour = gradient(y - HORIZON, SKY)
    glow = np.exp(-((x - SUN_X) / 330) ** 2 - ((y - HORIZON) / 70) ** 2)
    colour += glow[..., None] * np.array((30, 24, 4), np.float32)
    paint_ceiling_clouds(colour, x, y, CLOUDS, 0.75)
    image[rows] = colour


def paint_bay(image, px, py):
    rows = (py >= HORIZON + 2) & (py < 420)
    x, y = px[rows], py[rows]
    depth = FALL / (y - HORIZON)
    colour = gradient(y - HORIZON, BAY)
    ripple = noise((x - CENTRE_X) * depth / 9000, depth / 55) * 0.6 \
        + noise((x - CENTRE_X) * depth / 3600, depth / 21) * 0.4
    colour *= (1 + 0.10 * ripple)[..., None]
    path = np.exp(-((x - SUN_X) / (34 + (y - HORIZON) * 1.5)) ** 2)
    glint = path * (0.35 + 0.65 * smoothstep(0.0, 0.7, ripple))
    colour += (np.array((255, 204, 138), np.float32) - colour) * (glint * 0.8)[..., None]
    image[rows] = colour


def paint_far_shore(context, random):
    ridge(context, random, HORIZON - 9, 7, 26, (140, 112, 112))
    ridge(context, random, HORIZON - 3, 4, 14, (98, 88, 94))
    for _ in range(90):                            # lamps of the town across the bay
        x, alpha = random.normal(1120, 190), random.uniform(0.25, 0.8)
        y = HORIZON + random.uniform(-1, 6)
        spot(context, x, y, random.uniform(0.4, 0.9), (255, 214, 150), 1, alpha)
    for x, size in ((452, 9), (655, 6), (742, 7), (1215, 6)):      # boats coming home
        y = HORIZON + 10 + size * 0.8
        area(context, ((x - size * .5, y), (x + size * .55, y), (x + size * .35, y + 2),
                       (x - size * .35, y + 2)), (52, 50, 56), 1, 0.9)
        area(context, ((x, y - .6), (x, y - size * 1.7), (x + size * .5, y - .6)),
             (236, 206, 168), 1, 0.85)


def paint_trees(context, random):
    """The shore behind the fence, with the trees between bleachers and water."""
    paint_land(context, OUTLINE, (34, 42, 34))
    spots = []
    for _ in range(170):
        degrees = random.uniform(-62, 62)
        if -23 < degrees < -11:                    # leave the sun's path open
            continue
        tall = 20 + 17 * smoothstep(8, 50, abs(degrees + 3)) + random.uniform(-6, 9)
        x, y = OUTLINE.point(degrees, random.uniform(75, 190))
        spots.append((y, x, float(tall)))
    for y, x, tall in sorted(spots, reverse=True):
        tree(context, random, x, y, tall)


def mowing(g):
    """Two crossing directions."""
    pattern = 0.062 * mown(g.along_first, 20, 5) + 0.050 * mown(g.along_third, 20, 5)
    infield = smoothstep(1.0, -1.0, g.lawn)
    pattern += (0.052 * mown(g.along_first - 45, 10.25, 5) - pattern) * infield
    return pattern


def evening_light(colour, g):
    """Warm from beyond left-centre, with the lamps over the infield."""
    far = smoothstep(40, 400, g.y)
    sun = np.exp(-((g.angle + 0.28) / 0.75) ** 2) * far
    level = 0.78 + 0.18 * far + 0.22 * pools(g) + 0.24 * sun
    level *= 1 - 0.30 * np.exp(g.park / 16)        # shade at the foot of every wall
    level *= 1 - 0.34 * corners_of_sight(g)
    level *= 1 - 0.12 * smoothstep(830, HEIGHT, g.row)
    warm = np.stack((1.03 + 0.10 * far + 0.16 * sun, 1.0 + 0.02 * sun, 0.96 - 0.14 * sun),
                    axis=-1)
    colour *= level[..., None] * warm
    blend(colour, (214, 160, 112), smoothstep(250, 460, g.y) * 0.10)


TURF = Turf((70, 90, 50), (150, 110, 78), mowing, evening_light)


def paint_scoreboard(context):
    """A board worked by hand, standing in right-centre."""
    x, y = OUTLINE.point(19, 14)
    scale = unit(y)
    left, base = project(x - 44, y, 10)
    width, height = 88 * scale, 36 * scale
    top = base - height
    oblong(context, left - 2, top - 2, width + 4, height + 8, (16, 28, 23))
    oblong(context, left, top, width, height, (32, 60, 48))
    ink(context, (170, 150, 104), 0.9)
    context.set_line_width(1)
    context.rectangle(left, top, width, height)
    context.stroke()
    context.select_font_face("DejaVu Sans", cairo.FONT_SLANT_NORMAL, cairo.FONT_WEIGHT_BOLD)
    for row, name in enumerate(("", "VISITORS", "HOME")):      # no numbers hung: they are
        middle = top + height * (0.2 + 0.28 * row)              # on the program's own board
        ink(context, (236, 222, 180), 0.55 if row == 0 else 0.95)
        context.set_font_size(height * 0.145)
        context.move_to(left + width * 0.03, middle + height * 0.06)
        context.show_text(name)
        paint_innings(context, row, left + width * 0.42, middle, width * 0.55 / 10, height)
    paint_clock(context, left + width / 2, top - 6, 8.5)


def paint_innings(context, row, left, middle, column, height):
    """The heading of the innings, or a row of empty places."""
    for inning, digit in enumerate("123456789R"):
        cell = left + inning * column
        if row:
            oblong(context, cell, middle - height * 0.11, column * 0.84, height * 0.22,
                   (14, 26, 21))
        else:
            lettering(context, digit, cell + column * 0.42, middle + height * 0.06,
                      height * 0.145, (236, 222, 180), 0.55)
    context.new_path()


def paint_clock(context, x, y, size):
    spot(context, x, y, size + 1.3, (16, 28, 23))
    spot(context, x, y, size - 0.6, (242, 226, 180))
    hands = [((x, y), (x + reach * math.sin(turn * 2 * math.pi),
                       y - reach * math.cos(turn * 2 * math.pi)))
             for turn, reach in ((0.61, 4.2), (0.33, 6.0))]
    strokes(context, hands, (30, 34, 30), 1.1)


def paint_surroundings(context, glow, random):
    paint_far_shore(context, random)
    paint_trees(context, random)
    for degrees in (-33, 31):
        paint_tower(context, glow, *OUTLINE.point(degrees, 62), 0, 96, Tower())
    corner, far_end = OUTLINE.corner, OUTLINE.far_end()
    paint_stand(context, random, OUTLINE.fence_line(-corner + 2, -10, 46),
                Stand(11, 10, 1.7, 3.4, 0.80, 0.82))
    paint_stand(context, random, OUTLINE.fence_line(27, corner - 2, 28),
                Stand(11, 10, 1.7, 3.4, 0.72, 0.80))
    paint_batters_eye(context, OUTLINE.fence_line(-9, 9, 14))
    paint_scoreboard(context)
    for side in (-1, 1):
        paint_stand(context, random, OUTLINE.wall_line(side, far_end, -38, 90),
                    Stand(5, 22, 1.35, 3.0, 0.62, 0.86))
        paint_roof(context, OUTLINE.wall_line(side, far_end - 34, -38, 40), Roof(46, 84, 52, 58))
        paint_tower(context, glow, side * 190, 95, 57, 98, Tower())


def paint_walls(context):
    for side in (-1, 1):
        paint_foul_wall(context, OUTLINE, side, FoulWall())
    paint_fence(context, OUTLINE.fence_line(-OUTLINE.corner, OUTLINE.corner, 120), Fence())
    paint_distances(context, OUTLINE, ((-42.5, "315"), (-21, "372"), (0, "395"), (20, "366"),
                                       (42.5, "311")), Fence.figures)
    paint_foul_poles(context, OUTLINE)


def ballpark():
    random = np.random.RandomState(58)
    image, px, py = empty_picture((30, 38, 34))
    paint_sky(image, px, py)
    paint_bay(image, px, py)
    glow_surface, glow = canvas()
    with drawing(image) as context:
        paint_surroundings(context, glow, random)
    paint_field(image, px, py, OUTLINE, TURF)
    with drawing(image) as context:
        paint_walls(context)
    lamps = np.zeros_like(image)
    lay_over(lamps, glow_surface)
    return finish(image, lamps, random, Print())
