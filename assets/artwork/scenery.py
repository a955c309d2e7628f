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


def paint_trunk(context, x, y, tall, away):
    """`away` is the side on which the sun is not."""
    context.save()
    context.translate(x + 0.16 * away * tall, y)
    context.scale(0.40 * tall, 0.075 * tall)
    spot(context, 0, 0, 1, (40, 52, 30), 1, 0.40)
    context.restore()
    area(context, ((x - .035 * tall, y), (x + .035 * tall, y), (x + .022 * tall, y - .4 * tall),
                   (x - .022 * tall, y - .4 * tall)), (86, 68, 50))


def tree(context, random, x, y, height, leaf=(44, 54, 38), sun_x=-60, standing=False):
    """A round tree; one that is standing in the open shows its trunk and its shadow."""
    foot_x, foot_y = project(x, y)
    tall = height * unit(y)
    if standing:
        paint_trunk(context, foot_x, foot_y, tall, math.copysign(1, x - sun_x))
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


def pine(context, random, x, y, height, leaf=(38, 78, 56), sun_side=-1):
    """A conifer: tiers of boughs that grow wider downwards."""
    foot_x, foot_y = project(x, y)
    tall = height * unit(y)
    spread = random.uniform(0.17, 0.23)
    tiers = 9
    for tier in range(tiers):
        up = 0.08 + 0.80 * tier / tiers
        half = spread * (1 - up) ** 0.85 * random.uniform(0.86, 1.12)
        rise = 0.22 * (1.05 - up) + 0.04
        low, top = foot_y - up * tall, foot_y - (up + rise) * tall
        tone = random.uniform(0.88, 1.06) * (0.72 + 0.4 * up)
        area(context, ((foot_x - half * tall, low), (foot_x - half * .45 * tall, low + .02 * tall),
                       (foot_x, low - .01 * tall), (foot_x + half * .5 * tall, low + .02 * tall),
                       (foot_x + half * tall, low), (foot_x, top)), leaf, tone * 0.84)
        area(context, ((foot_x + sun_side * half * tall, low),
                       (foot_x + sun_side * half * .4 * tall, low + .02 * tall),
                       (foot_x + sun_side * .1 * half * tall, low - .01 * tall), (foot_x, top)),
             leaf, tone * 1.22)


def grove(random, outline, count, degrees, beyond, height):
    """Places for trees behind the fence, the farthest first."""
    spots = []
    for _ in range(count):
        x, y = outline.point(random.uniform(*degrees), random.uniform(*beyond))
        spots.append((y, x, random.uniform(*height)))
    return sorted(spots, reverse=True)


def skyline(context, random, first, last, foot, tall, wide, colours, window, hollow=0.35):
    """Blocks of a town, each with its lit side and rows of windows."""
    x = first
    while x < last:
        width = random.uniform(*wide)
        height = random.uniform(*tall)
        colour = colours[random.randint(len(colours))]
        building(context, random, x, foot, width, height, colour, window, hollow)
        x += width * random.uniform(0.75, 1.25)


def building(context, random, left, foot, width, height, colour, window, hollow):
    top = foot - height
    context.rectangle(left, top, width, height)
    ink(context, colour)
    context.fill()
    context.rectangle(left + width * 0.68, top, width * 0.32, height)
    ink(context, colour, 1, 0.86)
    context.fill()
    if random.rand() < 0.4:                        # a smaller storey or a mast on top
        step = width * random.uniform(0.3, 0.6)
        context.rectangle(left + (width - step) / 2, top - height * 0.08, step, height * 0.08)
        ink(context, colour, 1, 0.95)
        context.fill()
    rows, columns = int(height / 4.2), max(2, int(width / 3.6))
    for row in range(rows):
        for column in range(columns):
            if random.rand() < hollow:
                continue
            context.rectangle(left + (column + 0.25) * width / columns, top + 2 + row * 4.2,
                              width / columns * 0.5, 2.2)
            ink(context, window, random.uniform(0.35, 0.9))
            context.fill()
