#!/usr/bin/python3
"""Draw the nine charts of the dice game and write its rules page.

Usage:  draw_charts.py [program-folder]

Writes Charts/Chart01.jpg to Chart09.jpg and Charts/Rules.html, all from the tables in
this folder.  Needs the Debian packages python3-cairo, python3-pil and
fonts-crosextra-carlito.
"""
import sys
from pathlib import Path

import rules_page
import tables_field as field
import views
from notes import BARS, END, NOTES, STEPS
from paper import ACCENT, BAND, CREAM, HEAD, INK, MARGIN, WIDTH, Paper
from simulate import check

TOP = BAND + 24
WIDE = WIDTH - 2 * MARGIN
RIGHT = 820         # where the right half begins
HALF = 740


def title(paper, text, x, y):
    paper.text(text, x, y, 34, INK, True, "left")


def bar(paper, number, y, size=32):
    paper.box(MARGIN, y, WIDE, 52, ACCENT)
    paper.text(BARS[number], WIDTH / 2, y + 26, size, INK, True)


def chart_batter(paper):
    table = views.batter()
    widths = (108,) + (128,) * 5
    for block in range(2):
        paper.table(MARGIN + block * 772, TOP, widths, 46, table, 52, 28,
                    rows=table.rows[18 * block:18 * block + 18])
    paper.notes(MARGIN, TOP + 52 + 18 * 46 + 12, WIDE, NOTES[1])


def chart_pitcher(paper):
    end = paper.stack(MARGIN, TOP, 80, (288,) * 5, 40, views.pitcher())
    paper.notes(MARGIN, end + 8, WIDE, NOTES[2])


def chart_ground(paper):
    table = views.ground()
    widths = (84, 156) + (184,) * 6 + (176,)
    end = paper.table(MARGIN, TOP, widths, 132, table, 88)
    at = MARGIN + widths[0] + widths[1]
    for wide, taken, name in zip(widths[2:], field.OCCUPIED, table.columns[1:]):
        paper.box(at, TOP, wide, 88, HEAD, CREAM, radius=0)
        paper.bases(at + wide / 2, TOP + 32, 24, taken)
        paper.text(name, at + wide / 2, TOP + 70, 26, CREAM, True)
        at += wide
    bar(paper, 3, end + 12, 34)
    paper.notes(MARGIN, end + 68, WIDE, NOTES[3])


def chart_fly(paper):
    end = paper.table(MARGIN, TOP, (84, 176, 244, 188, 256), 132, views.air())
    paper.notes(MARGIN, end + 16, 948, NOTES[4][:2], 28)
    end = paper.stack(MARGIN + 980, TOP, 68, (236, 236), 36, views.long_drive())
    paper.notes(MARGIN + 980, end + 16, 540, NOTES[4][2:])


def chart_hits(paper):
    end = paper.table(MARGIN, TOP, (96,) + (236,) * 5 + (244,), 72, views.advance())
    bar(paper, 5, end + 16)
    y = end + 92
    title(paper, "Send him one base more?", MARGIN, y + 16)
    end = paper.table(MARGIN, y + 44, (200, 252, 252), 56, views.sending(), one_line=True)
    paper.notes(MARGIN, end + 12, 700, NOTES[5][:1], 28)
    title(paper, "Without a roll", RIGHT, y + 16)
    paper.notes(RIGHT, y + 44, HALF, NOTES[5][1:], 28)


def chart_steal(paper):
    title(paper, "1  The start: the white die", MARGIN, TOP + 20)
    end = paper.table(MARGIN, TOP + 52, (176, 1344), 68, views.jumps(), 0, 30, True)
    title(paper, "2  The throw: the yellow die of the same roll", MARGIN, end + 44)
    end = paper.table(MARGIN, end + 72, (320, 400, 400, 400), 76, views.steals(), 56, 32, True)
    bar(paper, 6, end + 16)
    paper.notes(MARGIN, end + 84, HALF, NOTES[6][:4], 28)
    paper.notes(RIGHT, end + 84, HALF, NOTES[6][4:], 28)


def chart_bunt(paper):
    title(paper, "Bunt", MARGIN, TOP + 16)
    end = paper.stack(MARGIN, TOP + 40, 68, (224,) * 4, 36, views.bunts(), 92, 26)
    left = MARGIN + 68 + 4 * 224 + 32
    title(paper, "Hit and run: 1st, or 1st and 3rd", left, TOP + 16)
    paper.stack(left, TOP + 40, 56, (234, 234), 36, views.hit_and_run(), 92, 26)
    paper.notes(MARGIN, end + 8, WIDE, NOTES[7])


def chart_rare(paper):
    end = paper.table(MARGIN, TOP, (104, 560, 380, 476), 46, views.rare(), 52, 28, True)
    paper.notes(MARGIN, end + 12, WIDE, NOTES[8], 28)


def chart_game(paper):
    title(paper, "Before the game: one roll", MARGIN, TOP + 16)
    end = paper.table(MARGIN, TOP + 44, (108, 200, 372), 44, views.wind(), 48, 26)
    end = paper.table(MARGIN, end + 16, (108, 200, 372), 44, views.fences(), 48, 26)
    title(paper, "Pitchers tire: one column further right", MARGIN, end + 44)
    y = paper.notes(MARGIN, end + 72, 724, NOTES[9][:4], 28)
    title(paper, "The end", MARGIN, y + 32)
    paper.notes(MARGIN, y + 60, 724, END, 28)
    title(paper, "Every batter", RIGHT, TOP + 16)
    y = TOP + 44
    for index, step in enumerate(STEPS, 1):
        paper.box(RIGHT, y + 4, 40, 40, ACCENT)
        paper.text(str(index), RIGHT + 20, y + 24, 28, INK, True)
        y = max(y + 56, paper.paragraph(step, RIGHT + 56, y + 4, 28, 680) + 12)
    title(paper, "When the file says nothing", RIGHT, y + 36)
    paper.notes(RIGHT, y + 64, HALF, NOTES[9][4:], 28)


PAGES = (chart_batter, chart_pitcher, chart_ground, chart_fly, chart_hits, chart_steal, chart_bunt,
         chart_rare, chart_game)


def main():
    check()
    here = Path(__file__).resolve().parents[2] / "program"
    folder = (Path(sys.argv[1]) if len(sys.argv) > 1 else here) / "Charts"
    folder.mkdir(parents=True, exist_ok=True)
    for number, draw in enumerate(PAGES, 1):
        paper = Paper(number, views.TITLES[number], views.SUBTITLES[number], views.DICE[number])
        draw(paper)
        path = folder / f"Chart{number:02}.jpg"
        paper.save(path)
        print(f"{path.name}: {path.stat().st_size // 1000} kB")
    titles = "".join(f"{views.TITLES[number]}\n" for number in range(1, len(PAGES) + 1))
    (folder / "Titles.txt").write_text(titles, encoding="utf-8")
    (folder / "Rules.html").write_text(rules_page.page(), encoding="utf-8")


if __name__ == "__main__":
    main()
