"""What a cell of a chart means: which label is clicked and who goes where.

A cell is a short text, so that tables stay readable:

    "DP 1x 3>H"       click DP; the runner on first is out, the runner on third scores
    "FC 2x 1>2"       click FC; the runner on second is out, the runner on first goes to second
    "GO f3>H"         the runner on third scores only if he is fast
    "AB E all+1 B>2"  an error: every runner goes up one base, the batter to second

The first word is the label on the board, or another chart.  AGAIN stands for a play that
leaves the same batter at the plate, HBP for a batter who is put on first without a label.
"""
from dataclasses import dataclass, field

HOME = 4
ORDINAL = {1: "1st", 2: "2nd", 3: "3rd", HOME: "home"}
OTHER_CHARTS = {"PITCH": 2, "GROUND": 3, "FLY": 4, "LINE": 4, "LONG": 4, "RARE": 8}
LABELS = ("1B", "2B", "3B", "HR", "BB", "K", "GO", "FO", "LO", "PO", "DP", "FC", "TO", "AB")
HITS = ("1B", "2B", "3B", "HR")
BATTER_OUT = ("K", "GO", "FO", "LO", "PO", "DP")
SAME_BATTER = ("AGAIN", "TO")
LANDS_ON = {"1B": 1, "2B": 2, "3B": 3, "HR": HOME, "BB": 1, "HBP": 1, "FC": 1, "AB": 1}


@dataclass(frozen=True)
class Play:
    click: str
    moves: dict = field(default_factory=dict)   # base -> base, HOME or "out"
    fast_only: frozenset = frozenset()          # bases whose runner moves only if fast
    everyone: int = 0                           # bases that all runners go up
    batter: object = None                       # where the batter ends: base or "out"; None: at bat
    error: bool = False


def base_of(text):
    return HOME if text == "H" else int(text)


def parse(cell):
    click, *tokens = cell.split()
    moves, fast, everyone, error = {}, set(), 0, False
    if click in BATTER_OUT:
        batter = "out"
    else:
        batter = LANDS_ON.get(click)
    for token in tokens:
        if token == "E":
            error = True
        elif token.startswith("all+"):
            everyone = int(token[4:])
        elif token.startswith("B>"):
            batter = base_of(token[2:])
        elif token.endswith("x"):
            moves[int(token[:-1])] = "out"
        else:
            if token.startswith("f"):
                token = token[1:]
                fast.add(int(token[0]))
            start, end = token.split(">")
            moves[int(start)] = base_of(end)
    return Play(click, moves, frozenset(fast), everyone, batter, error)


def forced(bases):
    """The moves when the batter is put on first base."""
    moves = {}
    for base in (1, 2, 3):
        if not bases[base]:
            break
        moves[base] = base + 1
    return moves


def settle(play, bases, outs, batter):
    """Apply a play.  Gives the new bases, the outs it makes and the players who score."""
    moves = dict(play.moves)
    if play.click in ("BB", "HBP"):
        moves = forced(bases)
    after, made, scored = {1: None, 2: None, 3: None}, 0, []

    def place(player, base):
        if base >= HOME:
            scored.append(player)
            return
        if after[base]:
            raise ValueError(f"two players on base {base}: {play}")
        after[base] = player

    for base in (3, 2, 1):
        runner = bases[base]
        if not runner:
            continue
        end = moves.get(base, base)
        if base in play.fast_only and not runner.fast:
            end = base
        if play.everyone:
            end = base + play.everyone
        if end == "out":
            made += 1
        else:
            place(runner, end)
    if play.batter == "out":
        made += 1
    elif play.batter is not None:
        place(batter, play.batter)
    if outs + made >= 3:
        scored = []         # no run counts on a play that makes the third out
    return after, made, scored


def words(cell):
    """The moves of a cell in words, a line each, the runner nearest home first."""
    play = parse(cell)
    lines = []
    for base in (3, 2, 1):
        if base not in play.moves:
            continue
        end = play.moves[base]
        who, fast = ORDINAL[base], " if fast" if base in play.fast_only else ""
        if end == "out":
            lines.append(f"{who} is out")
        elif end == HOME:
            lines.append(f"{who} scores{fast}")
        else:
            lines.append(f"{who} to {ORDINAL[end]}{fast}")
    if play.everyone:
        lines.append("runners up " + ("one" if play.everyone == 1 else "two"))
    if play.click == "AB" or "B>" in cell:
        lines.append(f"batter on {ORDINAL[play.batter]}")
    return lines
