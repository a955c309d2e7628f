"""The icon of the program: a diamond seen from above, on the slate of the panels.

One list of shapes, in a box of 256 by 256, is both drawn with cairo and written
as SVG.  The smallest sizes have a list of their own with fewer and bolder shapes.
"""
import math
import struct
from dataclasses import dataclass

import cairo

NAME = "kelvane-diamond-table"
SIZES = (16, 24, 32, 48, 64, 128, 256)
BOX = 256
SLATE, RIM, GRASS, LAWN = (22, 38, 31), (58, 84, 70), (38, 74, 54), (56, 104, 72)
CREAM, CLAY, YELLOW = (238, 228, 204), (152, 108, 76), (255, 200, 60)


@dataclass
class Shape:
    """A closed or open path, filled, or stroked where it has a width.

    `steps` are points to draw a line to; an arc is (x, y, radius, from, to) with
    its angles in degrees, clockwise from the right."""
    steps: list
    colour: tuple
    width: float = 0
    closed: bool = True


def on_circle(x, y, radius, degrees):
    turn = math.radians(degrees)
    return x + radius * math.cos(turn), y + radius * math.sin(turn)


def disc(x, y, radius, colour):
    return Shape([(x, y, radius, 0, 180), (x, y, radius, 180, 360)], colour)


def plaque(inset, radius, colour):
    """The rounded square behind everything."""
    low, high = inset + radius, BOX - inset - radius
    corners = ((high, low, -90), (high, high, 0), (low, high, 90), (low, low, 180))
    return Shape([(x, y, radius, start, start + 90) for x, y, start in corners], colour)


def square(x, y, half, colour):
    """A base: a square that stands on its corner."""
    return Shape([(x, y - half), (x + half, y), (x, y + half), (x - half, y)], colour)


def home_plate(x, y, half, colour):
    return Shape([(x - half, y - half), (x + half, y - half), (x + half, y + half * 0.15),
                  (x, y + half), (x - half, y + half * 0.15)], colour)


def diamond(home, side):
    """Home, first, second and third."""
    step = side / math.sqrt(2)
    return [(128, home), (128 + step, home - step), (128, home - 2 * step),
            (128 - step, home - step)]


def full_icon():
    home, side, wall = 210, 92, 146
    places = diamond(home, side)
    middle = (places[0][1] + places[2][1]) / 2
    foul = [on_circle(128, home, wall, turn) for turn in (-135, -45)]
    return [
        plaque(6, 50, RIM), plaque(11, 45, SLATE),
        Shape([(128, home), (128, home, wall, -135, -45)], GRASS),
        Shape([(128, home), (128, home, side * 1.30, -135, -45)], CLAY),
        Shape([(x, y) for x, y in diamond(home - 6, side - 8)], LAWN),
        Shape([foul[0], (128, home), foul[1]], CREAM, 6, False),
        Shape(places, CREAM, 6),
        Shape([(128, home, wall, -135, -45)], YELLOW, 12, False),
        disc(128, home, 20, CLAY), disc(128, middle, 13, CLAY),
        Shape([(119, middle - 2.5), (137, middle - 2.5), (137, middle + 2.5),
               (119, middle + 2.5)], CREAM),
        *(square(x, y, 15, CREAM) for x, y in places[1:]),
        home_plate(128, home, 13, YELLOW),
    ]


def small_icon():
    places = diamond(208, 116)
    return [
        plaque(0, 44, SLATE),
        Shape(places, LAWN), Shape(places, CREAM, 17),
        *(square(x, y, 29, CREAM) for x, y in places[1:]),
        home_plate(128, 208, 28, YELLOW),
    ]


def shapes_for(size):
    return small_icon() if size <= 24 else full_icon()


def draw(context, shape):
    context.new_path()
    for step in shape.steps:
        if len(step) == 2:
            context.line_to(*step)
        else:
            x, y, radius, first, last = step
            context.arc(x, y, radius, math.radians(first), math.radians(last))
    if shape.closed:
        context.close_path()
    context.set_source_rgb(*(part / 255 for part in shape.colour))
    if shape.width:
        context.set_line_width(shape.width)
        context.set_line_join(cairo.LINE_JOIN_ROUND)
        context.set_line_cap(cairo.LINE_CAP_ROUND)
        context.stroke()
    else:
        context.fill()


def save_png(folder, size):
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, size, size)
    context = cairo.Context(surface)
    context.set_antialias(cairo.ANTIALIAS_BEST)
    context.scale(size / BOX, size / BOX)
    for shape in shapes_for(size):
        draw(context, shape)
    surface.write_to_png(str(folder / f"{NAME}-{size}.png"))


def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".")


def svg_path(shape):
    words = []
    for step in shape.steps:
        start = step if len(step) == 2 else on_circle(*step[:3], step[3])
        words.append(("L" if words else "M") + " ".join(map(number, start)))
        if len(step) == 5:
            end = on_circle(*step[:3], step[4])
            words.append(f"A{number(step[2])} {number(step[2])} 0 0 1 "
                         + " ".join(map(number, end)))
    return "".join(words) + ("Z" if shape.closed else "")


def svg_shape(shape):
    colour = "#%02x%02x%02x" % shape.colour
    paint = f'fill="{colour}"'
    if shape.width:
        paint = f'fill="none" stroke="{colour}" stroke-width="{number(shape.width)}" ' \
            'stroke-linejoin="round" stroke-linecap="round"'
    return f'  <path {paint} d="{svg_path(shape)}"/>'


def save_svg(folder):
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{BOX}" height="{BOX}" '
             f'viewBox="0 0 {BOX} {BOX}">', "  <title>Kelvane Diamond Table</title>"]
    lines += [svg_shape(shape) for shape in full_icon()] + ["</svg>"]
    (folder / f"{NAME}.svg").write_text("\n".join(lines) + "\n", encoding="utf-8")


def save_icons(folder):
    folder.mkdir(parents=True, exist_ok=True)
    save_svg(folder)
    for size in SIZES:
        save_png(folder, size)


def save_windows_icon(pictures, target):
    """All sizes in one file, as Windows wants them: a head, an entry for each, the PNG files."""
    files = [(size, (pictures / f"{NAME}-{size}.png").read_bytes()) for size in SIZES]
    head = struct.pack("<HHH", 0, 1, len(files))
    at = len(head) + 16 * len(files)
    for size, png in files:
        side = size % 256  # 0 stands for 256
        head += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(png), at)
        at += len(png)
    target.write_bytes(head + b"".join(png for _, png in files))
