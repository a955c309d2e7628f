"""Charts 1 and 2: the batter against the pitcher, and who reads which column."""

# --------------------------------------------------------------------------
# Chart 1.  Red and green are read as a number, red first.  The columns follow the
# batting average in the team file.  Where red and green add up to 6 or 7, the ball
# is the pitcher's: PITCH.
# --------------------------------------------------------------------------
BATTER_COLUMNS = (".300 +", ".270 +", ".240 +", "below", "pitcher")
BATTER_LIMITS = (0.300, 0.270, 0.240)
PITCHER_BATS = 4
PITCH_SUMS = (6, 7)

BATTER = {
    11: "LONG   LONG   LONG   LONG   LONG",
    12: "2B     2B     2B     2B     K",
    13: "LONG   LONG   LONG   FLY    FLY",
    14: "1B     1B     1B     1B     1B",
    21: "LONG   LONG   FLY    GROUND K",
    22: "1B     1B     1B     1B     1B",
    23: "1B     1B     1B     1B     K",
    26: "GROUND GROUND GROUND GROUND GROUND",
    31: "BB     BB     BB     BB     GROUND",
    32: "1B     1B     1B     1B     GROUND",
    35: "FLY    FLY    FLY    FLY    FLY",
    36: "GROUND GROUND GROUND GROUND GROUND",
    41: "BB     BB     BB     K      K",
    44: "1B     LONG   K      K      K",
    45: "K      K      K      K      K",
    46: "FLY    FLY    FLY    FLY    FLY",
    53: "GROUND GROUND GROUND GROUND GROUND",
    54: "K      K      K      K      K",
    55: "LINE   LINE   LINE   LINE   GROUND",
    56: "FLY    FLY    FLY    FLY    K",
    62: "GROUND GROUND GROUND GROUND GROUND",
    63: "POP    POP    POP    POP    POP",
    64: "GROUND GROUND GROUND GROUND K",
    65: "FLY    FLY    FLY    POP    POP",
    66: "RARE   RARE   RARE   RARE   RARE",
}


def batter_rolls():
    return [10 * red + green for red in range(1, 7) for green in range(1, 7)]


def batter_row(roll):
    """The five results of a roll."""
    if sum(divmod(roll, 10)) in PITCH_SUMS:
        return ("PITCH",) * len(BATTER_COLUMNS)
    return tuple(BATTER[roll].split())


# --------------------------------------------------------------------------
# Chart 2.  The yellow die, by the pitcher's earned run average.  The last column is
# for a pitcher who is tired beyond the others.
# --------------------------------------------------------------------------
PITCHER_COLUMNS = ("below 3.00", "3.00 +", "3.50 +", "4.00 +", "tired")
PITCHER_LIMITS = (3.00, 3.50, 4.00)
TIRED = 4

# results with the highest yellow number they reach
PITCHER = (
    (("K", 6), ("POP", 8), ("GROUND", 14), ("FLY", 16), ("BB", 18), ("1B", 20)),
    (("K", 5), ("POP", 7), ("GROUND", 13), ("FLY", 16), ("BB", 17), ("1B", 20)),
    (("K", 5), ("POP", 6), ("GROUND", 11), ("FLY", 14), ("BB", 17), ("1B", 20)),
    (("K", 4), ("POP", 5), ("GROUND", 9), ("FLY", 12), ("BB", 15), ("1B", 18), ("2B", 19), ("HR", 20)),
    (("K", 3), ("POP", 4), ("GROUND", 8), ("FLY", 10), ("BB", 14), ("1B", 18), ("2B", 19), ("HR", 20)),
)


def pitcher_result(column, yellow):
    for result, highest in PITCHER[column]:
        if yellow <= highest:
            return result
    raise ValueError(f"no result for {yellow} in column {column}")


# --------------------------------------------------------------------------
# Columns for players without a number in the team file
# --------------------------------------------------------------------------
ORDER_COLUMNS = (1, 2, 0, 0, 1, 2, 2, 3, 3)     # by place in the batting order
ORDER_FAST = (1, 2)                             # places of the order, from 1
ORDER_POWER = (3, 4)
RESERVE_COLUMN = 3
WIN_SHARES = (0.600, 0.550, 0.500)              # won games of all games decided
UNKNOWN_STARTER, UNKNOWN_RELIEF = 1, 2


def column_of_average(average):
    for column, limit in enumerate(BATTER_LIMITS):
        if average >= limit:
            return column
    return len(BATTER_LIMITS)


def column_of_era(era):
    for column, limit in enumerate(PITCHER_LIMITS):
        if era < limit:
            return column
    return len(PITCHER_LIMITS)


def column_of_record(won, lost):
    share = won / max(1, won + lost)
    for column, limit in enumerate(WIN_SHARES):
        if share >= limit:
            return column
    return len(WIN_SHARES)
