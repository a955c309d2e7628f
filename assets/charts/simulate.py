#!/usr/bin/python3
"""Play many games from the tables of the charts and print what comes out.

Usage:  simulate.py [games] [team-folder]        (6000 games of the teams that come along)
        simulate.py --check                      every table answers every roll

The figures are per team and nine innings.  They should lie near the marks beside them.
"""
import random
import sys
from collections import Counter
from itertools import product
from pathlib import Path

import plays
import tables_bat as bat
import tables_field as field
import tables_tactics as tactics
from teams import Player, Team

MARKS = {"runs": (4.2, 4.8), "hits": (8.5, 9.2), "walks": (3.0, 3.5), "strikeouts": (5, 8),
         "home runs": (0.9, 1.1), "double plays": (0.8, 1.0), "errors": (0.6, 0.9),
         "average": (0.245, 0.270)}


class Half:
    """A half-inning in progress."""

    def __init__(self, batting, fielding):
        self.batting, self.fielding = batting, fielding
        self.bases, self.outs, self.runs = {1: None, 2: None, 3: None}, 0, 0

    def taken(self):
        return tuple(base for base in (1, 2, 3) if self.bases[base])


class Side:
    """A team during one game."""

    def __init__(self, team, starter):
        self.team, self.next, self.runs = team, 0, 0
        self.pitcher, self.starter, self.own_inning, self.given = starter, True, 0, 0
        self.bench = list(team.relievers)

    def batter(self):
        if self.next == self.team.pitcher_place:
            return Player(self.pitcher.name, "P", bat.PITCHER_BATS)
        return self.team.order[self.next]

    def relieve(self):
        if self.bench:
            self.pitcher, self.starter = self.bench.pop(), False
            self.own_inning, self.given = 1, 0


class Game:
    def __init__(self, dice, visitors, home, counts):
        self.dice, self.sides, self.count = dice, (visitors, home), counts
        self.inning = 1
        self.heat = False
        white, yellow = self.die(6), self.die(20)
        self.wind, added = tactics.weather(tactics.WIND, yellow)
        self.heat = self.wind == "heat"
        self.drive = added + tactics.weather(tactics.FENCES, white)[1]

    def die(self, faces):
        return self.dice.randint(1, faces)

    def play(self):
        visitors, home = self.sides
        while True:
            self.half(visitors, home)
            if not (self.inning >= 9 and home.runs > visitors.runs):
                self.half(home, visitors)
            if self.inning >= 9 and home.runs != visitors.runs:
                return
            self.inning += 1

    # ---- a half-inning ---------------------------------------------------
    def half(self, batting, fielding):
        half = Half(batting, fielding)
        fielding.own_inning += 1
        if self.shift(fielding) >= 1:
            fielding.relieve()
        while half.outs < 3:
            if self.inning >= 9 and batting is self.sides[1] and batting.runs > fielding.runs:
                break
            if self.tactics(half):
                continue
            self.at_bat(half)
        self.count["outs"] += min(3, half.outs)
        self.count["left on base"] += len(half.taken())

    def shift(self, side):
        return tactics.tired_columns(side.starter, self.inning, side.own_inning, side.given,
                                     self.heat)

    def tactics(self, half):
        """What a manager of middling boldness tries.  True when the play is over."""
        batter, taken = half.batting.batter(), half.taken()
        runner = half.bases[1]
        if runner and runner.fast and not half.bases[2] and self.dice.random() < 0.45:
            return self.steal(half, 1)
        if half.bases[2] and half.bases[2].fast and not half.bases[3] and half.outs == 1 \
                and self.dice.random() < 0.06:
            return self.steal(half, 2)
        weak = batter.column == bat.PITCHER_BATS
        if half.outs < 2 and taken in ((1,), (2,), (1, 2)):
            if self.dice.random() < (0.6 if weak else 0.015):
                return self.bunt(half)
        if taken == (1,) and half.outs < 2 and not weak and self.dice.random() < 0.05:
            column = int(batter.column > 1)
            return self.take(half, tactics.over_two_outs(
                tactics.up_to(tactics.HIT_AND_RUN[column], self.die(20)), half.outs))
        return False

    def steal(self, half, base):
        added = tactics.jump(self.die(6))
        yellow = self.die(20)
        if added is None:
            self.at_bat(half)
            return True
        runner = half.bases[base]
        column = {"AA": 0, "A": 1}.get(runner.speed, 2)
        catcher = half.fielding.team.fielder("C")
        arm = field.ARM[catcher.arm] if catcher else 0
        safe = yellow == tactics.STEAL_WILD or (
            yellow + added - arm >= tactics.STEAL_SAFE_FROM[plays.ORDINAL[base + 1]][column])
        half.bases[base] = None
        if not safe:
            self.count["caught stealing"] += 1
            half.outs += 1
            return True
        self.count["steals"] += 1
        wild = yellow == tactics.STEAL_WILD
        self.count["errors"] += int(wild)
        end = base + 1 + int(wild)
        if end >= plays.HOME:
            self.score(half, [runner])
        elif half.bases[end]:
            half.bases[base + 1] = runner
        else:
            half.bases[end] = runner
        return True

    def bunt(self, half):
        taken = half.taken()
        column = tactics.bunt_column(taken, half.outs)
        cell = tactics.bunt_cell(tactics.up_to(tactics.BUNT[column], self.die(20)), taken)
        return self.take(half, cell, sacrifice=cell.startswith("GO"))

    # ---- a time at bat ---------------------------------------------------
    def at_bat(self, half):
        batter = half.batting.batter()
        red, green, white, yellow = self.die(6), self.die(6), self.die(6), self.die(20)
        result = bat.batter_row(10 * red + green)[batter.column]
        if result == "PITCH":
            column = half.fielding.pitcher.pitching + self.shift(half.fielding)
            result = bat.pitcher_result(min(column, bat.TIRED), yellow)
        self.take(half, cell_of(result, half.bases, half.outs, white, yellow, batter, self.drive,
                                half.fielding.team))

    def take(self, half, cell, sacrifice=False):
        play, side = plays.parse(cell), half.batting
        batter = side.batter()
        half.bases, made, scored = plays.settle(play, half.bases, half.outs, batter)
        fly = play.click == "FO" and scored
        half.outs += made
        self.score(half, scored)
        self.count[play.click] += 1
        self.count["errors"] += int(play.error)
        if play.click in plays.HITS:
            self.count["hits"] += 1
            self.count["H", batter.column] += 1
        if play.click not in ("BB", "HBP") + plays.SAME_BATTER and not sacrifice and not fly:
            self.count["at bats"] += 1
            self.count["AB", batter.column] += 1
        over_early = half.outs >= 3 and play.click == "TO"
        if play.click not in plays.SAME_BATTER and not over_early:
            side.next = (side.next + 1) % 9
            self.count["plate appearances"] += 1
        return True

    def score(self, half, scored):
        half.batting.runs += len(scored)
        half.fielding.given += len(scored)
        self.count["runs"] += len(scored)


def cell_of(result, bases, outs, white, yellow, batter, drive, fielding=None):
    """Follow a result through the charts to the cell that settles it."""
    taken = tuple(base for base in (1, 2, 3) if bases[base])
    if result == "GROUND":
        if outs == 2 or not taken:
            return "GO"
        return field.GROUND[white - 1][field.OCCUPIED.index(taken)]
    if result == "FLY":
        return "FO" if outs == 2 else field.FLY[white - 1]
    if result == "POP":
        return "PO"
    if result == "LINE":
        base = field.LINE_CAUGHT_OFF[white - 1]
        return f"DP {base}x" if base in taken and outs < 2 else "LO"
    if result == "LONG":
        result = field.long_result(int(not batter.power), yellow + drive)
        if result.startswith("FO"):
            return "FO" if outs == 2 else result
    if result == "RARE":
        row = tactics.rare_row(yellow)
        fielder = fielding.fielder(row[4]) if fielding and row[4] else None
        if fielder and fielder.glove and white >= tactics.GLOVE_SAVES:
            return tactics.saved(row[4])
        result = row[3] if taken else row[2]
        if result == "2B all+2":
            return result
    if result in ("3B", "HR"):
        return result + "".join(f" {base}>H" for base in taken)
    if result in ("1B", "2B"):
        moves = field.hit_moves(result, white, bases, outs)
        return result + "".join(
            f" {base}>{'H' if end == plays.HOME else end}" for base, end in moves.items())
    return result


# --------------------------------------------------------------------------
# Every table answers every roll, on every base and with any number of outs
# --------------------------------------------------------------------------
def check():
    assert sorted(bat.BATTER) == [roll for roll in bat.batter_rolls()
                                  if sum(divmod(roll, 10)) not in bat.PITCH_SUMS]
    for table in bat.PITCHER + field.LONG + tactics.BUNT + tactics.HIT_AND_RUN:
        ends = [highest for _, highest in table]
        assert ends == sorted(set(ends)) and ends[-1] == 20, table
    assert [row[0] for row in tactics.RARE][-1] == 20
    results = {row for roll in bat.batter_rolls() for row in bat.batter_row(roll)}
    results |= {bat.pitcher_result(column, die) for column in range(5) for die in range(1, 21)}
    results -= {"PITCH"}
    plain, fast = Player("plain"), Player("fast", speed="AA", power=True)
    answered = 0

    def settled(cell, bases, outs, batter):
        play = plays.parse(cell)
        assert play.click in plays.LABELS + ("HBP", "AGAIN"), cell
        assert not (outs == 2 and play.click in ("DP", "FC")), cell
        if play.click in ("DP", "FC"):
            assert any(end == "out" and bases[base] for base, end in play.moves.items()), cell
        after, made, scored = plays.settle(play, bases, outs, batter)
        players = sum(map(bool, bases.values())) + int(play.click not in plays.SAME_BATTER)
        still = sum(map(bool, after.values()))
        assert outs + made >= 3 or still + made + len(scored) == players, (cell, bases)
        return 1

    for on in product((None, plain, fast), repeat=3):
        bases = dict(zip((1, 2, 3), on))
        taken = tuple(base for base in (1, 2, 3) if bases[base])
        for outs, batter in product(range(3), (plain, fast)):
            for result, white, yellow in product(results, range(1, 7), range(1, 21)):
                cell = cell_of(result, bases, outs, white, yellow, batter, 0)
                answered += settled(cell, bases, outs, batter)
            for table, yellow in product(tactics.HIT_AND_RUN, range(1, 21)):
                if taken in ((1,), (1, 3)):
                    cell = tactics.over_two_outs(tactics.up_to(table, yellow), outs)
                    answered += settled(cell, bases, outs, batter)
            for yellow in range(1, 21):
                table = tactics.BUNT[tactics.bunt_column(taken, outs)]
                cell = tactics.bunt_cell(tactics.up_to(table, yellow), taken)
                answered += settled(cell, bases, outs, batter)
    print(f"{answered} plays, each with an answer")


def report(games, folder):
    dice, counts = random.Random(1927), Counter()
    clubs = [Team(path) for path in sorted(folder.iterdir()) if path.suffix in (".txt", ".csv")]
    for number in range(games):
        visitors, home = dice.sample(clubs, 2)
        Game(dice, Side(visitors, visitors.starters[number % len(visitors.starters)]),
             Side(home, home.starters[number // 2 % len(home.starters)]), counts).play()
    nines = counts["outs"] / 27
    figures = {"runs": counts["runs"], "hits": counts["hits"], "walks": counts["BB"],
               "strikeouts": counts["K"], "home runs": counts["HR"], "doubles": counts["2B"],
               "triples": counts["3B"], "double plays": counts["DP"],
               "fielder's choices": counts["FC"], "errors": counts["errors"],
               "steals": counts["steals"], "caught stealing": counts["caught stealing"],
               "left on base": counts["left on base"],
               "plate appearances": counts["plate appearances"]}
    print(f"{games} games, per team and nine innings")
    for name, total in figures.items():
        print(f"  {name:18} {total / nines:6.2f}   {mark(name)}")
    print(f"  {'average':18} {counts['hits'] / counts['at bats']:6.3f}   {mark('average')}")
    for column, name in enumerate(bat.BATTER_COLUMNS):
        share = counts["H", column] / max(1, counts["AB", column])
        print(f"    column {name:11} {share:6.3f}")


def mark(name):
    return "{} to {}".format(*MARKS[name]) if name in MARKS else ""


if __name__ == "__main__":
    arguments = sys.argv[1:]
    if arguments == ["--check"]:
        check()
    else:
        teams = Path(__file__).resolve().parents[2] / "program" / "Teams"
        report(int(arguments[0]) if arguments else 6000,
               Path(arguments[1]) if len(arguments) > 1 else teams)
