"""The words and the look of the rules page."""

STYLE = """\
  :root { color-scheme: dark; }
  html { background: rgb(22,38,31); scroll-behavior: smooth; }
  body { max-width: 60em; margin: 0 auto; padding: 1.5em 1.25em 4em; color: rgb(243,233,210);
    font: 1.0625em/1.55 Carlito, Calibri, "Segoe UI", sans-serif; font-variant-numeric: tabular-nums; }
  h1, h2, h3 { line-height: 1.2; }
  h1 { margin: 0.2em 0; }
  h2 { margin: 1.6em 0 0.6em; padding-top: 0.6em; border-top: 1px solid rgb(58,84,70);
    color: rgb(255,200,60); }
  h3 { margin: 1.6em 0 0.4em; }
  a { color: rgb(255,200,60); }
  a:focus-visible { outline: 2px solid rgb(255,200,60); outline-offset: 2px; }
  li { margin: 0.3em 0; }
  nav { padding: 0.8em 1.2em; border: 1px solid rgb(58,84,70); border-radius: 6px;
    background: rgb(30,50,41); }
  nav ol { columns: 2; column-gap: 2em; margin: 0; padding: 0; list-style-position: inside; }
  nav li { margin: 0; padding: 0.15em 0; break-inside: avoid; }
  .scroll { overflow-x: auto; }
  table { width: 100%; margin: 1em 0; border-collapse: collapse; font-size: 0.94em;
    color: rgb(28,32,30); background: rgb(243,233,210); }
  caption { padding: 0.3em 0; text-align: left; font-weight: bold; color: rgb(243,233,210);
    background: rgb(22,38,31); }
  th, td { padding: 0.3em 0.6em; border: 1px solid rgb(196,186,160); text-align: left; }
  thead th { color: rgb(243,233,210); background: rgb(58,84,70); }
  tbody th { background: rgb(232,220,190); }
  td.hit { background: rgb(255,200,60); }
  td.good { background: rgb(252,226,150); }
  td.other { background: rgb(220,224,204); }
  td.odd { color: rgb(243,233,210); background: rgb(58,84,70); }
  .dice { white-space: nowrap; }
  .die { display: inline-block; min-width: 1.35em; margin-right: 0.25em; border-radius: 4px;
    text-align: center; border: 1px solid rgb(28,32,30); }
  .red { color: white; background: rgb(255,0,0); }
  .green { color: white; background: rgb(0,127,1); }
  .white { color: rgb(28,32,30); background: rgb(231,231,231); }
  .yellow { color: rgb(28,32,30); background: rgb(255,200,60); }
  kbd { padding: 0.05em 0.4em; border: 1px solid currentColor; border-radius: 4px;
    font: inherit; white-space: nowrap; }
  .tip { padding: 0.1em 1em; border-left: 4px solid rgb(255,200,60); background: rgb(30,50,41); }
  @media (max-width: 36em) { nav ol { columns: 1; } }
  @media print {
    :root { color-scheme: light; }
    html, body, nav, .tip, caption { color: black; background: white; }
    body { max-width: none; padding: 0; font-size: 10.5pt; }
    h2, a { color: black; }
    h2, h3 { break-after: avoid; }
    table, thead th, tbody th, td[class], .die { color: black; background: white; }
    tr { break-inside: avoid; }
  }
"""

SECTIONS = (
    ("load", "Set the table", """\
<ol>
  <li><b>LOAD</b> both teams.</li>
  <li>Click the visitors’ pitcher in their list and double-click the plate under
    <b>PITCHER</b>. Do the same for the home team.</li>
  <li>Turn on <b>AT BAT</b> of the visitors and click their first batter.</li>
  <li>Press <b>ROLL</b> once for the day: yellow is the wind, white are the fences
    (<a href="#chart9">chart 9</a>). Note what they add to a long drive.</li>
</ol>
"""),
    ("players", "Read your players", """\
<p>The remark behind a player’s name tells you which column to read. In
<em>Dunstan Varrow=CF L .301 speed AA</em> the .301 is the column <b>.300 +</b> of chart 1, and the
speed makes him fast.</p>
<ul>
  <li>A <b>batter</b> reads by his average: .300 and more, .270 to .299, .240 to .269, below. A pitcher
    who bats has a column of his own.</li>
  <li>A <b>pitcher</b> reads by his earned run average; where the file has only games won and lost, by
    his share of wins; see <a href="#chart2">chart 2</a>.</li>
  <li><b>power</b>: his long drives carry. <b>speed A</b> or <b>AA</b>: he is fast. <b>glove</b>: he
    saves errors. <b>arm</b>: he throws out runners. Other letters and words mean nothing here.</li>
  <li>No numbers, no words in the file? The place in the order stands in for them:
    <a href="#chart9">chart 9</a>.</li>
</ul>
"""),
    ("bat", "A time at bat", """\
<ol>
  <li>Press <b>ROLL</b>: a red, a green and a white die, and a yellow one with twenty sides. This one roll
    answers everything.</li>
  <li><b>Red and green</b> are a number, red first: red 2 and green 5 are 25. Find it on
    <a href="#chart1">chart 1</a>, in the batter’s column.</li>
  <li>The word there sends you on, if need be:
    <ul>
      <li><b>PITCH</b>: <b>yellow</b> on <a href="#chart2">chart 2</a>, in the pitcher’s column. Red and
        green that add up to 6 or 7 are always his.</li>
      <li><b>GROUND</b>: <b>white</b> on <a href="#chart3">chart 3</a>.</li>
      <li><b>FLY</b> and <b>LINE</b>: <b>white</b> on <a href="#chart4">chart 4</a>.</li>
      <li><b>LONG</b>: <b>yellow</b>, with wind and fences, on <a href="#chart4">chart 4</a>.</li>
      <li><b>RARE</b>: <b>yellow</b> on <a href="#chart8">chart 8</a>.</li>
      <li><b>1B</b> and <b>2B</b> with runners on base: <b>white</b> on <a href="#chart5">chart 5</a>.</li>
    </ul></li>
  <li>Click: first <b>RBI</b>, once for each run, then the label of the play. Drag the runners who moved;
    double-click the pieces of those who scored or are out.</li>
</ol>
<div class="tip"><p>Every die has its own job: yellow for the pitcher, the long drive and the rare play,
white for fielders and runners.</p></div>
"""),
    ("manage", "Be the manager", """\
<p>Before you roll for the batter you may say one of these, and roll for it alone:</p>
<ul>
  <li><b>Steal</b> (<a href="#chart6">chart 6</a>). Safe: hold <kbd>Ctrl</kbd>, click the upper half of his
    piece, drag it. Out: <b>TO</b>; the same player is at bat. Then roll for the batter.</li>
  <li><b>Bunt</b> or <b>hit and run</b> (<a href="#chart7">chart 7</a>). The roll is the batter’s turn. After
    a sacrifice, GO with runners up, take one AB off on the sheet.</li>
  <li><b>Intentional walk</b>: click <b>BB</b>.</li>
  <li><b>Send a runner</b> one base more after a hit: <a href="#chart5">chart 5</a>. Out: <b>TO</b>.</li>
  <li><b>A new pitcher</b>, because the old one tires: <a href="#chart9">chart 9</a>.</li>
</ul>
"""),
    ("errors", "Errors and unearned runs", """\
<p>An error is <b>AB</b>; then add 1 in the fielders’ cell <b>E</b>. For a run that nobody drove in, click
<b>RBI</b> and take the RBI, or the pitcher’s ER, off on the sheet. After a hit by pitch just click the
next batter’s row.</p>
"""),
    ("end", "Innings and the end", """\
<p>With the third out the sides change by themselves: click the batter who is due. After a <b>TO</b> for the
third out the batter leads off the next time. After nine innings the side with more runs wins; the
home side does not bat when it leads after the top of the ninth, and stops as soon as it goes ahead later. A
tied game goes on.</p>
"""),
    ("example", "An inning, roll by roll", """\
<p>A calm day with usual fences. Dunstan Varrow leads off for the Harbor Terns; Amos Grindlestone (21-8, a
share of .724, so he reads as below 3.00) pitches for the Anvils.</p>
"""),
    ("names", "Names for the chart buttons", """\
<p>The nine buttons of the board may bear these names:</p>
<p><b>BATTER, PITCHER, GROUND, FLY BALL, HITS, STEAL, BUNT, RARE, GAME</b></p>
<p>The second panel of dice is not needed. If you like, decide with it what the charts leave open: which of two
friends is the home team, or which reserve is hurt.</p>
"""),
    ("charts", "The charts", ""),
)
