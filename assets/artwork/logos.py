"""The logos: a roundel on the slate of the panels, drawn in a box of 100 by 100."""
import math

import cairo
import numpy as np
from PIL import Image

from .grid import as_picture
from .pen import ink, lay_over, polygon

SLATE = (22, 38, 31)            # the colour of the board's panels
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
