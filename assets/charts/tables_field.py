"""Charts 3, 4 and 5: ground balls, balls in the air, and how far runners go on a hit."""
from plays import HOME

# --------------------------------------------------------------------------
# Chart 3.  The white die, by the bases that are taken, with fewer than two out.
# With two out, or nobody on, every ground ball is GO.
# --------------------------------------------------------------------------
BASES = ("1st", "2nd", "3rd", "1st 2nd", "1st 3rd", "2nd 3rd", "loaded")
OCCUPIED = ((1,), (2,), (3,), (1, 2), (1, 3), (2, 3), (1, 2, 3))
GROUND_TO = ("pitcher", "first base", "second base", "third base", "shortstop", "slow roller")
GROUND = (
    # 1st      2nd        3rd        1st and 2nd      1st and 3rd      2nd and 3rd      loaded
    ("FC 1x", "GO",       "GO",      "FC 2x 1>2",     "FC 1x",         "GO",            "DP 3x 1>2 2>3"),
    ("GO 1>2", "GO 2>3",  "GO 3>H",  "GO 1>2 2>3",    "GO 1>2 3>H",    "GO 2>3 3>H",    "FC 3x 1>2 2>3"),
    ("DP 1x", "GO 2>3",   "GO 3>H",  "DP 1x 2>3",     "DP 1x 3>H",     "GO 2>3 3>H",    "DP 1x 2>3 3>H"),
    ("DP 1x", "GO",       "GO",      "DP 2x 1>2",     "FC 3x 1>2",     "GO",            "FC 3x 1>2 2>3"),
    ("DP 1x", "FC 2x",    "GO 3>H",  "DP 1x 2>3",     "DP 1x 3>H",     "GO 3>H",        "DP 1x 2>3 3>H"),
    ("GO 1>2", "GO 2>3",  "FC 3x",   "GO 1>2 2>3",    "GO 1>2 3>H",    "FC 3x 2>3",     "GO 1>2 2>3 3>H"),
)

# --------------------------------------------------------------------------
# Chart 4.  FLY: the white die, by runner; with two out nobody moves.  LINE: the white
# die names the fielder, and the base whose runner is caught off it.  LONG: the yellow
# die, with the modifiers of wind and fences.
# --------------------------------------------------------------------------
FLY_TO = ("foul ground", "short left", "right field", "left centre", "deep right", "deep centre")
FLY = ("FO", "FO", "FO f3>H", "FO 3>H", "FO 3>H 2>3", "FO 3>H 2>3 f1>2")

LINE_TO = ("first base", "second base", "third base", "left field", "centre field", "right field")
LINE_CAUGHT_OFF = (1, 2, 3, None, None, None)

LONG_COLUMNS = ("power", "others")
LONG_OUT = "FO 3>H 2>3"
LONG = (
    ((LONG_OUT, 6), ("3B", 7), ("2B", 9), ("HR", 20)),
    ((LONG_OUT, 9), ("3B", 10), ("2B", 15), ("HR", 20)),
)


def long_result(column, yellow):
    yellow = min(20, max(1, yellow))
    for result, highest in LONG[column]:
        if yellow <= highest:
            return result
    raise ValueError(f"no result for {yellow}")


# --------------------------------------------------------------------------
# Chart 5.  The white die, one higher for a fast runner and one higher with two out.
# --------------------------------------------------------------------------
ADVANCE = {
    "1B": {3: (HOME,) * 6, 2: (3, 3, 3, HOME, HOME, HOME), 1: (2, 2, 2, 2, 3, 3)},
    "2B": {3: (HOME,) * 6, 2: (HOME,) * 6, 1: (3, 3, 3, HOME, HOME, HOME)},
}
SEND_SAFE_FROM = {"fast": 6, "others": 10}      # the yellow die of a runner sent one base more
SEND_TWO_OUT = 3                                # added with two out
ARM = {"": 0, "B": 0, "A": 1, "AA": 2}          # taken off for the fielder's arm


def hit_moves(hit, white, bases, outs):
    """Where each runner ends on a single or double."""
    moves = {}
    for base, ends in ADVANCE[hit].items():
        runner = bases[base]
        if runner:
            index = min(6, white + int(runner.fast) + int(outs == 2))
            moves[base] = ends[index - 1]
    return moves
