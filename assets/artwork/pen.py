"""Tools for drawing with cairo, and for laying a drawing over a picture."""
from contextlib import contextmanager

import cairo
import numpy as np

from .camera import HEIGHT, SUPER, WIDTH, project


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


@contextmanager
def drawing(image):
    """A pen whose drawing is laid over the picture at the end."""
    surface, context = canvas()
    yield context
    lay_over(image, surface)


def ink(context, colour, alpha=1.0, light=1.0):
    context.set_source_rgba(*(min(1, c * light / 255) for c in colour), alpha)


def polygon(context, points):
    context.move_to(*points[0])
    for point in points[1:]:
        context.line_to(*point)
    context.close_path()


def area(context, points, colour, light=1.0, alpha=1.0):
    polygon(context, points)
    ink(context, colour, alpha, light)
    context.fill()


def oblong(context, left, top, width, height, colour, light=1.0, alpha=1.0):
    context.rectangle(left, top, width, height)
    ink(context, colour, alpha, light)
    context.fill()


def spot(context, x, y, radius, colour, light=1.0, alpha=1.0):
    ink(context, colour, alpha, light)
    context.arc(x, y, radius, 0, 7)
    context.fill()


def strokes(context, lines, colour, width, alpha=1.0):
    """Straight lines, each a pair of points."""
    for a, b in lines:
        context.move_to(*a)
        context.line_to(*b)
    ink(context, colour, alpha)
    context.set_line_width(width)
    context.stroke()


def strip(context, line, low, high, colour, light=1.0, alpha=1.0):
    """An upright band along ground points, between two heights."""
    lower = [project(p[0], p[1], low) for p in line]
    upper = [project(p[0], p[1], high) for p in line]
    area(context, lower + upper[::-1], colour, light, alpha)


def lettering(context, text, middle, foot, size, colour, alpha=1.0, face="DejaVu Sans"):
    """Bold letters around a middle, standing on a row."""
    context.select_font_face(face, cairo.FONT_SLANT_NORMAL, cairo.FONT_WEIGHT_BOLD)
    context.set_font_size(size)
    extents = context.text_extents(text)
    ink(context, colour, alpha)
    context.move_to(middle - extents.width / 2 - extents.x_bearing, foot)
    context.show_text(text)
    context.new_path()
