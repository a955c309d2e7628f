"""Summit Field: a bright day below snowy mountains, the town beyond right field."""
import math

import numpy as np

from .camera import HORIZON, project, unit
from .field import Turf, mown, paint_field
from .finish import Print, empty_picture, finish
from .grid import blend, gradient, noise, smoothstep
from .outline import Outline
from .pen import area, drawing, lettering, oblong, spot, strip, strokes
from .scenery import grove, paint_land, pine, skyline, tree
from .sky import Range, columns_of, paint_heaped_clouds
from .stands import Roof, Stand, paint_pennant, paint_roof, paint_stand, shifted
from .walls import (Fence, FoulWall, paint_batters_eye, paint_distances, paint_fence,
                    paint_foul_poles, paint_foul_wall)

OUTLINE = Outline(((-70, 352), (-45, 331), (-27, 366), (-8, 398), (6, 410), (15, 372),
                   (30, 345), (45, 318), (70, 330)), angular=True)
SKY = ((-226, (54, 118, 190)), (-130, (92, 156, 214)), (-60, (150, 196, 230)),
       (-10, (206, 226, 236)), (6, (222, 232, 232)))
CLOUDS = ((1290, 74, 165, 62), (1105, 120, 90, 30), (300, 52, 130, 46), (520, 108, 76, 26),
          (760, 92, 150, 56), (-10, 110, 120, 46), (1610, 108, 150, 60), (950, 160, 90, 20),
          (200, 160, 70, 16), (1420, 156, 80, 18))
FAR_PEAKS = ((0, 168), (110, 136), (190, 160), (300, 118), (372, 86), (430, 126), (498, 104),
             (580, 158), (680, 146), (790, 172), (900, 150), (1010, 180), (1120, 160),
             (1240, 186), (1340, 164), (1480, 190), (1590, 158), (1679, 176))
NEAR_HILLS = ((0, 204), (160, 186), (330, 206), (520, 190), (700, 210), (900, 200), (1100, 214),
              (1300, 204), (1500, 212), (1679, 196))
SHIRTS = ((236, 238, 236), (222, 226, 230), (58, 92, 156), (36, 56, 104), (206, 66, 56),
          (238, 202, 86), (112, 168, 200), (214, 148, 92), (84, 142, 98), (70, 74, 84),
          (240, 236, 222), (178, 60, 66))
BRICK, MORTAR = (158, 88, 66), (118, 62, 48)
NAVY, CREAM = (30, 52, 92), (240, 234, 216)
SEATS = dict(step=(128, 132, 134), bench=(52, 92, 150), clothes=SHIRTS)


def paint_backdrop(image, px, py):
    rows = py[:, 0] < HORIZON + 70
    x, y, part = px[rows], py[rows], image[rows]
    colour = gradient(y - HORIZON, SKY)
    paint_heaped_clouds(colour, x, y, CLOUDS, (255, 254, 250), (170, 190, 212))
    part[:] = colour
    columns = columns_of(px)
    Range(columns, 11, FAR_PEAKS, 0.13).paint(part, x, y, (96, 112, 140), (250, 252, 255),
                                               (178, 204, 226), 158, 0.34)
    Range(columns, 29, NEAR_HILLS, 0.10).paint(part, x, y, (92, 128, 108), (0, 0, 0),
                                                (170, 200, 200), -900, 0.22)
    image[rows] = part


def paint_town(context, random):
    """Blocks beyond right field, paler with distance."""
    skyline(context, random, 1030, 1640, HORIZON + 16, (30, 74), (16, 34),
            ((184, 200, 212), (176, 190, 204), (194, 204, 208)), (146, 172, 196))
    skyline(context, random, 1120, 1560, HORIZON + 22, (22, 96), (18, 36),
            ((206, 198, 186), (174, 182, 192), (198, 178, 160), (160, 176, 194)), (108, 136, 166))
    skyline(context, random, 980, 1679, HORIZON + 28, (10, 34), (16, 40),
            ((196, 150, 124), (208, 190, 166), (178, 172, 166)), (96, 112, 130), 0.5)


def paint_country(context, random):
    """Meadows and woods between the park and the hills."""
    paint_land(context, OUTLINE, (104, 152, 84), 900)
    for shade, beyond in (((126, 170, 96), (640, 860)), ((112, 158, 84), (420, 600))):
        for degrees in range(-70, 66, 9):
            edge = [OUTLINE.point(degrees + turn, random.uniform(*beyond)) for turn in (0, 4, 9)]
            near = [OUTLINE.point(degrees + turn, beyond[0] * 0.7) for turn in (9, 0)]
            area(context, [project(*p) for p in edge + near], shade,
                 random.uniform(0.92, 1.08))
    for y, x, tall in grove(random, OUTLINE, 150, (-66, 4), (120, 520), (30, 58)):
        pine(context, random, x, y, tall, (48, 96, 70))
    for y, x, tall in grove(random, OUTLINE, 110, (2, 66), (110, 460), (26, 44)):
        tree(context, random, x, y, tall, (84, 136, 62), -2000, True)


def paint_flags(context, line, back, foot):
    """A row of flags along the top of the seats."""
    colours = ((206, 66, 56), (248, 244, 232), (58, 92, 156), (238, 202, 86))
    for number, point in enumerate(list(line)[3::7]):
        paint_pennant(context, shifted(point, back, foot), unit(point[1]) * 1.15,
                      colours[number % 4], (236, 238, 236))


def paint_board(context):
    """The scoreboard over the brick wall; the figures are on the program's own board."""
    x, y = OUTLINE.point(37.5, 10)
    scale = unit(y)
    left, base = project(x - 36, y, 20)
    width, height = 72 * scale, 31 * scale
    top = base - height
    for part in (0.16, 0.84):                      # legs
        oblong(context, left + width * part - 3, base - 2, 6, 26, (150, 156, 160))
    oblong(context, left - 3, top - 3, width + 6, height + 6, (226, 228, 224))
    oblong(context, left, top, width, height, NAVY)
    oblong(context, left + 5, top + height * 0.30, width - 10, height * 0.60, (18, 32, 60))
    for row in range(2):
        for cell in range(10):
            oblong(context, left + width * (0.10 + 0.085 * cell),
                   top + height * (0.40 + 0.25 * row), width * 0.062, height * 0.17, (44, 66, 108))
    lettering(context, "SUMMIT FIELD", left + width / 2, top + height * 0.22, height * 0.17, CREAM)
    middle = left + width / 2                      # a mountain on top
    area(context, ((middle - 40, top - 3), (middle - 12, top - 21), (middle - 3, top - 15),
                   (middle + 10, top - 28), (middle + 40, top - 3)), NAVY)
    area(context, ((middle + 2, top - 19), (middle + 10, top - 28), (middle + 21, top - 18),
                   (middle + 13, top - 20), (middle + 9, top - 16)), (250, 252, 255))


def paint_bank(context, random):
    """A grass bank in right-centre with people on blankets."""
    line = list(OUTLINE.fence_line(15.5, 29, 30))
    low = [shifted(p, 0, 12) for p in line]
    high = [shifted(p, 46, 24) for p in line]
    area(context, low + high[::-1], (112, 168, 76))
    strokes(context, zip(high, high[1:]), (84, 132, 58), 1.2, 0.8)
    for _ in range(130):
        point = line[random.randint(len(line))]
        away = random.uniform(6, 42)
        x, y = shifted(point, away, 12 + away * 0.26)
        size = unit(point[1] + away)
        if random.rand() < 0.35:
            area(context, ((x - 3 * size, y), (x - 2 * size, y - 1.6 * size),
                           (x + 3 * size, y - 1.6 * size), (x + 2 * size, y)),
                 SHIRTS[random.randint(len(SHIRTS))], 0.95)
        spot(context, x, y - 1.3 * size, 0.95 * size, SHIRTS[random.randint(len(SHIRTS))], 0.95)
        spot(context, x, y - 2.8 * size, 0.55 * size, (206, 160, 128))


def paint_brick(context, first, last, top, plain):
    """A brick wall with a stone coping, and blind arches but at the `plain` angles."""
    line = list(OUTLINE.fence_line(first, last, 90))
    strip(context, line, 0, top, BRICK)
    for z in np.arange(1.2, top, 1.2):
        strokes(context, zip([project(p[0], p[1], z) for p in line],
                             [project(p[0], p[1], z) for p in line[1:]]), MORTAR, 0.5, 0.35)
    for start in range(4, len(line) - 6, 9):
        piece = line[start:start + 6]
        turn = math.degrees(math.atan2(*piece[3][:2]))
        if min(abs(turn - angle) for angle in plain) < 2.6:
            continue
        x, y = piece[0][0], piece[0][1]
        arch = [(x + (piece[-1][0] - x) * t, y + (piece[-1][1] - y) * t,
                 top * 0.50 + top * 0.26 * math.sin(math.pi * t)) for t in np.linspace(0, 1, 13)]
        foot = [(*piece[-1][:2], 2), (x, y, 2)]
        area(context, [project(*p) for p in arch + foot], MORTAR, 0.86)
        strokes(context, zip([project(*p) for p in arch], [project(*p) for p in arch[1:]]),
                (216, 196, 168), 1.3, 0.8)
    strip(context, line, 0, 2, (96, 92, 88))
    strip(context, line, top - 1.2, top, (222, 210, 188))


def mowing(g):
    """Squares, straight out to centre field."""
    pattern = 0.060 * mown(g.x, 21, 6) + 0.050 * mown(g.y + 6, 21, 6)
    infield = smoothstep(1.0, -1.0, g.lawn)
    pattern += (0.055 * mown(g.x, 10.5, 6) - pattern) * infield
    return pattern


def sunlight(colour, g):
    """The sun stands high on the left; the stand throws its shadow on foul ground."""
    level = 1.03 + 0.05 * noise(g.x / 120 + 5, g.y / 90)
    left = (-g.x - OUTLINE.wall_at_home - OUTLINE.wall_slope * g.y) / 1.22
    eaves = -17 + 1.5 * np.tanh(6 * np.sin(g.y / 7.5))
    shade = smoothstep(-1.6, 1.6, left - eaves) * smoothstep(212, 196, g.y)
    wall = smoothstep(-7.5, -5.5, g.park) * smoothstep(30, -30, g.x) * (1 - shade)
    level *= 1 - 0.10 * np.exp(np.minimum(g.park, 0) / 6)
    level *= 1 - 0.42 * np.maximum(shade, wall * 0.9)
    colour *= level[..., None]
    dark = np.maximum(shade, wall)
    colour[..., 2] *= 1 + 0.10 * dark              # the sky lights the shadows
    blend(colour, (206, 222, 200), smoothstep(150, 460, g.y) * 0.12)


TURF = Turf((92, 128, 60), (186, 138, 98), mowing, sunlight, track=15)


def paint_surroundings(context, random):
    paint_town(context, random)
    paint_country(context, random)
    corner, far_end = OUTLINE.corner, OUTLINE.far_end()
    left = list(OUTLINE.fence_line(-corner + 1, -14, 50))
    paint_stand(context, random, left, Stand(10, 13, 1.6, 3.2, 0.98, 0.72, **SEATS))
    paint_flags(context, left, 48, 32)
    paint_batters_eye(context, OUTLINE.fence_line(-7, 10, 14), 27, (40, 78, 56), (70, 112, 78))
    paint_bank(context, random)
    paint_board(context)
    roof = Roof(40, 82, 54, 62, deck=(226, 226, 216), seam=(176, 180, 176), column=(206, 212, 212),
                fascia=NAVY, pennants=((206, 66, 56), (248, 244, 232), (58, 92, 156)))
    for side in (-1, 1):
        paint_stand(context, random, OUTLINE.wall_line(side, far_end, -38, 90),
                    Stand(5, 20, 1.4, 3.0, 0.94 if side > 0 else 0.62, 0.84, **SEATS))
        paint_roof(context, OUTLINE.wall_line(side, far_end - 70, -38, 40), roof)


def paint_walls(context):
    wall = FoulWall(face=NAVY, rail=CREAM, posts=(200, 206, 208), roof=(44, 70, 116),
                    roof_edge=CREAM)
    for side in (-1, 1):
        paint_foul_wall(context, OUTLINE, side, wall)
    paint_fence(context, OUTLINE.fence_line(-OUTLINE.corner, 15, 120),
                Fence(9, NAVY, (22, 38, 68), (244, 206, 84), 1.0, (20, 36, 66)))
    paint_brick(context, 15, OUTLINE.corner, 17, (26.0, 42.8))
    paint_distances(context, OUTLINE, ((-42.5, "331"), (-27, "366"), (6, "410")), CREAM)
    paint_distances(context, OUTLINE, ((26.0, "345"), (42.8, "318")), CREAM, 5.5)
    paint_foul_poles(context, OUTLINE, (246, 206, 70), 50)


def ballpark():
    random = np.random.RandomState(1912)
    image, px, py = empty_picture((104, 152, 84))
    paint_backdrop(image, px, py)
    with drawing(image) as context:
        paint_surroundings(context, random)
    paint_field(image, px, py, OUTLINE, TURF)
    with drawing(image) as context:
        paint_walls(context)
    return finish(image, None, random, Print(bloom=0.25, dusk=0.20, curve=0.16, grain=1.3))
