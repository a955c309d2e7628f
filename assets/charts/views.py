"""The tables of the charts as they are shown, the same for the pictures and the rules page."""
from dataclasses import dataclass

import plays
import tables_bat as bat
import tables_field as field
import tables_tactics as tactics

TITLES = {1: "BATTER", 2: "PITCHER", 3: "GROUND", 4: "FLY BALL", 5: "HITS", 6: "STEAL",
          7: "BUNT", 8: "RARE", 9: "GAME"}
DICE = {1: "red green", 2: "yellow", 3: "white", 4: "white yellow", 5: "white yellow",
        6: "white yellow", 7: "yellow", 8: "yellow white", 9: "red green white yellow"}
SUBTITLES = {
    1: "Read red first, then green. The column is the batter’s average.",
    2: "After PITCH. The column is the pitcher’s earned run average.",
    3: "After GROUND, with fewer than two out.",
    4: "After FLY and LINE the white die, after LONG the yellow one.",
    5: "How far the runners go.",
    6: "Say who runs, then roll for him alone.",
    7: "Say it first, then roll for it.",
    8: "After RARE, the yellow die.",
    9: "From the first roll to the last out.",
}


@dataclass(frozen=True)
class Cell:
    main: str                   # in bold: a label of the board or another chart
    lines: tuple = ()           # what else happens

    @property
    def kind(self):
        if self.main in plays.HITS:
            return "hit"
        if self.main in ("LONG", "BB", "hit by pitch", "scores") or self.main.startswith("safe"):
            return "good"
        if self.main == "RARE":
            return "odd"
        if self.main in ("PITCH", "GROUND", "FLY", "LINE", "AB"):
            return "other"
        return "out"


@dataclass(frozen=True)
class Table:
    title: str
    corner: str                 # what the first column holds
    columns: tuple
    rows: tuple                 # (label, cells); a label "w3" is a white die, "r2g5" two dice


@dataclass(frozen=True)
class Stack:
    """Columns of results, each with the numbers of the yellow die it takes."""
    title: str
    columns: tuple
    stacks: tuple               # for each column: ((lowest, highest, Cell), ...)


def cell(text):
    play = plays.parse(text)
    lines = [] if play.click in plays.OTHER_CHARTS else plays.words(text)
    if play.error:
        lines.insert(0, "error")
    if play.click == "LO" and not lines:
        lines = ["runners hold"]
    main = {"AGAIN": "same batter", "HBP": "hit by pitch", "POP": "PO"}.get(play.click, play.click)
    return Cell(main, tuple(lines))


def stack(title, columns, tables, make=cell):
    stacks = []
    for table in tables:
        low, blocks = 1, []
        for result, highest in table:
            blocks.append((low, highest, make(result)))
            low = highest + 1
        stacks.append(tuple(blocks))
    return Stack(title, tuple(columns), tuple(stacks))


def batter():
    rows = tuple((f"r{roll // 10}g{roll % 10}", tuple(cell(text) for text in bat.batter_row(roll)))
                 for roll in bat.batter_rolls())
    return Table("Batter", "dice", bat.BATTER_COLUMNS, rows)


def pitcher():
    return stack("Pitcher", bat.PITCHER_COLUMNS, bat.PITCHER)


def ground():
    columns = tuple(" + ".join(plays.ORDINAL[base] for base in taken) if len(taken) < 3 else "loaded"
                    for taken in field.OCCUPIED)
    rows = tuple((f"w{white}", (Cell("", (field.GROUND_TO[white - 1],)),)
                  + tuple(cell(text) for text in row))
                 for white, row in enumerate(field.GROUND, 1))
    return Table("Ground ball, fewer than two out", "white", ("hit to",) + columns, rows)


def air():
    rows = []
    for white in range(1, 7):
        off = field.LINE_CAUGHT_OFF[white - 1]
        line = Cell("LO", (f"DP if {plays.ORDINAL[off]} is taken", "and he is out too") if off else
                    ("runners hold",))
        fly = cell(field.FLY[white - 1])
        rows.append((f"w{white}", (Cell("", (field.FLY_TO[white - 1],)),
                                   fly if fly.lines else Cell("FO", ("runners hold",)),
                                   Cell("", (field.LINE_TO[white - 1],)), line)))
    return Table("Fly and line drive, fewer than two out", "white",
                 ("fly to", "FLY", "line to", "LINE"), tuple(rows))


def long_drive():
    return stack("Long drive", field.LONG_COLUMNS, field.LONG)


def advance():
    columns, rows = [], []
    for hit in field.ADVANCE:
        columns += [f"{hit}: runner on {plays.ORDINAL[base]}" for base in (1, 2, 3)]
    for white in range(1, 7):
        cells = []
        for hit, ends in field.ADVANCE.items():
            for base in (1, 2, 3):
                end = ends[base][white - 1]
                cells.append(Cell("scores") if end == plays.HOME else
                             Cell("", (f"to {plays.ORDINAL[end]}",)))
        rows.append((f"w{white}", tuple(cells)))
    return Table("Runners on a single and a double", "white", tuple(columns), tuple(rows))


def sending():
    columns = ("runner", "safe", "out")
    rows = []
    for name, low in field.SEND_SAFE_FROM.items():
        rows.append((name, (Cell(f"safe {low}–20"), Cell("TO", (f"1–{low - 1}",)))))
    return Table("Sent one base more", columns[0], columns[1:], tuple(rows))


def jumps():
    low, rows = 1, []
    for highest, added in tactics.JUMP:
        say = (Cell("no start", ("he stays, and may not try again while this batter is up",))
               if added is None else Cell("he runs", ("read yellow below",)) if not added else
               Cell("flying start", (f"he runs; add {added} to yellow",)))
        rows.append((f"w{low}w{highest}", (say,)))
        low = highest + 1
    return Table("The start", "white", ("start",), tuple(rows))


def steals():
    rows = tuple((f"to {base}", tuple(Cell(f"safe {low}–20", (f"TO 1–{low - 1}",)) for low in lows))
                 for base, lows in tactics.STEAL_SAFE_FROM.items())
    return Table("The throw", "he runs", tactics.STEAL_COLUMNS, rows)


def bunt_words(text):
    main, *rest = text.split()
    lines = []
    if "E" in rest:
        lines.append("error")
    if "Lx" in rest:
        lines.append("lead runner out")
    if "up" in rest:
        lines.append("all up one")
    return Cell(main, tuple(lines))


def bunts():
    return stack("Bunt", tactics.BUNT_COLUMNS, tactics.BUNT, bunt_words)


def hit_and_run_words(text):
    whole = cell(text)
    if whole.lines == ("3rd scores", "1st scores"):
        return Cell(whole.main, ("both score",))
    return whole


def hit_and_run():
    return stack("Hit and run: 1st, or 1st and 3rd", tactics.HIT_AND_RUN_COLUMNS,
                 tactics.HIT_AND_RUN, hit_and_run_words)


def rare():
    rows, low = [], 1
    for highest, story, empty, runners, place in tactics.RARE:
        label = f"{low}" if low == highest else f"{low}–{highest}"
        alone = Cell("LO") if empty == "LO" else cell(empty)
        rows.append((label, (Cell("", (story + (" †" if place else ""),)), alone,
                             cell(runners))))
        low = highest + 1
    return Table("Rare plays", "yellow", ("what happens", "nobody on", "runners on"), tuple(rows))


def day(name, corner, table):
    rows, low = [], 1
    for highest, say, added in table:
        label = f"{low}" if low == highest else f"{low}–{highest}"
        change = f"LONG {'+' if added > 0 else '−'}{abs(added)}" if added else (
            "pitchers tire early" if say == "heat" else "no change")
        rows.append((label, (Cell("", (say,)), Cell("", (change,)))))
        low = highest + 1
    return Table(name, corner, (name.lower(), "effect"), tuple(rows))


def wind():
    return day("Wind", "yellow", tactics.WIND)


def fences():
    return day("Fences", "white", tactics.FENCES)
