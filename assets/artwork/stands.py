"""Rows of seats with the crowd on them, and the roofs over them."""
from dataclasses import dataclass, field

import numpy as np

from .camera import HEIGHT, WIDTH, project, unit
from .pen import area, ink, polygon, spot, strokes

CLOTHES = ((206, 196, 178), (180, 170, 156), (112, 124, 140), (74, 84, 104), (150, 92, 70),
           (128, 62, 54), (88, 102, 84), (196, 166, 112), (60, 58, 62), (226, 218, 202))
SKIN = ((214, 168, 136), (188, 138, 106), (142, 98, 72), (98, 68, 52))


@dataclass
class Stand:
    """One block of seats: its measures in feet, its colours and its crowd."""
    front: float                 # height of the lowest row
    rows: int
    rise: float
    gap: float
    light: float
    full: float                  # the part of the seats that is taken
    step: tuple = (40, 52, 47)
    bench: tuple = (64, 90, 76)
    clothes: tuple = CLOTHES
    hats: tuple = field(default=())
    away: float = 0.0            # how far behind the wall the first row stands

    def depth(self):
        return self.away + (self.rows + 1) * self.gap

    def top(self):
        return self.front + self.rows * self.rise


def shifted(point, away, z):
    x, y, nx, ny = point
    return project(x + nx * away, y + ny * away, z)


def paint_stand(context, random, line, stand):
    """Rows of seats climbing away from a wall, drawn from the back forwards."""
    line = list(line)
    for row in range(stand.rows, -1, -1):
        back = stand.away + row * stand.gap + stand.gap
        z = stand.front + row * stand.rise
        upper = [shifted(p, back, z) for p in line]
        lower = [shifted(p, back - stand.gap, z - stand.rise * 1.6) for p in line]
        area(context, upper + lower[::-1], stand.step, stand.light * random.uniform(0.86, 1.0))
        backs = [shifted(p, back, z + 1.3) for p in line]
        area(context, upper + backs[::-1], stand.bench,
             stand.light * random.uniform(0.72, 0.82))
        paint_row_of_people(context, random, line, stand, back, z)


def paint_row_of_people(context, random, line, stand, back, z):
    places = np.array([(x + nx * back, y + ny * back) for x, y, nx, ny in line])
    steps = np.hypot(*np.diff([p[:2] for p in line], axis=0).T)
    for i, step in enumerate(steps):
        if i % 7 == 6:                             # an aisle
            continue
        seats = max(1, int(step / 2.1))
        for seat in range(seats):
            t = (seat + random.uniform(0.2, 0.8)) / seats
            x, y = places[i] + (places[i + 1] - places[i]) * t
            sx, sy = project(x, y, z)
            if random.rand() > stand.full or not -8 < sx < WIDTH + 8 or sy > HEIGHT + 20:
                continue
            paint_person(context, random, sx, sy, unit(y), stand)


def paint_person(context, random, x, y, size, stand):
    tone = stand.light * random.uniform(0.55, 1.0)
    ink(context, stand.clothes[random.randint(len(stand.clothes))], 0.92, tone)
    context.save()
    context.translate(x, y - 0.7 * size)
    context.scale(0.92 * size, 1.15 * size)
    context.arc(0, 0, 1, 0, 7)
    context.restore()
    context.fill()
    spot(context, x, y - 2.1 * size, 0.50 * size, SKIN[random.randint(len(SKIN))],
         tone * 1.05, 0.95)
    if stand.hats:
        hat = stand.hats[random.randint(len(stand.hats))]
        spot(context, x, y - 2.4 * size, 0.46 * size, hat, tone * 1.1)
        strokes(context, [((x - .8 * size, y - 2.3 * size), (x + .8 * size, y - 2.3 * size))],
                [c * tone for c in hat], 0.3 * size)


@dataclass
class Roof:
    """The roof of a grandstand on thin columns, and its row of pennants."""
    front: float
    back: float
    low: float
    high: float
    feet: float = 20             # where the columns begin
    deck: tuple = (42, 56, 52)
    seam: tuple = (26, 38, 34)
    column: tuple = (30, 42, 38)
    fascia: tuple = (150 * 0.75, 132 * 0.75, 104 * 0.75)
    pennants: tuple = ((150, 70, 54), (196, 168, 112))


def paint_roof(context, line, roof):
    line = list(line)
    for point in line[::3]:
        strokes(context, [(shifted(point, roof.front + 3, roof.low),
                           shifted(point, roof.front + 3, roof.feet))],
                roof.column, max(1.2, 1.1 * unit(point[1])))
    front_edge = [shifted(p, roof.front, roof.low) for p in line]
    back_edge = [shifted(p, roof.back, roof.high) for p in line]
    area(context, front_edge + back_edge[::-1], roof.deck)
    strokes(context, zip(front_edge, back_edge), roof.seam, 0.7, 0.6)
    under = [shifted(p, roof.front, roof.low - 4) for p in line]
    area(context, front_edge + under[::-1], roof.fascia)
    for number, point in enumerate(line[1::4]):
        paint_pennant(context, shifted(point, roof.back, roof.high), unit(point[1]),
                      roof.pennants[number % len(roof.pennants)])


def paint_pennant(context, foot, size, colour, pole=(40, 44, 44)):
    x, y = foot
    strokes(context, [((x, y), (x, y - 13 * size))], pole, 0.9)
    polygon(context, ((x, y - 13 * size), (x + 10 * size, y - 11 * size), (x, y - 8.5 * size)))
    ink(context, colour)
    context.fill()
