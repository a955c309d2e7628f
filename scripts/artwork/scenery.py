"""What lies behind a park: ridges, trees, flat clouds."""
import math

from .camera import CENTRE_X, HORIZON, WIDTH, project, unit
from .grid import gradient, noise, smoothstep
from .pen import area, ink, spot


def ridge(context, random, base, height, step, colour):
    """A line of hills along the horizon."""
    context.move_to(0, HORIZON + 7)
    level = base
    for x in range(0, WIDTH + step, step):
        level += random.uniform(-1, 1) * height * 0.3
        level += (base - level) * 0.12
        context.line_to(x, level)
    context.line_to(WIDTH, HORIZON + 7)
    ink(context, colour)
    context.fill()


def ceiling_clouds(x, y):
    """Streaks of cloud that lie flat, like a ceiling: how dense at each pixel."""
    depth = 900 / (HORIZON + 18 - y)
    u, v = (x - CENTRE_X) * depth / 1500 + 40, depth * 2.6
    cloud = noise(u, v) + 0.5 * noise(u * 2.1, v * 2.1) + 0.28 * noise(u * 4.4, v * 4.4)
    return smoothstep(0.1, 1.1, cloud) * smoothstep(HORIZON, HORIZON - 45, y)


def paint_ceiling_clouds(colour, x, y, stops, strength):
    lit = gradient(y - HORIZON, stops)
    colour += (lit - colour) * (ceiling_clouds(x, y) * strength)[..., None]


def round_leaves(random):
    """The leaves of a round tree, as (height, sideways) parts of its height."""
    crown = random.uniform(0.30, 0.42)             # half as wide as it is tall, or less
    leaves = []
    for _ in range(110):
        turn, reach = random.uniform(0, 2 * math.pi), math.sqrt(random.rand())
        leaves.append((0.60 + 0.38 * reach * math.sin(turn), crown * reach * math.cos(turn)))
    return leaves


def tree(context, random, x, y, height, leaf=(44, 54, 38), sun_x=-60):
    foot_x, foot_y = project(x, y)
    tall = height * unit(y)
    for up, aside in round_leaves(random):         # brighter on top and towards the sun
        light = 0.62 + 0.75 * max(0, up - 0.45) - 0.35 * aside * math.copysign(1, x - sun_x)
        spot_light = light * random.uniform(0.8, 1.2)
        spot(context, foot_x + aside * tall, foot_y - up * tall,
             random.uniform(.045, .085) * tall, leaf, spot_light, 0.9)


def paint_land(context, outline, colour, beyond=215):
    """The ground right behind the fence."""
    near = list(outline.fence_line(-75, 75))
    far = [outline.point(d, beyond) for d in range(-75, 76, 5)]
    area(context, [project(p[0], p[1]) for p in near] + [project(*p) for p in far[::-1]], colour)
