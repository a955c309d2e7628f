"""What stood around a ballpark in the days of horse and steam: church, houses, buggies."""
import math

from .camera import project, unit
from .pen import area, ink, oblong, polygon, spot, strokes

PLASTER = (236, 228, 208)
SLATES = ((112, 84, 68), (96, 84, 78), (124, 92, 66))
PAINTS = ((226, 214, 186), (196, 160, 116), (164, 96, 70), (206, 196, 170), (178, 168, 130))


def paint_house(context, random, x, foot, wide, tall):
    """A gabled house with its end turned to the right, where the sun is."""
    paint = PAINTS[random.randint(len(PAINTS))]
    roof = SLATES[random.randint(len(SLATES))]
    end = wide * 0.36
    eaves, ridge = foot - tall * 0.58, foot - tall
    oblong(context, x, eaves, wide - end, foot - eaves, paint, 0.84)
    area(context, ((x + wide - end, foot), (x + wide - end, eaves), (x + wide - end / 2, ridge),
                   (x + wide, eaves), (x + wide, foot)), paint, 1.04)
    area(context, ((x - 1.5, eaves + 1), (x + end / 2 - 1, ridge), (x + wide - end / 2, ridge),
                   (x + wide - end, eaves + 1)), roof)
    oblong(context, x + wide * 0.34, ridge - tall * 0.13, 3.6, tall * 0.18, (142, 82, 62))
    for part in (0.12, 0.38):
        oblong(context, x + wide * part, eaves + tall * 0.16, wide * 0.10, tall * 0.2, (84, 78, 70))
    oblong(context, x + wide - end * 0.62, eaves + tall * 0.14, end * 0.26, tall * 0.22, (84, 78, 70))


def paint_church(context, x, foot, size):
    """A white church of boards with a tall steeple."""
    def block(left, top, wide, tall, light):
        oblong(context, x + left * size, foot - top * size, wide * size, tall * size, PLASTER, light)

    block(-34, 22, 50, 22, 0.86)                   # the nave and its roof
    area(context, ((x - 36 * size, foot - 21 * size), (x - 28 * size, foot - 38 * size),
                   (x + 12 * size, foot - 38 * size), (x + 16 * size, foot - 21 * size)),
         (116, 96, 82))
    for window in range(4):
        left = x + (-30 + 9.5 * window) * size
        oblong(context, left, foot - 16 * size, 3.4 * size, 12 * size, (98, 98, 96))
        spot(context, left + 1.7 * size, foot - 16 * size, 1.7 * size, (98, 98, 96))
    block(10, 50, 12, 50, 0.90)                    # the tower, its sunlit side, the belfry
    block(22, 50, 5, 50, 1.05)
    block(9, 52, 19, 2.4, 1.0)
    block(12, 64, 8.5, 12, 0.92)
    block(20.5, 64, 4, 12, 1.06)
    oblong(context, x + 14 * size, foot - 62 * size, 4.4 * size, 8 * size, (84, 80, 76))
    block(11, 65.5, 15, 2, 1.0)
    tip = (x + 18.5 * size, foot - 108 * size)
    area(context, ((x + 11.5 * size, foot - 65 * size), tip, (x + 20.5 * size, foot - 65 * size)),
         (124, 108, 96))
    area(context, ((x + 20.5 * size, foot - 65 * size), tip, (x + 25.5 * size, foot - 65 * size)),
         (164, 146, 126))
    strokes(context, [(tip, (tip[0], tip[1] - 9 * size)),
                      ((tip[0] - 2.6 * size, tip[1] - 6 * size),
                       (tip[0] + 2.6 * size, tip[1] - 6 * size))], (96, 84, 66), 1.3)


def paint_water_tower(context, x, foot, size):
    """A wooden tank on trestles."""
    legs = [((x + a * size, foot), (x + b * size, foot - 46 * size))
            for a, b in ((-15, -11), (-5, -4), (5, 4), (15, 11))]
    braces = [((x - 14 * size, foot - 12 * size), (x + 12 * size, foot - 34 * size)),
              ((x + 14 * size, foot - 12 * size), (x - 12 * size, foot - 34 * size))]
    strokes(context, legs, (92, 74, 56), 1.8)
    strokes(context, braces, (92, 74, 56), 1.0)
    for part in range(9):
        tone = 0.72 + 0.42 * math.sin(math.pi * (part + 1.5) / 11)
        oblong(context, x + (-14 + 28 * part / 9) * size, foot - 76 * size, 28 / 9 * size + .5,
               30 * size, (156, 118, 82), tone)
    for hoop in (50, 58, 66, 73):
        strokes(context, [((x - 14 * size, foot - hoop * size), (x + 14 * size, foot - hoop * size))],
                (84, 66, 52), 1.0)
    area(context, ((x - 16 * size, foot - 75 * size), (x, foot - 90 * size),
                   (x + 16 * size, foot - 75 * size)), (116, 92, 74))


def paint_buggy(context, x, y):
    """A carriage left standing behind the seats."""
    foot_x, foot_y = project(x, y)
    size = unit(y)
    dark = (58, 44, 36)
    area(context, [(foot_x + a * size, foot_y - b * size) for a, b in
                   ((-5, 3.4), (4, 3.4), (4.6, 5.2), (-1, 5.2), (-1.6, 7.6), (-5.4, 7.6))], dark)
    area(context, [(foot_x + a * size, foot_y - b * size) for a, b in
                   ((-6, 7.4), (-5, 10.6), (-1, 10.8), (0.6, 8.8), (-1.4, 8.4))], (82, 66, 52))
    for a in (-3.6, 3.4):
        ink(context, (112, 84, 56))
        context.set_line_width(max(0.8, 0.4 * size))
        context.arc(foot_x + a * size, foot_y - 2.1 * size, 2.1 * size, 0, 7)
        context.stroke()
    strokes(context, [((foot_x + 4 * size, foot_y - 3 * size), (foot_x + 11 * size, foot_y - 2 * size))],
            dark, 0.8)


def paint_bunting(context, ends, drop, colours):
    """Half-round swags of cloth along a rail."""
    for a, b in zip(ends, ends[1:]):
        middle = ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2)
        half = math.hypot(b[0] - a[0], b[1] - a[1]) / 2
        turn = math.atan2(b[1] - a[1], b[0] - a[0])
        for part, colour in zip((1.0, 0.70, 0.40), colours):
            context.save()
            context.translate(*middle)
            context.rotate(turn)
            context.scale(half * part, drop * part)
            context.arc(0, 0, 1, 0, math.pi)
            context.restore()
            context.close_path()
            ink(context, colour)
            context.fill()


def paint_onlooker(context, random, x, y, coats, hats):
    """A person who stands: coat, face, hat."""
    foot_x, foot_y = project(x, y)
    size = unit(y)
    coat = coats[random.randint(len(coats))]
    tone = random.uniform(0.85, 1.1)
    polygon(context, [(foot_x + a * size, foot_y - b * size) for a, b in
                      ((-0.7, 0), (0.7, 0), (1.0, 4.6), (-1.0, 4.6))])
    ink(context, coat, 1, tone)
    context.fill()
    spot(context, foot_x, foot_y - 5.3 * size, 0.55 * size, (206, 164, 130), tone)
    hat = hats[random.randint(len(hats))]
    oblong(context, foot_x - 0.9 * size, foot_y - 6.1 * size, 1.8 * size, 0.5 * size, hat, tone)
    oblong(context, foot_x - 0.5 * size, foot_y - 6.7 * size, 1.0 * size, 0.8 * size, hat, tone)
