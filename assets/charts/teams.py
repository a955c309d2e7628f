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
class Man:
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


def read_man(line):
    name, _, remark = line.partition("=")
    man = Man(name)
    position = POSITION.match(remark)
    man.position = position.group(1) if position else ""
    average, earned, record = (p.search(remark) for p in (AVERAGE, EARNED, RECORD))
    if average:
        man.column = bat.column_of_average(float(average.group()))
    rated = dict(RATED.findall(remark))
    man.speed = {"AA": "AA", "A": "A"}.get(rated.get("speed", ""), "")
    man.arm = rated.get("arm", "")
    man.glove = "glove" in remark
    man.power = "power" in remark
    man.relief = "relief" in remark
    if man.position == "P":
        man.column = bat.PITCHER_BATS
        if earned:
            man.pitching = bat.column_of_era(float(earned.group()))
        elif record:
            man.pitching = bat.column_of_record(*map(int, record.groups()))
    return man, bool(average)


class Team:
    def __init__(self, path):
        self.name = path.stem
        lines = [line for line in decode(path.read_bytes()).splitlines() if line]
        men, numbered = zip(*(read_man(line) for line in lines))
        self.order = list(men[:9])
        self.fill_by_order(any(numbered[:9]), any("speed" in line for line in lines),
                           any("power" in line for line in lines))
        pitchers = [man for man in men if man.position == "P"]
        if not pitchers:                # a file of bare names: the last men pitch
            pitchers = list(men[-6:])
            for man in pitchers[3:]:
                man.pitching, man.relief = bat.UNKNOWN_RELIEF, True
        if not any(man.relief for man in pitchers):
            for man in pitchers[-2:]:
                man.relief = True
        self.starters = [man for man in pitchers if not man.relief]
        self.relievers = [man for man in pitchers if man.relief]
        self.pitcher_place = next((i for i, m in enumerate(self.order) if m.position == "P"), None)

    def fill_by_order(self, averages, speeds, powers):
        """The place in the order stands in for what the file does not tell."""
        for index, man in enumerate(self.order):
            if man.position != "P" and not averages:
                man.column = bat.ORDER_COLUMNS[index]
            if not speeds and index + 1 in bat.ORDER_FAST:
                man.speed = "A"
            if not powers and index + 1 in bat.ORDER_POWER:
                man.power = True

    def fielder(self, position):
        return next((man for man in self.order if man.position == position), None)
