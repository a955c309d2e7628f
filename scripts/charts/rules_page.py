"""The rules of the dice game as one page, with the tables of the charts in words."""
from html import escape

import plays
import tables_bat as bat
import tables_field as field
import tables_tactics as tactics
import views

NAMES = ("BATTER", "PITCHER", "GROUND", "FLY BALL", "HITS", "STEAL", "BUNT", "RARE", "GAME")
COLOURS = {"r": "red", "g": "green", "w": "white"}

STYLE = """
:root { color-scheme: dark; }
html { background: rgb(22,38,31); scroll-behavior: smooth; }
body { max-width: 56em; margin: 0 auto; padding: 1.5em 1.25em 4em; color: rgb(243,233,210);
  font: 1.0625em/1.55 Carlito, Calibri, "Segoe UI", sans-serif; font-variant-numeric: tabular-nums; }
h1, h2, h3 { line-height: 1.2; }
h2 { margin: 1.8em 0 0.6em; padding-top: 0.6em; border-top: 1px solid rgb(58,84,70);
  color: rgb(255,200,60); }
a { color: rgb(255,200,60); }
a:focus-visible { outline: 2px solid rgb(255,200,60); outline-offset: 2px; }
li { margin: 0.3em 0; }
.scroll { overflow-x: auto; }
table { margin: 1em 0; border-collapse: collapse; color: rgb(28,32,30); background: rgb(243,233,210); }
caption { text-align: left; font-weight: bold; padding: 0.3em 0; color: rgb(243,233,210); }
th, td { padding: 0.3em 0.6em; border: 1px solid rgb(196,186,160); text-align: center; }
thead th { color: rgb(243,233,210); background: rgb(58,84,70); }
tbody th { white-space: nowrap; background: rgb(230,219,190); }
td.hit { background: rgb(255,200,60); }
td.good { background: rgb(252,226,150); }
td small { display: block; }
b.c { padding: 0.05em 0.45em; border-radius: 4px; white-space: nowrap; color: rgb(28,32,30);
  background: rgb(224,224,224); }
dt { font-weight: bold; margin-top: 0.6em; }
dd { margin: 0 0 0 1.2em; }
"""


def label(text):
    """The dice of a row: "r2g5" is a red 2 and a green 5, "w3w4" a white 3 or 4."""
    if not text or text[0] not in COLOURS or not text[1:2].isdigit():
        return escape(text)
    dice = [(text[i], text[i + 1]) for i in range(0, len(text), 2)]
    if len(dice) == 2 and dice[0][0] == dice[1][0]:
        return f"{COLOURS[dice[0][0]]} {dice[0][1]} or {dice[1][1]}"
    return ", ".join(f"{COLOURS[colour]} {number}" for colour, number in dice)


def cell(content):
    lines = "".join(f"<small>{escape(line)}</small>" for line in content.lines)
    main = f"<b>{escape(content.main)}</b>" if content.main else ""
    return f'<td class="{content.kind if content.main else "text"}">{main}{lines}</td>'


def table(view):
    head = "".join(f'<th scope="col">{escape(name)}</th>' for name in (view.corner,) + view.columns)
    rows = "".join(f'<tr><th scope="row">{label(name)}</th>{"".join(map(cell, cells))}</tr>\n'
                   for name, cells in view.rows)
    return (f'<div class="scroll"><table><caption>{escape(view.title)}</caption>'
            f"<thead><tr>{head}</tr></thead>\n<tbody>\n{rows}</tbody></table></div>\n")


def stack(view):
    """One row for each number of the yellow die."""
    head = "".join(f'<th scope="col">{escape(name)}</th>' for name in ("yellow",) + view.columns)
    rows = []
    for yellow in range(1, 21):
        cells = "".join(f'<td class="{block.kind}" rowspan="{high - low + 1}"><b>{escape(block.main)}</b>'
                        + "".join(f"<small>{escape(line)}</small>" for line in block.lines) + "</td>"
                        for column in view.stacks for low, high, block in column if low == yellow)
        rows.append(f'<tr><th scope="row">{yellow}</th>{cells}</tr>\n')
    return (f'<div class="scroll"><table><caption>{escape(view.title)}</caption>'
            f'<thead><tr>{head}</tr></thead>\n<tbody>\n{"".join(rows)}</tbody></table></div>\n')


def shares():
    return [f"{share:.3f}".lstrip("0") for share in bat.WIN_SHARES]


CHARTS = (
    (lambda: table(views.batter()),
     "Read the red die first, then the green one. The column is the batting average in the team file; "
     "pitchers who bat have the last one."),
    (lambda: stack(views.pitcher()),
     "The column is the earned run average in the team file. Where there is none, take the share of "
     f"games won: {shares()[0]} and more reads as below 3.00, {shares()[1]} as 3.00, {shares()[2]} as 3.50, "
     "less as 4.00. Without any number starters read 3.00 and relievers 3.50."),
    (lambda: table(views.ground()),
     "With fewer than two out and somebody on. Otherwise every ground ball is GO. Whoever is not named "
     "stays; on FC the batter is on first. On a play that makes the third out nobody scores."),
    (lambda: table(views.air()) + stack(views.long_drive()),
     "With two out FLY is FO and LINE is LO. Fast are men with speed A or AA. To the yellow die of LONG "
     "add wind and fences of the day; more than 20 is 20, less than 1 is 1."),
    (lambda: table(views.advance()) + table(views.sending()),
     "Add 1 to white for a fast runner and 1 with two out, for each runner by himself. On 3B and HR every "
     "runner scores. After the hit you may send a runner who stopped one base more: roll again and read "
     f"yellow, less 1 for a fielder with arm A, 2 for arm AA, and {field.SEND_TWO_OUT} more with two out."),
    (lambda: table(views.jumps()) + table(views.steals()),
     "Say who runs, then roll for him alone. Take 1 off yellow for a catcher with arm A, 2 for arm AA. "
     f"A {tactics.STEAL_WILD} on the die itself: safe, and one base more on the wild throw."),
    (lambda: stack(views.bunts()) + stack(views.hit_and_run()),
     "Say it before you roll. The lead man is the one nearest home; the others go up one. GO with runners "
     "up is a sacrifice: take the at-bat off on the sheet."),
    (lambda: table(views.rare()),
     f"† If a man with the word glove plays there and white is {tactics.GLOVE_SAVES} or 6, it is no error: "
     "GO in the infield, FO in the outfield. For an error click AB and add 1 to the E of the fielders."),
    (lambda: table(views.wind()) + table(views.fences()),
     f"One roll before the game. Starters read one column further right from the {tactics.STARTER_TIRES}th "
     f"inning and one more from the {tactics.STARTER_TIRES_MORE}th, relievers from the "
     f"{tactics.RELIEVER_TIRES}rd inning of their own, everybody for each {tactics.RUNS_TIRE} runs."),
)

INTRODUCTION = """
<p>A complete baseball game for two teams of the folder <code>Teams</code>, with the dice and the nine charts
that come with the board. You need five minutes to learn it and half an hour to play it, alone or for two.</p>

<h2 id="ready">Get ready</h2>
<ol>
<li><b class="c">LOAD Visitor team</b> and <b class="c">LOAD Home team</b>: choose two team files. For a
  <code>.csv</code> file change the kind of file in the dialog.</li>
<li>Name the pitchers: click a pitcher in the list, double-click the plate under PITCHER. Whether he also
  bats is up to you: put him among the first nine of the list, or leave him below the line.</li>
<li>Turn on <b class="c">AT BAT</b> of the visitors and click their first man.</li>
<li><b class="c">Options</b>, <b class="c">SHOW DICE ROLLER</b>. Name the chart buttons, with Ctrl and a click:
  {names}.</li>
<li>One roll for the day: wind and fences, chart 9.</li>
</ol>

<h2 id="batter">Every batter</h2>
<ol>
<li>Steal, bunt or hit and run? Say it first, roll, and read chart 6 or 7.</li>
<li>Otherwise <b class="c">ROLL</b>. All four dice are rolled once and all count.</li>
<li>Red and green on chart 1, in the batter's column. That is the result, or the way to the next chart:
  PITCH is yellow on chart 2, GROUND white on 3, FLY and LINE white on 4, LONG yellow on 4, RARE yellow
  on 8.</li>
<li>On a single or double the white die on chart 5 moves the runners.</li>
<li>Runs first: one click on <b class="c">RBI</b> for each, then the label that the chart names. The board
  counts, names the next batter and gives him a piece.</li>
<li>Drag the pieces of the runners; double-click the men who scored or are out on the bases.</li>
<li>After the third out the sides change by themselves: click the man who bats first.</li>
</ol>

<h2 id="words">What the team file tells</h2>
<p>In <code>Pell Hathersby=2B R .274 A</code> the average is .274. <code>speed AA</code> or
<code>speed A</code> makes a man fast, <code>power</code> gives him the better column of LONG,
<code>arm</code> and <code>glove</code> help his side in the field, an earned run average or a record such as
<code>14-9</code> rates a pitcher. Without averages, places 3 and 4 of the order read .300, 1 and 5 read .270,
2, 6 and 7 read .240, 8 and 9 and all reserves read below.</p>

<h2 id="example">An example: half an inning</h2>
<dl>
<dt>Red 1, green 4, white 5, yellow 12</dt>
<dd>Chart 1, red 1 and green 4: <b class="c">1B</b>. Click it, and drag the batter to first base.</dd>
<dt>Red 2, green 6, white 2, yellow 8</dt>
<dd>GROUND. Chart 3, white 2, man on first: {ground}.</dd>
<dt>Red 1, green 2, white 3, yellow 17</dt>
<dd>A double for everybody but a pitcher. Chart 5, white 3: the man on second scores. Click
  <b class="c">RBI</b>, then <b class="c">2B</b>; double-click his piece, drag the batter to second.</dd>
<dt>Red 5, green 4, white 1, yellow 3</dt>
<dd><b class="c">K</b>. Two out.</dd>
<dt>Red 4, green 6, white 4, yellow 9</dt>
<dd>FLY; with two out that is <b class="c">FO</b>, and the side is retired. One run.</dd>
</dl>

<h2 id="end">The end</h2>
<p>After nine innings the side with more runs has won. The home side does not bat when it leads after the top
of the ninth, and stops as soon as it goes ahead later. A tie goes on. Then <b class="c">STATS</b> and
<b class="c">SAVE TO DB</b>.</p>
"""


def example_ground():
    play = field.GROUND[1][0]
    return f'<b class="c">{plays.parse(play).click}</b>, {", ".join(plays.words(play))}'


def page():
    parts = [INTRODUCTION.format(names=", ".join(NAMES), ground=example_ground())]
    for number, (tables, note) in enumerate(CHARTS, 1):
        title = escape(views.TITLES[number])
        parts.append(f'<h2 id="chart{number}">Chart {number}: {title}</h2>\n<p>{note} '
                     f'<a href="Chart{number:02}.jpg">As a picture</a></p>\n{tables()}')
    links = " ".join(f'<a href="#chart{number}">{number}&nbsp;{escape(title)}</a>'
                     for number, title in views.TITLES.items())
    return (f'<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n'
            f'<meta name="viewport" content="width=device-width, initial-scale=1">\n'
            f"<title>Kelvane Diamond Table: Rules of the dice game</title>\n<style>{STYLE}</style>\n"
            f"</head>\n<body>\n<h1>The dice game in the box</h1>\n<p>Charts: {links}</p>\n"
            f'{"".join(parts)}</body>\n</html>\n')
