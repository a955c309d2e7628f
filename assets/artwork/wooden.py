"""Old Wooden Grounds: a warm afternoon when the century was young."""
import math

import numpy as np

from .camera import CENTRE_X, HEIGHT, HORIZON, WIDTH, project, unit
from .field import BASES, Turf, paint_field
from .finish import Print, empty_picture, finish
from .grid import blend, gradient, noise, smoothstep
from .outline import Outline
from .pen import area, drawing, lettering, oblong, strip, strokes
from .scenery import grove, paint_land, tree
from .sky import Range, columns_of, paint_heaped_clouds
from .stands import Stand, paint_pennant, paint_stand, shifted
from .village import (paint_buggy, paint_bunting, paint_church, paint_house, paint_onlooker,
                      paint_water_tower)
from .walls import FoulWall, paint_foul_wall

OUTLINE = Outline(((-70, 300), (-45, 292), (-31, 346), (-13, 436), (5, 452), (15, 428),
                   (27, 338), (45, 281), (70, 296)), angular=True, wall_slope=0.66)
SKY = ((-226, (136, 168, 182)), (-130, (176, 194, 190)), (-60, (214, 210, 184)),
       (-10, (240, 222, 178)), (30, (240, 222, 178)))
CLOUDS = ((330, 118, 170, 70), (600, 70, 110, 34), (1180, 92, 190, 72), (1500, 130, 140, 50),
          (880, 130, 130, 34), (90, 60, 130, 40), (1400, 44, 110, 26))
HILLS = ((0, 196), (180, 176), (380, 200), (560, 186), (760, 204), (980, 182), (1160, 200),
         (1330, 178), (1500, 198), (1679, 186))
NEAR = ((0, 214), (200, 206), (420, 217), (700, 208), (930, 218), (1200, 206), (1420, 216),
        (1679, 206))
COATS = ((92, 80, 70), (118, 100, 80), (78, 74, 78), (142, 122, 96), (168, 148, 116),
         (128, 84, 66), (238, 228, 206), (222, 208, 180), (104, 106, 112), (232, 220, 194))
HATS = ((240, 222, 172), (246, 232, 188), (232, 212, 164), (240, 226, 180), (84, 68, 56))
TIMBER, GREY_BOARD, SHINGLE = (168, 128, 88), (164, 146, 118), (126, 96, 74)
WHITEWASH = (232, 222, 198)
CLOTH = ((166, 74, 60), (236, 226, 204), (72, 84, 112))
SEATS = dict(step=(118, 94, 70), bench=(182, 148, 106), clothes=COATS, hats=HATS)
SIGNS = ((-43.2, -35.5, (196, 172, 120), (86, 52, 38), "HOLT'S BREAD"),
         (-29, -20.5, (74, 92, 76), (236, 222, 184), "PIKE & SON  HATS"),
         (-11, -4.5, (150, 78, 58), (240, 226, 190), "COLBY SOAP"),
         (7, 13.4, (220, 204, 164), (66, 70, 86), "MERRIT COAL"),
         (31, 42.4, (206, 176, 110), (110, 48, 40), "DOVER ROOT BEER"))


def paint_backdrop(image, px, py):
    rows = py[:, 0] < HORIZON + 70
    x, y = px[rows], py[rows]
    part = gradient(y - HORIZON, SKY)
    paint_heaped_clouds(part, x, y, CLOUDS, (255, 246, 222), (190, 184, 172), (9, -7))
    columns = columns_of(px)
    haze = (228, 214, 176)
    Range(columns, 53, HILLS, 0.05).paint(part, x, y, (132, 140, 112), haze, haze, -900, 0.45)
    Range(columns, 71, NEAR, 0.08).paint(part, x, y, (122, 128, 82), haze, haze, -900, 0.22)
    image[rows] = part


def paint_village(context, random):
    for y, x, tall in grove(random, OUTLINE, 240, (-68, 68), (900, 2000), (40, 64)):
        tree(context, random, x, y, tall, (142, 146, 104), 9000)
    for x, y, wide, tall in ((215, 255, 62, 40), (480, 252, 54, 36), (560, 254, 60, 42),
                             (1130, 255, 64, 44), (1210, 253, 52, 34), (1290, 256, 66, 46),
                             (1420, 255, 60, 40), (1500, 257, 70, 44), (700, 252, 56, 36),
                             (1010, 252, 50, 34), (70, 259, 70, 46)):
        paint_house(context, random, x, y, wide, tall)
    for y, x, tall in grove(random, OUTLINE, 60, (-66, 66), (330, 620), (34, 54)):
        tree(context, random, x, y, tall, (116, 124, 72), 4000, True)
    paint_church(context, 372, 262, 1.72)
    for x in range(306, 430, 9):                   # a hedge at its foot
        y = OUTLINE.point(-40, 340)[1] + random.uniform(-9, 9)
        tree(context, random, (x - CENTRE_X) / unit(y), y, random.uniform(9, 15), (104, 114, 60),
             4000)
    paint_water_tower(context, 1354, 258, 1.45)
    for y, x, tall in grove(random, OUTLINE, 120, (-66, 66), (120, 280), (24, 44)):
        if -47 < math.degrees(math.atan2(x, y)) < -36:
            tall *= 0.6                            # leave the church in sight
        tree(context, random, x, y, tall, (108, 118, 62), 4000, True)


def paint_pitched_roof(context, line, front, ridge, low, high):
    """Shingles from the eaves up to a ridge, on wooden posts, with flags along it."""
    line = list(line)
    for point in line[::4]:
        strokes(context, [(shifted(point, front + 2, 0.2 * low), shifted(point, front + 2, low))],
                WHITEWASH, max(1.3, 0.9 * unit(point[1])))
    eaves = [shifted(p, front, low) for p in line]
    top = [shifted(p, ridge, high) for p in line]
    area(context, eaves + top[::-1], SHINGLE)
    for course in range(1, 9):
        t = course / 9
        row = [(a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t) for a, b in zip(eaves, top)]
        strokes(context, zip(row, row[1:]), (92, 68, 54), 0.7, 0.6)
    strokes(context, zip(top, top[1:]), (158, 128, 98), 1.6)
    under = [shifted(p, front, low - 1.8) for p in line]
    area(context, eaves + under[::-1], WHITEWASH)
    for number, point in enumerate(line[2::7]):
        paint_pennant(context, shifted(point, ridge, high), unit(point[1]) * 1.1,
                      CLOTH[number % 3], (120, 96, 72))


def paint_pavilion(context, random, line):
    """The covered seats in left field, dressed with bunting."""
    line = list(line)
    stand = Stand(9, 9, 1.5, 2.9, 0.88, 0.93, away=3, **SEATS)
    back = [shifted(p, stand.depth(), 4) for p in line]
    roof = [shifted(p, stand.depth(), 32) for p in line]
    area(context, back + roof[::-1], (98, 74, 56))
    paint_stand(context, random, line, stand)
    front = [shifted(p, 3, 9) for p in line]
    foot = [shifted(p, 3, 0) for p in line]
    area(context, front + foot[::-1], TIMBER, 0.82)
    paint_bunting(context, [shifted(p, 3, 12.4) for p in line[::2]], 4.2, CLOTH)
    paint_pitched_roof(context, line, 0, 20, 31, 41)
    middle = line[len(line) // 2]                  # a small lantern turret
    x, y = shifted(middle, 20, 40)
    size = unit(middle[1])
    oblong(context, x - 5 * size, y - 8 * size, 10 * size, 9 * size, WHITEWASH, 0.92)
    oblong(context, x - 3 * size, y - 7 * size, 6 * size, 5 * size, (112, 96, 80))
    area(context, ((x - 7 * size, y - 8 * size), (x, y - 17 * size), (x + 7 * size, y - 8 * size)),
         SHINGLE, 0.9)
    paint_pennant(context, (x, y - 16 * size), size * 1.3, CLOTH[0], (120, 96, 72))


def paint_side_stand(context, random, side):
    far_end = OUTLINE.far_end()
    covered = list(OUTLINE.wall_line(side, far_end - 66, -38, 60))
    light = 0.70 if side > 0 else 0.88
    bleachers = Stand(4, 9, 1.3, 2.9, light, 0.8, **SEATS)
    paint_stand(context, random, OUTLINE.wall_line(side, far_end - 8, far_end - 62, 20), bleachers)
    paint_stand(context, random, covered, Stand(5, 17, 1.4, 3.0, light, 0.92, **SEATS))
    paint_pitched_roof(context, covered, 30, 52, 40, 52)


def paint_boards(context, random, first, last, top):
    """Upright boards, no two of one tone, with a cap along them."""
    line = list(OUTLINE.fence_line(first, last, 420))
    for a, b in zip(line, line[1:]):
        high = top + random.uniform(-0.15, 0.15)
        strip(context, (a, b), 0, high, GREY_BOARD, random.uniform(0.80, 1.02))
    for z in (2.2, top - 1.6):
        strokes(context, zip([project(p[0], p[1], z) for p in line],
                             [project(p[0], p[1], z) for p in line[1:]]), (96, 80, 60), 0.7, 0.35)
    strip(context, line, top - 0.2, top + 0.5, (190, 170, 134))
    strip(context, line, 0, 0.9, (98, 96, 58), 1, 0.7)     # weeds at the foot


def paint_sign(context, random, sign, top):
    """A merchant's name, painted over the boards long ago."""
    first, last, ground, letters, text = sign
    line = list(OUTLINE.fence_line(first, last, 70))
    strip(context, line, 1.8, top - 1.2, ground, 0.96, 0.86)
    for z in (2.4, top - 1.9):
        strokes(context, zip([project(p[0], p[1], z) for p in line],
                             [project(p[0], p[1], z) for p in line[1:]]), letters, 0.9, 0.7)
    middle = line[len(line) // 2]
    a, b = project(*line[8][:2], 4.4), project(*line[-9][:2], 4.4)
    context.save()
    context.translate(*project(middle[0], middle[1], 4.4))
    context.rotate(math.atan2(b[1] - a[1], b[0] - a[0]))
    size = min(6.0 * unit(middle[1]), 1.32 * math.hypot(b[0] - a[0], b[1] - a[1]) / len(text))
    lettering(context, text, 0, 0, size, letters, 0.88, "DejaVu Serif")
    context.restore()
    for point, after in zip(line, line[1:]):       # the seams show through
        if random.rand() < 0.6:
            strip(context, (point, after), 1.8, top - 1.2, (112, 92, 68), 1,
                  random.uniform(0.02, 0.16))


def paint_crowd_on_the_grass(context, random):
    """People without a seat stand along the fence behind a rope."""
    places = []
    for _ in range(110):
        degrees = random.uniform(*((-20, -12.5), (-3, 5.5), (14.5, 27))[random.randint(3)])
        places.append(OUTLINE.point(degrees, -random.uniform(3, 11)))
    for x, y in sorted(places, key=lambda place: -place[1]):
        paint_onlooker(context, random, x, y, COATS, HATS)
    for first, last in ((-21, -12), (-3.5, 6), (14, 28)):
        stakes = [OUTLINE.point(d, -13.5) for d in np.linspace(first, last, 9)]
        strokes(context, [(project(*p, 0), project(*p, 3.6)) for p in stakes], (112, 88, 62), 1.0)
        strokes(context, zip([project(*p, 3.2) for p in stakes],
                             [project(*p, 3.2) for p in stakes[1:]]), (214, 196, 156), 0.7, 0.9)


def rough_cut(g):
    """Cut with a horse and a scythe: no pattern, only better and poorer grass."""
    return 0.10 * noise(g.x / 70 + 8, g.y / 55) + 0.05 * noise(g.x / 21, g.y / 17 + 3)


def worn_grass(g):
    """Bare where the outfielders stand and where the teams walk to their benches."""
    bare = np.zeros_like(g.x)
    for x, y, size in ((-150, 245, 13), (8, 305, 13), (150, 240, 13), (-62, 18, 22), (62, 18, 22)):
        bare = np.maximum(bare, np.exp(-((g.x - x) ** 2 + (g.y - y) ** 2 * 1.4) / size ** 2))
    for x, y in BASES[1:]:
        bare = np.maximum(bare, 0.8 * np.exp(-((g.x - x) ** 2 + (g.y - y) ** 2) / 400))
    ragged = noise(g.x / 5, g.y / 5) * 0.3 + noise(g.x / 1.6, g.y / 1.6) * 0.22
    edge = np.exp(np.minimum(g.park, 0) / 5)
    return 0.62 * smoothstep(0.30, 0.85, np.maximum(bare, 0.7 * edge) + ragged)


def afternoon_light(colour, g):
    """A low sun on the right: long shadows, and gold in what it strikes."""
    right = (g.x - OUTLINE.wall_at_home - OUTLINE.wall_slope * g.y) / 1.2
    reach = 8 + 17 * smoothstep(178, 118, g.y)     # from the stand, and from the wall
    stand = smoothstep(-2.5, 2.5, right + reach + 0.8 * np.tanh(4 * np.sin(g.y / 6)))
    fence = smoothstep(-11, -8, g.park) * smoothstep(20, 60, g.x) * smoothstep(200, 212, g.y)
    leaves = smoothstep(-0.12, 0.35, noise(g.x / 11, g.y / 17) + 0.6 * noise(g.x / 4, g.y / 6))
    trees = leaves * smoothstep(-62, -30, g.park) * smoothstep(40, 110, g.x) \
        * smoothstep(190, 250, g.y) * 0.75
    dark = np.maximum(stand, np.maximum(fence, trees))
    level = 1.08 + 0.06 * noise(g.x / 150 + 2, g.y / 110)
    level *= 1 - 0.12 * smoothstep(840, HEIGHT, g.row)
    colour *= (level * (1 - 0.34 * dark))[..., None]
    colour *= np.stack((1.05 - 0.08 * dark, 1.0 + 0 * dark, 0.93 + 0.10 * dark), axis=-1)
    blend(colour, (236, 214, 160), smoothstep(130, 470, g.y) * 0.16)


TURF = Turf((116, 122, 62), (178, 140, 98), rough_cut, afternoon_light, worn_grass, track=-20)


def paint_surroundings(context, random):
    oblong(context, 0, HORIZON + 12, WIDTH, 60, (152, 152, 100))
    paint_land(context, OUTLINE, (136, 140, 82), 560)
    paint_village(context, random)
    for degrees in (30, 34.5, 37.2, 41.5, 44.5, 49):
        paint_buggy(context, *OUTLINE.point(degrees, random.uniform(78, 112)))
    paint_pavilion(context, random, OUTLINE.fence_line(-OUTLINE.corner - 2, -22, 46))
    for side in (-1, 1):
        paint_side_stand(context, random, side)


def paint_bench(context, side):
    """A long plank on trestles, where a team waits for its turn."""
    def at(y, out, z):
        return project(side * (66 + out + OUTLINE.wall_slope * y), y, z)

    area(context, [at(4, -2.4, 0), at(32, -2.4, 0), at(32, 0.4, 0), at(4, 0.4, 0)],
         (62, 54, 36), 1, 0.4)                     # its shadow
    for y in range(5, 33, 9):
        strokes(context, [(at(y, out, 0), at(y, out, 1.6)) for out in (0, 1.4)], (88, 68, 50), 2.2)
    area(context, [at(4, 0, 1.5), at(32, 0, 1.5), at(32, 1.5, 1.5), at(4, 1.5, 1.5)], TIMBER, 0.96)
    strokes(context, [(at(4, 0.75, 1.5), at(32, 0.75, 1.5))], (112, 84, 60), 0.8, 0.7)


def paint_walls(context, random):
    for side in (-1, 1):
        paint_foul_wall(context, OUTLINE, side,
                        FoulWall(4.4, GREY_BOARD, WHITEWASH, dugout=False))
        paint_bench(context, side)
    top = 11
    paint_boards(context, random, -OUTLINE.corner, OUTLINE.corner, top)
    for sign in SIGNS:
        paint_sign(context, random, sign, top)
    paint_crowd_on_the_grass(context, random)
    for side in (-45, 45):                         # posts where the foul lines end
        x, y = OUTLINE.point(side)
        strokes(context, [(project(x, y, 0), project(x, y, 24))], WHITEWASH, 2.4)
        paint_pennant(context, project(x, y, 14), unit(y), CLOTH[0], WHITEWASH)


def faded(image):
    """As on an old hand-tinted print."""
    grey = image @ np.array((0.30, 0.59, 0.11), np.float32)
    sepia = grey[..., None] * np.array((1.10, 0.98, 0.76), np.float32)
    return image + (sepia - image) * 0.30


def ballpark():
    random = np.random.RandomState(1904)
    image, px, py = empty_picture((138, 140, 84))
    paint_backdrop(image, px, py)
    with drawing(image) as context:
        paint_surroundings(context, random)
    paint_field(image, px, py, OUTLINE, TURF)
    with drawing(image) as context:
        paint_walls(context, random)
    return finish(image, None, random, Print(bloom=0.4, dusk=0.26, curve=0.14, grain=2.0,
                                             tint=faded))
