"""The rules page: the game told step by step, an inning played from the tables, all tables."""
from html import escape

import plays
import tables_bat as bat
import tables_field as field
import tables_tactics as tactics
import views
from notes import BARS, NOTES
from paper import dice_of
from rules_text import SECTIONS, STYLE
from simulate import cell_of
from teams import read_player

# --------------------------------------------------------------------------
# The example: the dice are given, every answer is looked up in the tables
# --------------------------------------------------------------------------
PITCHER = "Amos Grindlestone=P,R,21-8"
INNING = (
    ("Dunstan Varrow=CF L .301 speed AA", "2 2 3 9", "1B", "The Terns have a runner on."),
    ("steal", "4 1 5 11", "safe", "Varrow is on 2nd."),
    ("Pell Hathersby=2B R .274 A", "5 3 3 14", "GO 2>3", "Drag Varrow to 3rd. One out."),
    ("Emeric Lowndale=RF L .312 power", "1 3 2 4", "FO 3>H 2>3",
     "Caught at the fence, but deep enough. Two out, one run in."),
    ("Bram Castlethorn=1B L .288 power", "2 5 6 17", "BB", "Castlethorn is on 1st."),
    ("Rafael Ibarrondo=LF R .279 B", "3 2 4 8", "1B 1>3",
     "Two out: the runner is off with the ball, so white 4 reads as 5. Runners on 1st and 3rd."),
    ("Corwin O'Shallow=3B R .263 A", "4 5 1 12", "K", "Three out. The board says END OF INNING."),
)


def die(name, face):
    return f'<b class="die {name}" title="{name} {face}">{face}</b>'


def example():
    pitching = read_player(PITCHER)[0].pitching
    bases, outs, rows = {1: None, 2: None, 3: None}, 0, []
    for line, dice, expected, story in INNING:
        red, green, white, yellow = map(int, dice.split())
        shown = "".join(die(*pair) for pair in (("red", red), ("green", green), ("white", white),
                                                ("yellow", yellow)))
        if line == "steal":
            who, start = bases[1], tactics.jump(white)
            need = tactics.STEAL_SAFE_FROM["2nd"][("AA", "A").index(who.speed)]
            assert start is not None and yellow + start >= need
            bases = {1: None, 2: who, 3: None}
            rows.append((f"{who.name} steals", shown,
                         f"Chart 6: white {white}, a flying start, yellow {yellow} + {start} = "
                         f"{yellow + start}. He needs {need}: safe.",
                         "<kbd>Ctrl</kbd> + click on his piece, drag it to 2nd", story))
            continue
        player = read_player(line)[0]
        roll = 10 * red + green
        first = bat.batter_row(roll)[player.column]
        way = [f"Chart 1: {roll} in column {bat.BATTER_COLUMNS[player.column]} is {first}."]
        result = first
        if first == "PITCH":
            result = bat.pitcher_result(pitching, yellow)
            way.append(f"Chart 2: yellow {yellow} in column {bat.PITCHER_COLUMNS[pitching]} is "
                       f"{result}.")
        cell = cell_of(result, bases, outs, white, yellow, player, 0)
        assert cell == expected, (line, cell)
        play = plays.parse(cell)
        if result == "GROUND":
            way.append(f"Chart 3: white {white}.")
        elif result == "LONG":
            way.append(f"Chart 4: yellow {yellow} for a batter with power, calm day.")
        elif play.click in field.ADVANCE and play.moves:
            way.append(f"Chart 5: white {white}.")
        bases, made, scored = plays.settle(play, bases, outs, player)
        outs += made
        clicks = " ".join(["<b>RBI</b>"] * len(scored) + [f"<b>{play.click}</b>"])
        rows.append((player.name, shown, " ".join(way), clicks, story))
    assert outs == 3
    body = "".join(
        f"<tr><th scope=row>{escape(who)}</th><td class=dice>{shown}</td><td>{escape(way)}</td>"
        f"<td>{clicks}</td><td>{escape(story)}</td></tr>\n" for who, shown, way, clicks, story in rows)
    return ('<div class="scroll"><table><caption>Top of the first: Harbor Terns 1958 at Iron Gap '
            'Anvils 1949</caption>\n<thead><tr><th scope=col>Who</th><th scope=col>Dice</th>'
            '<th scope=col>On the charts</th><th scope=col>On the board</th><th scope=col>And so</th>'
            f"</tr></thead>\n<tbody>{body}</tbody></table></div>\n")


# --------------------------------------------------------------------------
# Tables
# --------------------------------------------------------------------------
def label(text):
    dice = dice_of(text)
    return "".join(die(*pair) for pair in dice) if dice else escape(text)


def inside(cell):
    parts = [f"<b>{escape(cell.main)}</b>"] if cell.main else []
    if cell.lines:
        parts.append(escape(", ".join(cell.lines)))
    return " ".join(parts)


def head(title, columns):
    names = "".join(f"<th scope=col>{escape(name)}</th>" for name in columns)
    return (f'<div class="scroll"><table><caption>{escape(title)}</caption>\n'
            f"<thead><tr>{names}</tr></thead>\n<tbody>\n")


def table(view):
    rows = []
    for name, cells in view.rows:
        columns = "".join(f'<td class="{cell.kind}">{inside(cell)}</td>' for cell in cells)
        rows.append(f"<tr><th scope=row>{label(name)}</th>{columns}</tr>\n")
    return head(view.title, (view.corner,) + view.columns) + "".join(rows) + "</tbody></table></div>\n"


def stack(view):
    starts = [{low: (high - low + 1, cell) for low, high, cell in blocks} for blocks in view.stacks]
    rows = []
    for number in range(1, 21):
        columns = "".join(
            f'<td class="{begun[number][1].kind}" rowspan={begun[number][0]}>'
            f"{inside(begun[number][1])}</td>" for begun in starts if number in begun)
        rows.append(f"<tr><th scope=row>{number}</th>{columns}</tr>\n")
    return head(view.title, ("yellow",) + view.columns) + "".join(rows) + "</tbody></table></div>\n"


TABLES = {
    1: ((table, views.batter),), 2: ((stack, views.pitcher),), 3: ((table, views.ground),),
    4: ((table, views.air), (stack, views.long_drive)),
    5: ((table, views.advance), (table, views.sending)),
    6: ((table, views.jumps), (table, views.steals)),
    7: ((stack, views.bunts), (stack, views.hit_and_run)),
    8: ((table, views.rare),), 9: ((table, views.wind), (table, views.fences)),
}


def bold(text):
    parts = escape(text, quote=False).replace(" +", "&nbsp;+").split("*")
    return "".join(f"<b>{part}</b>" if index % 2 else part for index, part in enumerate(parts))


def chart(number):
    """A chart's tables, with a link to its picture and what its notes say."""
    parts = [f'<h3 id="chart{number}">{number} {views.TITLES[number]}</h3>\n'
             f"<p>{escape(views.SUBTITLES[number])} "
             f'<a href="Chart{number:02}.jpg">The chart as a picture</a></p>\n']
    parts += [show(view()) for show, view in TABLES[number]]
    notes = ([f"*{BARS[number]}*"] if number in BARS else []) + list(NOTES[number])
    parts.append("<ul>\n" + "".join(f"  <li>{bold(note)}</li>\n" for note in notes) + "</ul>\n")
    return "".join(parts)


def page():
    nav = "".join(f'  <li><a href="#{key}">{escape(title)}</a></li>\n' for key, title, _ in SECTIONS)
    body = ""
    for key, title, text in SECTIONS:
        body += f'<h2 id="{key}">{escape(title)}</h2>\n' + text
        if key == "example":
            body += example()
        if key == "charts":
            body += "".join(chart(number) for number in TABLES)
    return (f"<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            f"<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            f"<title>Kelvane Diamond Table: Rules of the dice game</title>\n<style>\n{STYLE}</style>\n"
            f"</head>\n<body>\n<h1>The dice game</h1>\n"
            f"<p>Nine charts, four dice, two teams. One roll answers a whole time at bat; you learn it "
            f"in five minutes.</p>\n"
            f"<nav aria-label=\"Contents\"><ol>\n{nav}</ol></nav>\n{body}</body>\n</html>\n")
