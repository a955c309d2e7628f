#!/usr/bin/python3
"""Break the logic in many places, one at a time, and tell which breaks the tests notice.

Each break changes one line of the logic: a sign, a bound, a condition, a missing call, a wrong
column or a wrong number. The seed alone chooses the places, so that nobody picks easy ones. For
each break the tests are built and run, quickest first, up to the first that fails; then the line
is put back. A break that does not compile is replaced by the next one.

Usage:  break_logic.py [--count N] [--seed N] [--jobs N] [--skip FILE]... [--at PLACE]... [--list]
                       BUILD-FOLDER

The build folder must belong to this source tree. Break a copy of the tree that nobody works in:
after an interruption one line of it may still be broken.
"""
import argparse
import os
import random
import re
import resource
import signal
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BROAD_HEADERS = 40  # files of the logic that include one: a break in it builds nearly all anew
BUILD_SECONDS = 900
TEST_SECONDS = 240
LONG_TEST_SECONDS = 900
MEMORY_BYTES = 4 << 30  # what a break may take
LONG_TESTS = "EveryGame*:Pieces.AreNeverOutOfReach"
# All real games of the archive that the tree holds, again and again.
REAL_GAMES_TESTS = "BothWorlds*:*RealGames*"
# What kills and spoils looks at the storage, and takes long.
STORAGE_TESTS = "*Kills*:OldDatabaseTest*:HostileDatabase*:TwoBoards*"


@dataclass(frozen=True)
class Break:
    kind: str
    file: Path
    line: int  # from 0
    broken: str
    shown: str


def swap(pattern, replacement):
    """All ways to put the replacement in the place of one match."""
    def ways(text):
        for match in re.finditer(pattern, text):
            yield text[:match.start()] + match.expand(replacement) + text[match.end():]
    return ways


def next_number(text):
    for match in re.finditer(r"(?<![\w.\"'])\d+(?![\w.\"'])", text):
        yield text[:match.start()] + str(int(match.group()) + 1) + text[match.end():]


def swapped_columns(text):
    """A constant for a column becomes the one before or behind it in the table."""
    columns = ["kStrikeouts", "kWalks", "kSingles", "kDoubles", "kTriples", "kHomeRuns",
               "kStolenBases", "kRunsBattedIn", "kAtBats"]
    pitchers = ["kPitcherStrikeouts", "kPitcherWalks", "kPitcherHits", "kPitcherHomeRuns",
                "kEarnedRuns", "kInningsPitched"]
    for names in (columns, pitchers):
        for place, name in enumerate(names):
            other = names[(place + 1) % len(names)]
            yield from swap(rf"\b{name}\b", other)(text)


KINDS = {
    "sign": [swap(r" \+ (?=\d|[a-z])", " - "), swap(r" - (?=\d|[a-z])", " + "),
             swap(r"\+\+(?=[a-z])", "--"), swap(r" \+= ", " -= ")],
    "bound": [swap(r" < (?!<)", " <= "), swap(r" > (?!>)", " >= "), swap(r" <= ", " < "),
              swap(r" >= ", " > ")],
    "condition": [swap(r" == ", " != "), swap(r" != ", " == "), swap(r" && ", " || "),
                  swap(r" \|\| ", " && "), swap(r"\btrue\b", "false"), swap(r"\bfalse\b", "true"),
                  swap(r"if \(!", "if (")],
    "missing call": [swap(r"^  +[A-Za-z][\w.>:\[\]-]*\(.*\);$", "  ;")],
    "wrong column": [swapped_columns],
    "wrong number": [next_number],
}


def files_of_the_logic():
    """What the build gives to the logic's library, with the headers beside it.

    Headers that nearly all include are left out, for the time that each break in one would take.
    """
    source = ROOT / "src"
    listed = re.search(r"file\(GLOB core_sources CONFIGURE_DEPENDS([^)]*)\)",
                       (source / "CMakeLists.txt").read_text()).group(1).split()
    code = sorted(file for pattern in listed for file in source.glob(pattern))
    texts = [file.read_text() for file in code]
    headers = sorted({header for file in code for header in file.parent.glob("*.h")})
    for header in headers:
        included = f'#include "{header.relative_to(source)}"'
        if sum(included in text for text in texts) < BROAD_HEADERS:
            code.append(header)
    return code


def all_breaks(skipped):
    found = {kind: [] for kind in KINDS}
    for file in files_of_the_logic():
        if file.name in skipped:
            continue
        lines = file.read_text().split("\n")
        for number, line in enumerate(lines):
            if line.lstrip().startswith(("//", "#", "return \"", "case ")):
                continue
            if line.strip().startswith("throw ") or "ProgramError(" in line:
                continue
            code = line.split("  //")[0]
            for kind, makers in KINDS.items():
                found[kind] += [Break(kind, file, number, broken,
                                      (code if broken == "  ;" else broken).strip())
                                for make in makers for broken in make(code)
                                if broken != code]
    return found


def chosen(seed, skipped):
    """All breaks in the order in which they are tried: the kinds by turns, no line twice."""
    shuffle = random.Random(seed)
    found = all_breaks(skipped)
    for breaks in found.values():
        shuffle.shuffle(breaks)
    lines = set()
    while any(found.values()):
        for breaks in found.values():
            while breaks:
                candidate = breaks.pop()
                if (candidate.file, candidate.line) not in lines:
                    lines.add((candidate.file, candidate.line))
                    yield candidate
                    break


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_BYTES, MEMORY_BYTES))


def run(command, seconds, environment=None, limit=None):
    """Exit code and output; a code of None means that the time ran out.

    The command is the head of a group of processes, since the replay plays each game in a process
    of its own: one that never ends goes with it, and does not hold the output open.
    """
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          env=environment, start_new_session=True, preexec_fn=limit) as started:
        try:
            output, _ = started.communicate(timeout=seconds)
            code = started.returncode
        except BaseException as stopped:
            os.killpg(started.pid, signal.SIGKILL)
            output, _ = started.communicate()
            if not isinstance(stopped, subprocess.TimeoutExpired):
                raise
            code = None
    return code, output.decode(errors="replace")


def tests(build):
    """What is built, the name in the table and the command; quickest first.

    The random click sequences, the long walks of the core and the real games come last.
    """
    games = ROOT / "tests" / "games"
    scripts = sorted(str(folder) for folder in games.iterdir() if folder.is_dir())
    core = build / "dtb_core_tests"
    plays = build / "dtb_plays_tests"
    yield core.name, "core", [core, f"--gtest_filter=-{LONG_TESTS}"]
    yield "dtb_archive_tests", "archive", [build / "dtb_archive_tests"]
    yield plays.name, "plays", [plays, f"--gtest_filter=-{REAL_GAMES_TESTS}"]
    yield "dtb_replay", "replay", [build / "dtb_replay", *scripts]
    yield "dtb_database_tests", "database", [build / "dtb_database_tests",
                                            f"--gtest_filter=-{STORAGE_TESTS}"]
    yield "dtb_export_tests", "exports", [build / "dtb_export_tests"]
    # The scripts play what another program writes, and take over an old database.
    yield ("dtb_replay dtb_season_scripts dtb_jet_reader", "scripts",
           ["ctest", "--test-dir", build, "-R", "replay_", "--stop-on-failure"])
    yield core.name, "core, long", [core, f"--gtest_filter={LONG_TESTS}"]
    yield plays.name, "plays, long", [plays, f"--gtest_filter={REAL_GAMES_TESTS}"]


def complaint(name, code, output):
    if code is None:
        return f"{name}: does not end"
    failed = re.search(r"\[  FAILED  \] ([\w./]+)|(replay_[\w.-]+) [.]+[^*\n]*[*]+", output)
    if failed:
        return f"{name}: {failed.group(1) or failed.group(2)}"
    if begun := re.findall(r"\[ RUN      \] ([\w./]+)", output):
        return f"{name}: {begun[-1]} dies"
    wrong = [line for line in output.split("\n") if line and "all figures right" not in line]
    return f"{name}: {wrong[-1][:60]}" if wrong else f"{name}: dies"


def who_notices(build, jobs):
    """The first test that fails, None for none, False where the tree does not compile.

    A target is built when its tests are about to run, so that most breaks link one alone.
    """
    environment = dict(os.environ, GTEST_FAIL_FAST="1", QT_QPA_PLATFORM="offscreen",
                       LC_ALL="C.UTF-8")
    for target, name, command in tests(build):
        make = ["cmake", "--build", build, "--target", *target.split(), "--", f"-j{jobs}"]
        if run(make, BUILD_SECONDS)[0] != 0:
            return False
        seconds = LONG_TEST_SECONDS if name.endswith("long") else TEST_SECONDS
        code, output = run(command, seconds, environment, limit_memory)
        if code != 0:
            return complaint(name, code, output)
    return None


def tried(candidate, build, jobs):
    """What noticed the break; None for nothing; False where it does not compile."""
    whole = candidate.file.read_text()
    lines = whole.split("\n")
    lines[candidate.line] = candidate.broken
    try:
        candidate.file.write_text("\n".join(lines))
        return who_notices(build, jobs)
    finally:
        candidate.file.write_text(whole)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("build", type=Path, help="a build folder of this tree, with its tests")
    parser.add_argument("--count", type=int, default=40, help="breaks that compile (40)")
    parser.add_argument("--seed", type=int, default=1, help="chooses the places (1)")
    parser.add_argument("--jobs", type=int, default=1, help="processes of a build (1)")
    parser.add_argument("--skip", action="append", default=[], help="a file that stays whole")
    parser.add_argument("--at", action="append", help="try only the break at FILE:LINE of the table")
    parser.add_argument("--list", action="store_true", help="only show the first so many places")
    options = parser.parse_args()
    build = options.build.resolve()

    if not options.list:
        before = who_notices(build, options.jobs)
        if before is False:
            sys.exit("The tree does not build as it is.")
        if before:
            sys.exit(f"The tests fail on the tree as it is: {before}")
    noticed = done = 0
    print(f"Seed {options.seed}")
    for candidate in chosen(options.seed, options.skip):
        place = f"{candidate.file.relative_to(ROOT / 'src')}:{candidate.line + 1}"
        if done == (len(options.at) if options.at else options.count):
            break
        if options.at and place not in options.at:
            continue
        result = "" if options.list else tried(candidate, build, options.jobs)
        if result is False:
            continue
        done += 1
        noticed += result is not None
        result = "-- nothing --" if result is None else result
        print(f"{done:3}  {candidate.kind:13} {place:32} "
              f"{candidate.shown[:70]:72}{result}", flush=True)
    if not options.list:
        print(f"{noticed} of {done} breaks were noticed.")


if __name__ == "__main__":
    main()
