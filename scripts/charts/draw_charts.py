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
import tables_bat as bat
import tables_field as field
import tables_tactics as tactics
import views
from paper import BAND, CREAM, HEAD, MARGIN, WIDTH, Paper, ACCENT, INK
from simulate import check

TOP = BAND + 24
WIDE = WIDTH - 2 * MARGIN


def chart_batter(paper):
    table = views.batter()
    widths = (108,) + (128,) * 5
    for block in range(2):
        paper.table(MARGIN + block * 772, TOP, widths, 46, table, 52, 28,
                    rows=table.rows[18 * block:18 * block + 18])
    paper.notes(MARGIN, TOP + 52 + 18 * 46 + 12, WIDE, (
        "*PITCH* chart 2, yellow.   *GROUND* chart 3, white.   *FLY, LINE* chart 4, white.   *LONG* chart 4, "
        "yellow.   *RARE* chart 8, yellow.",
        "*1B, 2B* chart 5, white.   *BB, K, PO* runners hold, save those a walk pushes.   *pitcher* is for "
        "pitchers who bat."))


def chart_pitcher(paper):
    paper.stack(MARGIN, TOP, 80, (288,) * 5, 40, views.pitcher())
    shares = [f"{share:.3f}".lstrip("0") for share in bat.WIN_SHARES]
    paper.notes(MARGIN, TOP + 56 + 20 * 40 + 8, WIDE, (
        "*GROUND* and *FLY* go on to charts *3* and *4,* with the white die of the same roll. "
        "*PO:* runners hold. *1B, 2B:* chart *5.*",
        f"*No earned run average?* Take won games of all decided: {shares[0]} and more reads as below "
        f"3.00, {shares[1]} as 3.00, {shares[2]} as 3.50, less as 4.00. No numbers at all: starters "
        "read 3.00, relievers 3.50. A tiring pitcher reads further right: chart *9.*"))


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
    paper.box(MARGIN, end + 12, WIDE, 48, ACCENT)
    paper.text("Nobody on, or two out: GO.", WIDTH / 2, end + 36, 34, INK, True)
    paper.notes(MARGIN, end + 68, WIDE, (
        "Whoever is not named stays. *FC:* the batter is on 1st. A double play with one out ends the "
        "inning, and nobody scores on it.",))


def chart_fly(paper):
    paper.table(MARGIN, TOP, (84, 176, 244, 188, 256), 132, views.air())
    paper.stack(MARGIN + 980, TOP, 68, (236, 236), 38, views.long_drive())
    y = TOP + 56 + 6 * 132
    paper.notes(MARGIN, y + 16, 948, (
        "*Two out:* FLY is FO and LINE is LO, the inning is over.",
        "*Flies:* whoever is not named holds. *Fast* are men with speed A or AA."), 28)
    paper.notes(MARGIN + 980, TOP + 56 + 760 + 16, 540, (
        "*LONG:* first add wind and fences of the day to the yellow die. More than 20 is 20, less than "
        "1 is 1. *power* is a man with that word; HR: everybody scores. Two out: FO.",), 26)


def chart_hits(paper):
    end = paper.table(MARGIN, TOP, (96,) + (236,) * 3 + (236,) * 2 + (244,), 72, views.advance())
    paper.box(MARGIN, end + 16, WIDE, 52, ACCENT)
    paper.text("Add 1 for a fast runner and 1 with two out, for each runner by himself; 6 at most.",
               WIDTH / 2, end + 42, 32, INK, True)
    y = end + 92
    paper.text("Send him one base more?", MARGIN, y + 16, 34, INK, True, "left")
    paper.table(MARGIN, y + 44, (200, 252, 252), 56, views.sending(), one_line=True)
    paper.notes(MARGIN, y + 44 + 56 * 3 + 12, 700, (
        "After the hit you may send a runner who stopped. Roll once more, read yellow. Take off 1 for a fielder with arm A, 2 for arm AA; add "
        f"{field.SEND_TWO_OUT} with two out. Nobody passes another runner.",), 28)
    paper.text("Without a roll", 820, y + 16, 34, INK, True, "left")
    paper.notes(820, y + 44, 740, (
        "*3B, HR:* every runner scores.",
        "*BB, hit by pitch:* only runners who are pushed go up one base.",
        "*AB on an error:* as chart 8 tells.",
        "*Each run:* RBI first, then the label of the hit. Double-click the piece of a man who scores, "
        "drag the others.",
        "*Out on the bases:* after the hit, TO; take his piece off."), 28)


def chart_steal(paper):
    paper.text("1  The start: the white die", MARGIN, TOP + 20, 34, INK, True, "left")
    end = paper.table(MARGIN, TOP + 52, (176, 1344), 68, views.jumps(), 0, 30, True)
    paper.text("2  The throw: the yellow die of the same roll", MARGIN, end + 44, 34, INK, True, "left")
    end = paper.table(MARGIN, end + 72, (320, 400, 400, 400), 76, views.steals(), 56, 32, True)
    paper.box(MARGIN, end + 16, WIDE, 52, ACCENT)
    paper.text("The catcher has arm A: take 1 off yellow.  Arm AA: take 2 off.", WIDTH / 2, end + 42,
               32, INK, True)
    paper.notes(MARGIN, end + 84, 740, (
        "*Safe:* Ctrl and click the upper half of his piece, drag it to the next base.",
        "*Out:* TO, and double-click his piece. The same man is still at bat.",
        "*A 20 on the die:* safe, and the throw goes wild. He takes one base more if it is free; "
        "E one more for the fielders.",
        "*Home stolen:* RBI, then take the RBI off on the sheet."), 28)
    paper.notes(820, end + 84, 740, (
        "*Who may run:* a man whose next base is free. On a double steal roll for the man in front; "
        "if he is safe, the other is too, and if he is out, the other is safe.",
        "*Then* roll anew for the batter. No word in the file? The first two of the order have "
        "speed A."), 28)


def chart_bunt(paper):
    paper.text("Bunt", MARGIN + 68, TOP + 16, 34, INK, True, "left")
    paper.stack(MARGIN, TOP + 40, 68, (224, 224, 224, 224), 36, views.bunts(), 92, 26)
    paper.text("Hit and run: 1st, or 1st + 3rd", MARGIN + 68 + 4 * 224 + 32 + 68, TOP + 16, 34, INK, True,
               "left")
    paper.stack(MARGIN + 68 + 4 * 224 + 32, TOP + 40, 56, (234, 234), 36, views.hit_and_run(), 92, 26)
    paper.notes(MARGIN, TOP + 40 + 92 + 720 + 8, WIDE, (
        "*Bunt:* GO with runners up is a sacrifice: take the AB off on the sheet. Lead man: the one "
        "nearest home; the men behind him go up one, on DP they hold. A bunt for a hit by a man who is "
        f"not fast: yellow −{-tactics.BUNT_SLOW}. *Hit and run:* with two out, K and LO end the "
        "inning. *K, 1st is out:* K, then TO. *TO:* a sign was missed; same batter.",), 26)


def chart_rare(paper):
    end = paper.table(MARGIN, TOP, (104, 560, 380, 476), 46, views.rare(), 52, 28, True)
    paper.notes(MARGIN, end + 12, WIDE, (
        f"† A man with *glove* plays there and white is {tactics.GLOVE_SAVES} or 6: no error, GO in the infield, "
        "FO in the outfield, runners hold. *Error:* click AB and add 1 to the fielders’ E. *Hit by pitch:* click the "
        "next batter’s row. *Same batter:* roll again.",))


def chart_game(paper):
    left, right = MARGIN, 820
    paper.text("Before the game: one roll", left, TOP + 16, 34, INK, True, "left")
    end = paper.table(left, TOP + 44, (108, 200, 372), 44, views.wind(), 48, 26)
    end = paper.table(left, end + 16, (108, 200, 372), 44, views.fences(), 48, 26)
    paper.text("Pitchers tire: one column further right", left, end + 40, 34, INK, True, "left")
    y = paper.notes(left, end + 64, 724, (
        f"*Starters* from the {tactics.STARTER_TIRES}th inning, one more from the "
        f"{tactics.STARTER_TIRES_MORE}th.",
        f"*Relievers* from the {tactics.RELIEVER_TIRES}rd inning of their own.",
        f"*Everybody* for each {tactics.RUNS_TIRE} runs he has given up.",
        "*Heat:* all that an inning earlier. Past the last column nothing gets worse."), 28)
    paper.text("The end", left, y + 24, 34, INK, True, "left")
    paper.notes(left, y + 48, 724, (
        "After nine innings the side with more runs has won. The home side does not bat when it leads "
        "after the top of the ninth, and stops when it goes ahead later. A tie goes on.",), 28)
    paper.text("Every batter", right, TOP + 16, 34, INK, True, "left")
    y = TOP + 44
    for index, step in enumerate(STEPS, 1):
        paper.box(right, y + 4, 40, 40, ACCENT)
        paper.text(str(index), right + 20, y + 24, 28, INK, True)
        y = max(y + 52, paper.paragraph(step, right + 56, y + 4, 28, 680) + 8)
    paper.text("When the file tells nothing", right, y + 28, 34, INK, True, "left")
    paper.notes(right, y + 52, 740, (
        order_words(),
        f"*No speed or power?* Places {in_words(bat.ORDER_FAST)} have speed A, places "
        f"{in_words(bat.ORDER_POWER)} have power.",
        "*No number for a pitcher?* See chart 2."), 28)


STEPS = (
    "*Steal, bunt, hit and run?* Say it, roll, read chart 6 or 7. An intentional walk is BB.",
    "*ROLL.* All four dice count, once.",
    "*Red and green:* chart 1, in the batter’s column.",
    "*PITCH:* yellow on chart 2. *LONG:* yellow on chart 4. *RARE:* yellow on chart 8.",
    "*White:* grounders on chart 3, flies and line drives on 4, runners on 5.",
    "*Runs first:* RBI for each, then the label of the play. Move the pieces.",
    "*Third out:* click the man who bats first for the other side.")


def in_words(places):
    return " and ".join(filter(None, (", ".join(map(str, places[:-1])), str(places[-1]))))


def order_words():
    by_column = {}
    for place, column in enumerate(bat.ORDER_COLUMNS, 1):
        by_column.setdefault(column, []).append(place)
    parts = [f"{in_words(by_column[column])} read *{bat.BATTER_COLUMNS[column]};*"
             for column in sorted(by_column)]
    return "*No averages?* Places " + " ".join(parts) + " one man without, *below.*"


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
    (folder / "Rules.html").write_text(rules_page.page(), encoding="utf-8")


if __name__ == "__main__":
    main()
