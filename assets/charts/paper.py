"""The paper that charts are drawn on: bands, type that must fit, little dice, tables."""
import io
import math

import cairo
from PIL import Image

WIDTH, HEIGHT = 1600, 1132       # the units of all places and sizes
SHARP = 2                       # pixels of the kept chart for a unit
MARGIN, BAND = 40, 100
SLATE, CREAM, INK, ACCENT = (22, 38, 31), (243, 233, 210), (28, 32, 30), (255, 200, 60)
RULE = (196, 186, 160)
HEAD = (58, 84, 70)
FILLS = {"hit": ACCENT, "good": (252, 226, 150), "odd": HEAD, "other": (220, 224, 204),
         "out": None, "": None}
DIE = {"red": (255, 0, 0), "green": (0, 127, 1), "white": (231, 231, 231), "yellow": ACCENT}
PIPS = {1: (4,), 2: (0, 8), 3: (0, 4, 8), 4: (0, 2, 6, 8), 5: (0, 2, 4, 6, 8),
        6: (0, 2, 3, 5, 6, 8)}
SMALLEST = 24
BYTES_LIMIT = 900_000


class Paper:
    def __init__(self, number, title, subtitle, dice):
        self.surface = cairo.ImageSurface(cairo.FORMAT_RGB24, WIDTH * SHARP, HEIGHT * SHARP)
        self.c = cairo.Context(self.surface)
        self.c.scale(SHARP, SHARP)
        self.box(0, 0, WIDTH, HEIGHT, CREAM, radius=0)
        self.box(0, 0, WIDTH, BAND, SLATE, radius=0)
        self.box(0, BAND, WIDTH, 4, ACCENT, radius=0)
        self.box(MARGIN, 20, 60, 60, ACCENT)
        self.text(str(number), MARGIN + 30, 50, 48, INK, bold=True)
        end = self.text(title, MARGIN + 84, 50, 52, CREAM, bold=True, align="left")
        names = dice.split()
        right = WIDTH - MARGIN - 68 * len(names) + 8
        for index, name in enumerate(names):
            self.die(right + 68 * index, 20, 60, name, {"red": 5, "green": 3, "white": 4}.get(name))
        self.text(subtitle, end + 32, 52, 32, CREAM, align="left", width=right - end - 64)

    # ---- type ------------------------------------------------------------
    def width(self, text, size, bold=False):
        self.c.select_font_face("Carlito", cairo.FONT_SLANT_NORMAL,
                                cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL)
        self.c.set_font_size(size)
        return self.c.text_extents(text).x_advance

    def text(self, text, x, y, size, colour=INK, bold=False, align="centre", width=None):
        """Set a line with its middle at y.  Returns where it ends."""
        while width and self.width(text, size, bold) > width:
            size -= 1
            if size < SMALLEST:
                raise ValueError(f"no room for “{text}”")
        long = self.width(text, size, bold)
        self.c.set_source_rgb(*(v / 255 for v in colour))
        start = x - {"left": 0, "centre": long / 2, "right": long}[align]
        self.c.move_to(round(start), round(y + size * 0.315))
        self.c.show_text(text)
        return start + long

    def wrapped(self, text, size, width, bold=False):
        lines = [""]
        for word in text.split():
            longer = (lines[-1] + " " + word).strip()
            if self.width(longer, size, bold) <= width:
                lines[-1] = longer
            else:
                lines.append(word)
        return lines

    def paragraph(self, text, x, y, size, width, colour=INK, leading=1.25):
        """A paragraph from the top y.  Words between * are bold.  Returns the next y."""
        step = round(size * leading / 4) * 4
        at, line, blank = x, y + step / 2, self.width(" ", size)
        for run in bold_runs(text):
            long = sum(self.width(word, size, bold) for word, bold in run)
            if at > x and at + long > x + width:
                at, line = x, line + step
            for word, bold in run:
                self.text(word, at, line, size, colour, bold, "left")
                at += self.width(word, size, bold)
            at += blank
        return line + step / 2

    # ---- shapes ----------------------------------------------------------
    def box(self, x, y, w, h, fill=None, line=None, radius=6):
        c = self.c
        c.new_path()
        if radius:
            for cx, cy, turn in ((x + w - radius, y + radius, -90), (x + w - radius, y + h - radius, 0),
                                 (x + radius, y + h - radius, 90), (x + radius, y + radius, 180)):
                c.arc(cx, cy, radius, math.radians(turn), math.radians(turn + 90))
            c.close_path()
        else:
            c.rectangle(x, y, w, h)
        if fill:
            c.set_source_rgb(*(v / 255 for v in fill))
            c.fill_preserve()
        if line:
            c.set_source_rgb(*(v / 255 for v in line))
            c.set_line_width(2)
            c.stroke_preserve()
        c.new_path()

    def die(self, x, y, size, name, face=None):
        colour = DIE[name]
        if name == "yellow":
            return self.twenty(x, y, size)
        self.box(x, y, size, size, colour, INK)
        pip = INK if name == "white" else (255, 255, 255)
        for spot in PIPS[face or 1]:
            self.c.arc(x + size * (0.25 + 0.25 * (spot % 3)), y + size * (0.25 + 0.25 * (spot // 3)),
                       size * 0.1, 0, math.tau)
            self.c.set_source_rgb(*(v / 255 for v in pip))
            self.c.fill()

    def twenty(self, x, y, size):
        """A twenty-sided die seen on one of its faces."""
        mid, r = (x + size / 2, y + size / 2), size / 2

        def corner(radius, degrees):
            angle = math.radians(degrees)
            return mid[0] + radius * math.sin(angle), mid[1] - radius * math.cos(angle)

        c = self.c
        outer = [corner(r, 60 * step) for step in range(6)]
        inner = [corner(r * 0.62, 120 * step) for step in range(3)]
        c.new_path()
        for point in outer:
            c.line_to(*point)
        c.close_path()
        c.set_source_rgb(*(v / 255 for v in DIE["yellow"]))
        c.fill_preserve()
        c.set_source_rgb(*(v / 255 for v in INK))
        c.set_line_width(2)
        c.stroke()
        c.set_line_width(1.5)
        for index, point in enumerate(inner):
            for other in (inner[(index + 1) % 3], outer[2 * index], outer[2 * index - 1],
                          outer[(2 * index + 1) % 6]):
                c.move_to(*point)
                c.line_to(*other)
        c.stroke()
        self.text("20", *mid, max(12, round(size * 0.32)), INK, bold=True)

    def bases(self, x, y, size, taken):
        """A little diamond with the bases that are taken filled."""
        for base, (dx, dy) in {1: (1, 0), 2: (0, -1), 3: (-1, 0), 4: (0, 1)}.items():
            if base == 4:
                continue
            cx, cy, r = x + dx * size, y + dy * size * 0.6, size * 0.46
            self.c.new_path()
            for px, py in ((0, -r), (r, 0), (0, r), (-r, 0)):
                self.c.line_to(cx + px, cy + py)
            self.c.close_path()
            self.c.set_source_rgb(*(v / 255 for v in (ACCENT if base in taken else HEAD)))
            self.c.fill_preserve()
            self.c.set_source_rgb(*(v / 255 for v in CREAM))
            self.c.set_line_width(2)
            self.c.stroke()

    # ---- parts of a table ------------------------------------------------
    def head(self, x, y, w, h, text, size=28):
        self.box(x, y, w, h, HEAD, CREAM, radius=0)
        lines = self.wrapped(text, size, w - 16, True)
        step = size + 4
        for index, line in enumerate(lines):
            self.text(line, x + w / 2, y + h / 2 + (index - (len(lines) - 1) / 2) * step, size, CREAM,
                      True, width=w - 12)

    def label(self, x, y, w, h, text, size=28):
        """The first cell of a row: dice for "w3" and "r2g5", else words."""
        self.box(x, y, w, h, (232, 220, 190), RULE, radius=0)
        dice = dice_of(text)
        if not dice:
            self.text(text, x + w / 2, y + h / 2, size, INK, True, width=w - 12)
            return
        side = min(40, h - 8)
        left = x + (w - len(dice) * side - (len(dice) - 1) * 8) / 2
        for index, (name, face) in enumerate(dice):
            self.die(left + index * (side + 8), y + (h - side) / 2, side, name, face)

    def cell(self, x, y, w, h, cell, size=28, one_line=False):
        fill = FILLS[cell.kind]
        self.box(x, y, w, h, fill, RULE, radius=0)
        colour = CREAM if cell.kind == "odd" else INK
        if one_line and cell.main and cell.lines:
            rest = ", ".join(cell.lines)
            whole = self.width(cell.main + "  ", size, True)
            small = size
            while whole + self.width(rest, small) > w - 16:
                small -= 1
                if small < SMALLEST:
                    raise ValueError(f"no room for “{cell.main} {rest}”")
            left = x + (w - whole - self.width(rest, small)) / 2
            self.text(cell.main, left, y + h / 2, size, colour, True, "left")
            self.text(rest, left + whole, y + h / 2, small, colour, False, "left")
            return
        parts = [(line, SMALLEST + 1, False) for line in cell.lines]
        if cell.main and not cell.lines and h > 100:
            size += 8
        if cell.main:
            parts.insert(0, (cell.main, size + 2 if cell.lines else size, True))
        heights = [part[1] + 4 for part in parts]
        if sum(heights) > h:
            raise ValueError(f"no height for {cell}")
        top = y + (h - sum(heights)) / 2
        for (line, big, bold), high in zip(parts, heights):
            self.text(line, x + w / 2, top + high / 2, big, colour, bold, width=w - 12)
            top += high

    def table(self, x, y, widths, row_height, table, head_height=56, size=28, one_line=False,
              rows=None):
        columns = (table.corner,) + table.columns
        at = x
        for wide, name in zip(widths, columns):
            if head_height:
                self.head(at, y, wide, head_height, name)
            at += wide
        y += head_height
        for label, cells in rows if rows is not None else table.rows:
            self.label(x, y, widths[0], row_height, label, size)
            at = x + widths[0]
            for wide, cell in zip(widths[1:], cells):
                self.cell(at, y, wide, row_height, cell, size, one_line)
                at += wide
            y += row_height
        return y

    def stack(self, x, y, number_width, widths, row_height, stack, head_height=56, size=28):
        """The numbers of the yellow die at the left, results as blocks over them."""
        self.head(x, y, number_width, head_height, "")
        self.twenty(x + number_width / 2 - 20, y + head_height / 2 - 20, 40)
        at = x + number_width
        for wide, name in zip(widths, stack.columns):
            self.head(at, y, wide, head_height, name)
            at += wide
        y += head_height
        for number in range(1, 21):
            self.label(x, y + (number - 1) * row_height, number_width, row_height, str(number), 26)
        at = x + number_width
        for wide, blocks in zip(widths, stack.stacks):
            for low, high, cell in blocks:
                tall = (high - low + 1) * row_height
                self.cell(at, y + (low - 1) * row_height, wide, tall, cell, size, high - low < 2)
            at += wide
        return y + 20 * row_height

    def notes(self, x, y, width, texts, size=26):
        for text in texts:
            y = self.paragraph(text, x, y, size, width) + 4
        if y > HEIGHT - 12:
            raise ValueError(f"the notes end at {y}")
        return y

    def save(self, path):
        self.surface.flush()
        size = self.surface.get_width(), self.surface.get_height()
        picture = Image.frombytes("RGB", size, bytes(self.surface.get_data()), "raw", "BGRX",
                                  self.surface.get_stride(), 1)
        for quality in (92, 88, 84, 80, 76):
            data = io.BytesIO()
            picture.save(data, "JPEG", quality=quality, subsampling=0, optimize=True)
            if data.tell() < BYTES_LIMIT:
                break
        path.write_bytes(data.getvalue())


def dice_of(label):
    """The dice of a row label, or nothing for a label of words."""
    names = {"r": "red", "g": "green", "w": "white"}
    marks = [label[index:index + 2] for index in range(0, len(label), 2)]
    if all(len(m) == 2 and m[0] in names and m[1].isdigit() for m in marks):
        return [(names[m[0]], int(m[1])) for m in marks]
    return []


def bold_runs(text):
    """The words of a text, each a list of pieces with their boldness.  " +" stays with its word."""
    runs, bold, fresh = [], False, True
    for part in text.replace(" +", "~+").split("*"):
        for index, word in enumerate(part.split(" ")):
            fresh = fresh or index > 0
            if word:
                if fresh:
                    runs.append([])
                runs[-1].append((word.replace("~", " "), bold))
                fresh = False
        bold = not bold
    return runs
