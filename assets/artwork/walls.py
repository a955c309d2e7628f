"""What stands around the field: fences, foul poles, dugouts, light towers."""
from dataclasses import dataclass

from .camera import project, unit
from .pen import lettering, oblong, spot, strip, strokes


@dataclass
class Fence:
    """An outfield fence of upright panels with a rail along its top."""
    height: float = 10
    face: tuple = (30, 58, 46)
    foot: tuple = (20, 36, 30)
    rail: tuple = (196, 164, 82)
    rail_light: float = 0.9
    joint: tuple = (18, 38, 31)
    figures: tuple = (224, 212, 178)


def paint_fence(context, line, fence):
    line = list(line)
    top = fence.height
    strip(context, line, 0, top, fence.face)
    strip(context, line, 0, 1.2, fence.foot)
    strip(context, line, top - 0.8, top + 0.3, fence.rail, fence.rail_light)
    strokes(context, [(project(x, y, 1), project(x, y, top - 0.8)) for x, y, _, _ in line[::3]],
            fence.joint, 0.7, 0.7)


def paint_distances(context, outline, signs, colour, foot=2.4, size=7.4):
    """The distances painted on the fence, each at its angle."""
    for degrees, text in signs:
        x, y = project(*outline.point(degrees), foot)
        lettering(context, text, x, y, size * unit(outline.point(degrees)[1]), colour, 0.9)


def paint_foul_poles(context, outline, colour=(222, 186, 92), height=46, width=2.0):
    for side in (-45, 45):
        x, y = outline.point(side)
        strokes(context, [(project(x, y, 0), project(x, y, height))], colour, width)


@dataclass
class FoulWall:
    """The low wall along a foul side, with the dugout let into it."""
    height: float = 4.2
    face: tuple = (34, 54, 46)
    rail: tuple = (168, 148, 112)
    posts: tuple = (96, 104, 92)
    roof: tuple = (52, 78, 66)
    roof_edge: tuple = (190, 170, 128)
    dugout: bool = True


def paint_foul_wall(context, outline, side, wall):
    line = list(outline.wall_line(side, -40, outline.far_end(), 60))
    strip(context, line, 0, wall.height, wall.face)
    strip(context, line, wall.height - 0.5, wall.height + 0.2, wall.rail, 0.8)
    if wall.dugout:
        paint_dugout(context, list(outline.wall_line(side, 2, 46, 10)), wall)


def paint_dugout(context, dugout, wall):
    strip(context, dugout, 0, 4.6, (12, 18, 17))
    strokes(context, [(project(x, y, 0), project(x, y, 5)) for x, y, _, _ in dugout],
            wall.posts, 2)
    strip(context, dugout, 4.6, 6.2, wall.roof)
    strip(context, dugout, 6.0, 6.4, wall.roof_edge, 0.85)


def paint_batters_eye(context, line, high=25, face=(22, 40, 33), edge=(66, 84, 70)):
    line = [(x * 1.02, y * 1.02, a, b) for x, y, a, b in line]
    strip(context, line, 0, high, face)
    strip(context, line, high - 1, high + 0.2, edge)


@dataclass
class Tower:
    """A lattice mast with a bank of lamps on its head."""
    steel: tuple = (38, 44, 46)
    bank: tuple = (46, 50, 50)
    lamp: tuple = (255, 246, 222)
    halo: tuple = (255, 226, 170)


def paint_tower(context, glow, x, y, bottom, top, tower):
    foot, head, scale = project(x, y, bottom), project(x, y, top), unit(y)
    context.set_line_width(1.0)
    half = 2.6 * scale
    lines = [((foot[0] + side * half * 1.4, foot[1]), (head[0] + side * half, head[1]))
             for side in (-1, 1)]
    z = bottom
    while z < top - 6:                             # the lattice
        a, b = project(x, y, z)[1], project(x, y, z + 7)[1]
        left, right = foot[0] - half * 1.2, foot[0] + half * 1.2
        lines += [((left, a), (right, b)), ((right, a), (left, b))]
        z += 7
    strokes(context, lines, tower.steel, 1.0)
    wide, tall = 26 * scale, 15 * scale
    oblong(context, head[0] - wide / 2, head[1] - tall, wide, tall, tower.bank)
    paint_lamps(context, glow, head[0], head[1], wide, tall, tower)


def paint_lamps(context, glow, middle, bottom, wide, tall, tower, rows=4, columns=7):
    """A bank of lamps; the same spots go to the picture of the glow."""
    for row in range(rows):
        for lamp in range(columns):
            x = middle + (lamp - (columns - 1) / 2) * wide / (columns + 0.4)
            y = bottom - tall * (0.13 + 0.98 / rows * row)
            for target, colour in ((context, tower.lamp), (glow, tower.halo)):
                spot(target, x, y, wide / (columns * 20 / 7), colour)
