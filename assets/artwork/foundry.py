"""Foundry Park: a great bowl at night, open towards the old ironworks."""
import math

import numpy as np

from .camera import HEIGHT, HORIZON, SHARP, WIDTH, project, unit
from .field import Turf, corners_of_sight, mown, paint_field, pools
from .finish import Print, empty_picture, finish
from .grid import blend, gradient, noise, smoothstep
from .outline import Outline
from .pen import (area, canvas, drawing, ink, lay_over, lettering, oblong, spot, strip,
                  strokes)
from .scenery import skyline
from .sky import billows, paint_stars
from .stands import Stand, paint_stand, shifted
from .walls import (Fence, FoulWall, Tower, paint_distances, paint_fence, paint_foul_poles,
                    paint_foul_wall, paint_lamps)

OUTLINE = Outline(((-70, 342), (-45, 334), (-30, 384), (-15, 402), (0, 404), (15, 402),
                   (30, 384), (45, 334), (70, 342)))
SKY = ((-226, (8, 11, 26)), (-120, (15, 20, 42)), (-40, (32, 38, 64)), (10, (62, 58, 76)),
       (70, (40, 40, 54)))
SHIRTS = ((214, 208, 200), (176, 178, 186), (112, 128, 158), (206, 106, 48), (72, 84, 116),
          (196, 84, 44), (58, 62, 78), (224, 216, 204), (148, 150, 162), (96, 58, 52))
SEATS = dict(step=(50, 54, 66), bench=(70, 76, 96), clothes=SHIRTS)
STEEL, RIBBON, EMBER = (44, 48, 60), (255, 150, 60), (255, 128, 52)
LAMPS = Tower((60, 66, 80), (44, 48, 58), (250, 252, 255), (196, 214, 255))
OPEN_FROM = 12                   # degrees: from here on the bowl is open
MOON = (352, 66, 19)


def paint_sky(image, px, py, random):
    rows = py[:, 0] < HORIZON + 60
    x, y = px[rows], py[rows]
    colour = gradient(y - HORIZON, SKY)
    haze = smoothstep(-0.1, 1.0, billows(x / 420 + 3, y / 95, 4))
    colour += (np.array((46, 48, 70), np.float32) - colour) * (haze * 0.45)[..., None]
    fire = np.exp(-((x - 1290) / 230) ** 2 - ((y - HORIZON) / 120) ** 2)
    colour += fire[..., None] * np.array((92, 40, 10), np.float32)
    paint_stars(colour, random, 420, 190)
    paint_moon(colour, x, y)
    paint_smoke(colour, x, y)
    image[rows] = colour


def paint_moon(colour, x, y):
    middle, row, size = MOON
    away = np.hypot(x - middle, y - row)
    colour += (np.exp(-away / 46) * 0.5)[..., None] * np.array((70, 78, 104), np.float32)
    seas = smoothstep(-0.1, 0.7, noise((x - middle) / 9 + 2, (y - row) / 8 + 5))
    face = np.array((236, 232, 214), np.float32) * (1 - 0.16 * seas)[..., None]
    colour += (face - colour) * np.clip((size - away) * SHARP + 0.5, 0, 1)[..., None]


def paint_smoke(colour, x, y):
    """What rises from the chimneys, leaning with the wind."""
    smoke = np.zeros_like(x)
    for left, top, lean in ((1217, 70, 0.9), (1285, 40, 1.2), (1340, 92, 0.8)):
        up = np.clip(top - y, 0, None)
        drift = left + up * lean + 9 * noise(y / 28 + left, y * 0)
        plume = np.exp(-((x - drift) / (5 + up * 0.42)) ** 2) * (up > 0)
        puffs = 0.55 + 0.6 * billows((x - up * lean) / 30, y / 26 + left, 4)
        smoke = np.maximum(smoke, plume * np.clip(puffs, 0, 1) * np.exp(-up / 150))
    blend(colour, (126, 92, 84), smoke * 0.62)


def paint_chimney(context, glow, x, foot, top, width):
    area(context, ((x - width * .62, foot), (x + width * .62, foot), (x + width * .42, top),
                   (x - width * .42, top)), (50, 34, 36))
    area(context, ((x - width * .62, foot), (x - width * .3, foot), (x - width * .22, top),
                   (x - width * .42, top)), (96, 54, 40))
    for part in (0.0, 0.05, 0.3):                  # iron bands and the crown
        y = top + (foot - top) * part
        oblong(context, x - width * .5, y, width, 2.2, (36, 26, 30))
    spot(context, x, top - 1.5, 1.5, (255, 80, 60))
    spot(glow, x, top - 1.5, 1.1, (255, 60, 40))


def paint_works(context, glow, random):
    """The foundry: saw-tooth roofs, furnaces, chimneys and their glow."""
    skyline(context, random, 1010, 1679, HORIZON + 26, (24, 70), (18, 34),
            ((26, 30, 46), (32, 34, 50), (22, 26, 40)), (255, 206, 130), 0.72)
    for x, top, width in ((1217, 72, 15), (1285, 42, 18), (1340, 94, 13), (1392, 128, 11)):
        paint_chimney(context, glow, x, HORIZON + 30, top, width)
    for left, count, high in ((1120, 5, 206), (1250, 4, 192), (1360, 6, 208)):
        for tooth in range(count):
            x = left + tooth * 26
            area(context, ((x, HORIZON + 40), (x, high), (x + 26, high + 16),
                           (x + 26, HORIZON + 40)), (38, 32, 40))
            area(context, ((x, high + 2), (x + 4, high + 4), (x + 4, high + 26), (x, high + 24)),
                 (196, 110, 56), 0.9)
            for pane in range(3):
                light = random.uniform(0.45, 1.0)
                oblong(context, x + 7 + pane * 6, high + 24, 4.2, 9, EMBER, light)
                oblong(glow, x + 7 + pane * 6, high + 24, 4.2, 9, EMBER, light * 0.35)
    area(context, ((1236, HORIZON + 30), (1236, 178), (1248, 166), (1270, 166), (1280, 178),
                   (1280, HORIZON + 30)), (34, 30, 38))
    oblong(context, 1249, 186, 18, 6, (255, 176, 90))
    oblong(glow, 1249, 186, 18, 6, (255, 120, 50), 0.7)


def paint_yard(context, glow, random):
    """Sheds and lamps of the freight yard, between the works and the seats."""
    oblong(context, 0, HORIZON + 14, WIDTH, 160, (24, 25, 32))
    skyline(context, random, 790, 1560, HORIZON + 40, (8, 20), (24, 60),
            ((34, 33, 42), (44, 38, 44), (28, 30, 40)), (255, 190, 110), 0.8)
    for x in range(830, 1560, 31):
        y = HORIZON + 30 + random.uniform(-3, 8)
        strokes(context, [((x, y), (x, y + 16))], (58, 58, 66), 1.0)
        spot(context, x, y, 1.5, (255, 226, 170))
        spot(glow, x, y, 1.5, (255, 176, 96), 0.7)
    oblong(context, 0, HORIZON + 52, WIDTH, 120, (20, 21, 28))


def paint_ribbon(context, glow, line, away, z, tall=2.6):
    """The band of light along the front of a deck."""
    upper = [shifted(p, away, z + tall) for p in line]
    lower = [shifted(p, away, z) for p in line]
    area(context, upper + lower[::-1], RIBBON, 0.92)
    for start in range(0, len(line) - 1, 2):       # darker words, too small to read
        a, b = shifted(line[start], away, z + tall * 0.5), \
            shifted(line[start + 1], away, z + tall * 0.5)
        strokes(context, [(a, b)], (140, 58, 24), 1.0, 0.55)
    area(glow, upper + lower[::-1], RIBBON, 0.30)


def hide_glow(glow, line, away, low, high):
    """Lamps shine no more where something stands before them."""
    below = [shifted(p, 0, low) for p in line]
    above = [shifted(p, away, high) for p in line]
    area(glow, below + above[::-1], (0, 0, 0))


def paint_deck(context, glow, random, line, stand, closed=True):
    """One ring of the bowl: a dark gallery, the seats above it, light on its edge."""
    line = list(line)
    hide_glow(glow, line, stand.depth(), 0, stand.top() + 2.5)
    paint_stand(context, random, line, stand)
    front = [shifted(p, stand.away, stand.front - 1) for p in line]
    below = [shifted(p, stand.away, stand.front - 5) for p in line]
    area(context, front + below[::-1], STEEL)
    if closed:
        gallery = [shifted(p, stand.away + 5, stand.front - 11) for p in line]
        area(context, below + gallery[::-1], (20, 21, 28))
        lights = [shifted(p, stand.away + 4, stand.front - 7) for p in line]
        strokes(context, zip(lights[::2], lights[1::2]), (255, 222, 168), 1.2, 0.75)
        paint_ribbon(context, glow, line, stand.away, stand.front - 4.4)


def paint_rim(context, glow, line, away, z):
    """The roof edge: a steel truss that carries the lamps."""
    line = list(line)
    low = [shifted(p, away - 16, z + 5) for p in line]
    high = [shifted(p, away + 8, z + 12) for p in line]
    area(context, low + high[::-1], (30, 33, 44))
    edge = [shifted(p, away - 16, z + 2.5) for p in line]
    area(context, low + edge[::-1], (92, 98, 116))
    for a, b in zip(low[::2], high[1::2]):
        strokes(context, [(a, b)], (58, 62, 78), 1.0)
    for point in line[3::7]:
        size = unit(point[1])
        x, y = shifted(point, away - 6, z + 10)
        wide, tall = 25 * size, 9 * size
        oblong(context, x - wide / 2 - 1, y - tall - 1, wide + 2, tall + 2, LAMPS.bank)
        paint_lamps(context, glow, x, y, wide, tall, LAMPS, 3, 8)


def paint_video_board(context, glow):
    """A great picture board in left field; it shows a slow play of colours."""
    x, y = OUTLINE.point(-37, 30)
    scale = unit(y)
    left, base = project(x - 62, y, 34)
    width, height = 118 * scale, 52 * scale
    top = base - height
    for target, colour in ((context, (24, 26, 34)), (glow, (0, 0, 0))):
        oblong(target, left - 5, top - 5, width + 10, height + 30, colour)
    oblong(context, left, top, width, height, (20, 30, 62))
    for band in range(24):
        rise = height * (0.95 - 0.036 * band)
        context.move_to(left, top + height)
        for step in range(41):
            wave = math.sin(step / 40 * 5.2 + band * 0.23) * height * 0.10
            context.line_to(left + width * step / 40, min(top + height, max(top, top + rise + wave)))
        context.line_to(left + width, top + height)
        ink(context, (26 + 6.6 * band, 44 + 2 * band, 104 - 2.4 * band), 0.10)
        context.fill()
    lettering(context, "FOUNDRY PARK", left + width / 2, top + height * 0.46, height * 0.17,
              (255, 236, 206), 0.95)
    baseline = top + height * 0.56
    strokes(context, [((left + width * .2, baseline), (left + width * .8, baseline))],
            (255, 170, 80), 1.6, 0.9)
    oblong(glow, left, top, width, height, (64, 50, 60), 0.30)
    oblong(context, left - 5, top + height + 1, width + 10, 3, (60, 64, 78))


def arcs(g):
    """Rings around home plate, cut by rays: a mower's fan."""
    far = np.hypot(g.x, g.y)
    pattern = 0.060 * mown(far, 21, 6) + 0.040 * mown(g.angle * 130, 16, 5)
    infield = smoothstep(1.0, -1.0, g.lawn)
    return pattern + (0.055 * mown(g.along_third - 45, 10.25, 5) - pattern) * infield


def lamplight(colour, g):
    """White light from all sides, brightest over the infield."""
    level = 0.80 + 0.36 * pools(g, 170) - 0.10 * smoothstep(250, 430, g.y)
    level *= 1 - 0.34 * np.exp(np.minimum(g.park, 0) / 13)
    level *= 1 - 0.34 * corners_of_sight(g)
    level *= 1 - 0.14 * smoothstep(820, HEIGHT, g.row)
    ember = smoothstep(40, 260, g.x) * smoothstep(120, 300, g.y)
    cool = np.stack((0.97 + 0.10 * ember, 1.0 + 0 * ember, 1.05 - 0.10 * ember), axis=-1)
    colour *= level[..., None] * cool


TURF = Turf((70, 114, 58), (164, 108, 76), arcs, lamplight, track=14)


def paint_stairs(context, glow, point, away, z):
    """A tower of stairs that closes the end of a deck."""
    x, y, nx, ny = point
    size = unit(y + ny * away)
    left, foot = shifted(point, away, 0)
    top = shifted(point, away, z)[1]
    wide = 15 * size
    oblong(context, left - wide / 2, top, wide, foot - top, (58, 56, 64))
    oblong(context, left - wide / 2, top, wide * 0.3, foot - top, (82, 78, 84))
    oblong(context, left - wide * 0.7, top - 3, wide * 1.4, 3.4, (92, 98, 116))
    row = top + 4
    while row < foot - 4:                          # a lit window to every landing
        for target, light in ((context, 1), (glow, 0.35)):
            oblong(target, left + wide * 0.02, row, wide * 0.26, 3.2, (255, 216, 150), light)
        row += 7


def paint_horseshoe(context, glow, random, line, ends):
    """Three decks, the highest and farthest first; `ends` tells where each one stops."""
    decks = (Stand(48, 14, 2.5, 3.0, 0.50, 0.84, away=44, **SEATS),
             Stand(27, 9, 1.8, 3.0, 0.62, 0.88, away=20, **SEATS),
             Stand(9, 9, 1.5, 3.2, 0.78, 0.92, away=0, **SEATS))
    for stand, (first, last) in zip(decks, ends):
        part = line[first:last]
        highest = stand is decks[0]
        paint_deck(context, glow, random, part, stand, stand.front > 10)
        if highest:
            paint_rim(context, glow, part, 88, 86)
        if stand.front > 10:
            for point in (part[0], part[-1]):
                paint_stairs(context, glow, point, stand.away + 12, stand.top() + 4)


def paint_bowl(context, glow, random):
    left = list(OUTLINE.fence_line(-69, OPEN_FROM, 110))
    paint_horseshoe(context, glow, random, left, ((0, -20), (0, -9), (0, None)))
    right = list(OUTLINE.fence_line(52, 69, 26))
    paint_horseshoe(context, glow, random, right, ((5, None), (2, None), (0, None)))
    corner, far_end = OUTLINE.corner, OUTLINE.far_end()
    paint_video_board(context, glow)
    hide_glow(glow, list(OUTLINE.fence_line(-8, 8, 16)), 2, 0, 30)
    paint_deck(context, glow, random, OUTLINE.fence_line(OPEN_FROM + 5, corner + 3, 54),
               Stand(10, 12, 1.5, 3.2, 0.74, 0.9, **SEATS), False)
    for side in (-1, 1):
        paint_deck(context, glow, random, OUTLINE.wall_line(side, far_end, -38, 90),
                   Stand(4.5, 24, 1.2, 2.9, 0.70, 0.92, **SEATS), False)


def paint_walls(context):
    black = (26, 28, 36)
    for side in (-1, 1):
        paint_foul_wall(context, OUTLINE, side,
                        FoulWall(4.2, black, (206, 110, 52), (110, 116, 130), (46, 50, 62),
                                 (206, 110, 52)))
    paint_fence(context, OUTLINE.fence_line(-OUTLINE.corner, OUTLINE.corner, 120),
                Fence(9, black, (18, 19, 24), (228, 112, 44), 1.0, (14, 15, 20)))
    eye = list(OUTLINE.fence_line(-8, 8, 16))
    strip(context, [(x * 1.004, y * 1.004, a, b) for x, y, a, b in eye], 9.4, 30, (16, 18, 24))
    paint_distances(context, OUTLINE, ((-42.5, "334"), (-22, "394"), (0, "404"), (22, "394"),
                                       (42.5, "334")), (238, 226, 208))
    paint_foul_poles(context, OUTLINE, (255, 150, 60), 52)


def ballpark():
    random = np.random.RandomState(1931)
    image, px, py = empty_picture((20, 22, 30))
    paint_sky(image, px, py, random)
    glow_surface, glow = canvas()
    with drawing(image) as context:
        paint_works(context, glow, random)
        paint_yard(context, glow, random)
        paint_bowl(context, glow, random)
    paint_field(image, px, py, OUTLINE, TURF)
    with drawing(image) as context:
        paint_walls(context)
    lamps = np.zeros_like(image)
    lay_over(lamps, glow_surface)
    return finish(image, lamps, random, Print(bloom=0.35, dusk=0.34, curve=0.12, grain=1.8))
