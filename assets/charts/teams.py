"""Team files read the way a player of the game reads them."""
import re
from dataclasses import dataclass

import tables_bat as bat

POSITION = re.compile(r"^\s*(DH|IF|OF|CF|LF|RF|SS|[123]B|[CP])\b")
AVERAGE = re.compile(r"(?<![\d.])\.\d{3}")
EARNED = re.compile(r"\b\d{1,2}\.\d\d\b")
RECORD = re.compile(r"\b(\d{1,2})-(\d{1,2})\b")
RATED = re.compile(r"\b(speed|arm)\s+(AA|A|B)\b")


@dataclass(eq=False)
class Player:
    name: str
    position: str = ""
    column: int = bat.RESERVE_COLUMN        # of chart 1
    power: bool = False
    speed: str = ""                         # "AA", "A" or nothing
    arm: str = ""
    glove: bool = False
    pitching: int = bat.UNKNOWN_STARTER     # column of chart 2
    relief: bool = False

    @property
    def fast(self):
        return bool(self.speed)


def decode(data):
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return data.decode("cp1252")


def read_player(line):
    name, _, remark = line.partition("=")
    player = Player(name)
    position = POSITION.match(remark)
    player.position = position.group(1) if position else ""
    average, earned, record = (p.search(remark) for p in (AVERAGE, EARNED, RECORD))
    if average:
        player.column = bat.column_of_average(float(average.group()))
    rated = dict(RATED.findall(remark))
    player.speed = {"AA": "AA", "A": "A"}.get(rated.get("speed", ""), "")
    player.arm = rated.get("arm", "")
    player.glove = "glove" in remark
    player.power = "power" in remark
    player.relief = "relief" in remark
    if player.position == "P":
        player.column = bat.PITCHER_BATS
        if earned:
            player.pitching = bat.column_of_era(float(earned.group()))
        elif record:
            player.pitching = bat.column_of_record(*map(int, record.groups()))
    return player, bool(average)


class Team:
    def __init__(self, path):
        self.name = path.stem
        lines = [line for line in decode(path.read_bytes()).splitlines() if line]
        players, numbered = zip(*(read_player(line) for line in lines))
        self.order = list(players[:9])
        self.fill_by_order(any(numbered[:9]), any("speed" in line for line in lines),
                           any("power" in line for line in lines))
        pitchers = [player for player in players if player.position == "P"]
        if not pitchers:                # a file of bare names: the last players pitch
            pitchers = list(players[-6:])
            for player in pitchers[3:]:
                player.pitching, player.relief = bat.UNKNOWN_RELIEF, True
        if not any(player.relief for player in pitchers):
            for player in pitchers[-2:]:
                player.relief = True
        self.starters = [player for player in pitchers if not player.relief]
        self.relievers = [player for player in pitchers if player.relief]
        self.pitcher_place = next((i for i, m in enumerate(self.order) if m.position == "P"), None)

    def fill_by_order(self, averages, speeds, powers):
        """The place in the order stands in for what the file does not tell."""
        for index, player in enumerate(self.order):
            if player.position != "P" and not averages:
                player.column = bat.ORDER_COLUMNS[index]
            if not speeds and index + 1 in bat.ORDER_FAST:
                player.speed = "A"
            if not powers and index + 1 in bat.ORDER_POWER:
                player.power = True

    def fielder(self, position):
        return next((player for player in self.order if player.position == position), None)
