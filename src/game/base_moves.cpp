#include "game/base_moves.h"

#include <algorithm>

namespace dtb {
namespace {

bool Has(const Occupied& occupied, int base) {
  return occupied.at(static_cast<std::size_t>(base - kFirstBase));
}

int Foremost(const Occupied& occupied) {
  for (int base = kThirdBase; base >= kFirstBase; --base) {
    if (Has(occupied, base)) return base;
  }
  return 0;
}

// The base of the foremost runner whom a batter on first pushes on; 0 for none.
int ForemostForced(const Occupied& occupied) {
  int forced = 0;
  while (forced < kThirdBase && Has(occupied, forced + 1)) ++forced;
  return forced;
}

// The bases that a batter takes, all others along with him; 0 where he pushes only who is in his
// way.
int BasesTaken(Outcome outcome) {
  switch (outcome) {
    case Outcome::Single:
    case Outcome::AtBat:
      return 1;
    case Outcome::Double:
      return 2;
    case Outcome::Triple:
      return 3;
    case Outcome::Homer:
      return kHomePlate;
    default:
      return 0;
  }
}

std::vector<Way> AllTake(const Occupied& occupied, int bases) {
  std::vector<Way> ways;
  for (int base = kThirdBase; base >= kFirstBase; --base) {
    if (Has(occupied, base)) ways.push_back({base, std::min(base + bases, kHomePlate)});
  }
  ways.push_back({kAtBatPlace, bases});
  return ways;
}

// The batter takes first and pushes on who is forced. `out` is the base of a runner who is put out:
// who is ahead of him need not run any more.
std::vector<Way> Push(const Occupied& occupied, int out) {
  std::vector<Way> ways;
  if (out > 0) ways.push_back({out, kPutOut});
  const int forced = ForemostForced(occupied);
  for (int base = out > 0 ? std::min(forced, out - 1) : forced; base >= kFirstBase; --base) {
    ways.push_back({base, base + 1});
  }
  ways.push_back({kAtBatPlace, kFirstBase});
  return ways;
}

}  // namespace

bool PutsRunnerOut(Outcome outcome) {
  return outcome == Outcome::DoublePlay || outcome == Outcome::FieldersChoice ||
         outcome == Outcome::ThrownOut;
}

int RunnerPutOut(Outcome outcome, const Occupied& occupied) {
  const int forced = ForemostForced(occupied);
  if (outcome == Outcome::FieldersChoice && forced > 0) return forced;
  if (outcome == Outcome::DoublePlay && forced > 0) return kFirstBase;
  return Foremost(occupied);
}

std::vector<Way> WaysOf(Outcome outcome, const Occupied& occupied, int out) {
  if (const int bases = BasesTaken(outcome); bases > 0) return AllTake(occupied, bases);
  switch (outcome) {
    case Outcome::Walk:
    case Outcome::TakesFirst:
      return Push(occupied, 0);
    case Outcome::FieldersChoice:
      return Push(occupied, out);
    case Outcome::ThrownOut:
      return {{out, kPutOut}};
    case Outcome::DoublePlay:
      return {{out, kPutOut}, {kAtBatPlace, kPutOut}};
    case Outcome::Strikeout:
    case Outcome::Groundout:
    case Outcome::Flyout:
    case Outcome::Lineout:
    case Outcome::Popout:
    case Outcome::Sacrifice:
      return {{kAtBatPlace, kPutOut}};
    default:
      return {};
  }
}

bool TakesHome(Outcome outcome, int from) {
  const int bases = BasesTaken(outcome);
  return from >= kFirstBase && from <= kThirdBase && bases > 0 && from + bases >= kHomePlate;
}

bool IsFree(const Occupied& occupied, Way way) {
  const auto [from, to] = way;
  if (from < kFirstBase || from > kThirdBase || to < kFirstBase || to > kHomePlate || from == to) {
    return false;
  }
  const int first = std::min(from + 1, to);
  const int last = std::min(std::max(from - 1, to), kThirdBase);
  for (int base = first; base <= last; ++base) {
    if (Has(occupied, base)) return false;
  }
  return true;
}

}  // namespace dtb
