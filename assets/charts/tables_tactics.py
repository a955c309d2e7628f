"""Charts 6 to 9: stealing, bunts and the hit-and-run, rare plays, the day of the game."""

# --------------------------------------------------------------------------
# Chart 6.  White tells whether the runner gets away, yellow whether he is safe.
# --------------------------------------------------------------------------
JUMP = ((2, None), (4, 0), (6, 3))              # highest white, added to yellow; None: he stays
STEAL_COLUMNS = ("speed AA", "speed A", "others")
STEAL_SAFE_FROM = {                             # by the base he runs for
    "2nd": (6, 9, 13),
    "3rd": (9, 12, 16),
    "home": (15, 17, 19),
}
STEAL_WILD = 20                                 # yellow itself: the throw goes wild


def jump(white):
    for highest, added in JUMP:
        if white <= highest:
            return added
    raise ValueError(white)


# --------------------------------------------------------------------------
# Chart 7.  The yellow die.  A sacrifice needs a runner and fewer than two out.
# --------------------------------------------------------------------------
BUNT_COLUMNS = ("1st, or 1st and 2nd", "2nd alone", "runner on 3rd: squeeze", "nobody on, or two out")
BUNT_STATES = (((1,), (1, 2)), ((2,),), ((3,), (1, 3), (2, 3), (1, 2, 3)), None)
# the lead runner is L: the highest base that is taken
BUNT = (
    (("PO", 2), ("K", 3), ("FC Lx", 6), ("GO up", 17), ("1B up", 19), ("AB E up", 20)),
    (("PO", 2), ("K", 3), ("FC Lx", 7), ("GO up", 17), ("1B up", 19), ("AB E up", 20)),
    (("DP Lx", 2), ("PO", 3), ("FC Lx", 8), ("GO up", 17), ("1B up", 19), ("AB E up", 20)),
    (("PO", 3), ("K", 5), ("GO", 15), ("1B up", 19), ("AB E up", 20)),
)
BUNT_SLOW = -3          # for a bunt for a hit by a batter who is not fast

HIT_AND_RUN_COLUMNS = (".270 and over", "below .270")
HIT_AND_RUN = (
    (("TO 1x", 2), ("K 1x", 3), ("DP 1x", 4), ("FO", 6), ("PO", 7), ("GO 1>2 3>H", 13),
     ("1B 1>3 3>H", 18), ("2B 1>H 3>H", 19), ("BB", 20)),
    (("TO 1x", 2), ("K 1x", 4), ("DP 1x", 5), ("FO", 7), ("PO", 9), ("GO 1>2 3>H", 15),
     ("1B 1>3 3>H", 19), ("2B 1>H 3>H", 20)),
)


def over_two_outs(cell, outs):
    """With two out, the batter's out ends the inning and no second one counts."""
    return {"K 1x": "K", "DP 1x": "LO"}.get(cell, cell) if outs == 2 else cell


def up_to(table, die):
    """The result of a table that names the highest number of each result."""
    for result, highest in table:
        if die <= highest:
            return result
    raise ValueError(f"no result for {die}")


def bunt_column(taken, outs):
    if outs == 2 or not taken:
        return 3
    return next(column for column, states in enumerate(BUNT_STATES) if states and taken in states)


def bunt_cell(cell, taken):
    """Put the bases in place of "up" and of the lead runner L."""
    lead = taken[-1] if taken else None
    words = []
    for word in cell.split():
        if word == "up":
            words.append("all+1")
        elif word == "Lx":
            words.append(f"{lead}x")
            words += [f"{base}>{base + 1}" for base in taken[:-1]]
        else:
            words.append(word)
    if words[0] == "DP":
        words = words[:2]               # a pop caught by the fielder: the others hold
    return " ".join(words)


# --------------------------------------------------------------------------
# Chart 8.  The yellow die: what happens, with nobody on and with runners on.
# --------------------------------------------------------------------------
# (highest yellow, story, nobody on, runners on, the place where a glove may save it)
RARE = (
    (2, "Shortstop boots a grounder", "AB E", "AB E all+1", "SS"),
    (4, "Second baseman lets it through", "AB E", "AB E all+1", "2B"),
    (6, "Third baseman fumbles", "AB E", "AB E all+1", "3B"),
    (7, "First baseman drops the throw", "AB E", "AB E all+1", ""),
    (8, "Wild throw past first base", "AB E B>2", "AB E all+2 B>2", ""),
    (9, "Pitcher falls over a dribbler", "AB E", "AB E all+1", ""),
    (10, "Catcher throws into right field", "AB E B>2", "AB E all+2 B>2", ""),
    (11, "Left fielder drops a fly", "AB E B>2", "AB E all+2 B>2", "LF"),
    (12, "Centre fielder drops a fly", "AB E B>2", "AB E all+2 B>2", "CF"),
    (13, "Right fielder drops a fly", "AB E B>2", "AB E all+2 B>2", "RF"),
    (14, "Hit by pitch", "HBP", "HBP", ""),
    (15, "Wild pitch", "AGAIN", "AGAIN all+1", ""),
    (16, "Passed ball", "AGAIN", "AGAIN all+1", ""),
    (17, "Balk", "AGAIN", "AGAIN all+1", ""),
    (18, "Diving catch, a gem", "LO", "LO", ""),
    (19, "Fly lost in the sun", "2B", "2B all+2", ""),
    (20, "Hurt by his own foul ball: a reserve bats", "AGAIN", "AGAIN", ""),
)
GLOVE_SAVES = 5         # white, from here up: a fielder with a glove makes the play


def saved(place):
    """The out that a fielder with a glove makes instead of the error."""
    return "FO" if place.endswith("F") else "GO"


def rare_row(yellow):
    return next(row for row in RARE if yellow <= row[0])


# --------------------------------------------------------------------------
# Chart 9.  The day: one roll before the game.  Tired pitchers.
# --------------------------------------------------------------------------
WIND = ((5, "blows in", -2), (15, "calm", 0), (19, "blows out", 2), (20, "heat", 0))
FENCES = ((2, "far away", -1), (4, "usual", 0), (6, "near", 1))


def weather(table, die):
    """Name and modifier of the wind or the fences."""
    return next((name, added) for highest, name, added in table if die <= highest)


STARTER_TIRES = 8       # from this inning on he reads one column further right
STARTER_TIRES_MORE = 10
RELIEVER_TIRES = 3      # from this inning of his own on
RUNS_TIRE = 5           # runs in a game that tire one column, and as many again one more


def tired_columns(starter, inning, own_inning, runs, heat):
    """How many columns further right a pitcher is read."""
    shift = runs // RUNS_TIRE
    early = 1 if heat else 0
    if starter:
        shift += int(inning >= STARTER_TIRES - early) + int(inning >= STARTER_TIRES_MORE - early)
    else:
        shift += int(own_inning >= RELIEVER_TIRES - early)
    return shift
