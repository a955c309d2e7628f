#include "game/play_words.h"

#include <algorithm>

#include "base/words.h"
#include "game/player_name.h"

namespace dtb {
namespace {

// What the batter does; nullptr where the play is not his.
const char* VerbOf(const Play& play) {
  switch (play.outcome) {
    case Outcome::Single:
      return "singles";
    case Outcome::Double:
      return "doubles";
    case Outcome::Triple:
      return "triples";
    case Outcome::Homer:
      return "homers";
    case Outcome::Walk:
      return "walks";
    case Outcome::Strikeout:
      return "strikes out";
    case Outcome::Groundout:
      return "grounds out";
    case Outcome::Flyout:
      return "flies out";
    case Outcome::Lineout:
      return "lines out";
    case Outcome::Popout:
      return "pops out";
    case Outcome::DoublePlay:
      return "hits into a double play";
    case Outcome::FieldersChoice:
      return "reaches on a fielder's choice";
    case Outcome::AtBat:
      return play.basesKept ? "reaches on an error" : "has an at-bat";
    case Outcome::TakesFirst:
      return "takes first without an at-bat";
    case Outcome::Sacrifice:
      return "is out without an at-bat";
    default:
      return nullptr;
  }
}

// Where the verb of the play says already where the batter goes.
bool VerbTells(const Play& play, const Move& move) {
  if (move.from != kAtBatPlace) return false;
  switch (play.outcome) {
    case Outcome::Double:
      return move.to == kSecondBase;
    case Outcome::Triple:
      return move.to == kThirdBase;
    case Outcome::Homer:
      return move.to == kHomePlate;
    default:
      return move.to == kFirstBase || move.to == kPutOut;
  }
}

std::string WordsOf(const Play& play, const Move& move) {
  const std::string name = LastNameOf(move.name);
  const bool onBase = move.from >= kFirstBase && move.from <= kThirdBase;
  const std::string from = onBase ? std::string(" from ") + BaseName(move.from) : "";
  if (play.outcome == Outcome::StolenBase && move.to == move.from + 1) {
    return name + " steals " + BaseName(move.to);
  }
  if (move.to == kHomePlate) return name + " scores" + from;
  if (move.to == kPutOut) return name + " is out" + (onBase ? std::string(" on the bases") : "");
  if (move.from == kFromBench) return name + " begins on " + BaseName(move.to);
  return name + (onBase && move.to < move.from ? " goes back to " : " goes to ") +
         BaseName(move.to);
}

// Of a play without known moves.
std::string AloneInWords(const Play& play) {
  const std::string batter = LastNameOf(play.batter);
  switch (play.outcome) {
    case Outcome::RunBattedIn:
      return "A run scores, batted in by " + batter;
    case Outcome::ThrownOut:
      return "A runner is out while " + batter + " bats";
    default:
      return "A runner moves while " + batter + " bats";
  }
}

}  // namespace

const char* BaseName(int base) {
  switch (base) {
    case kFirstBase:
      return "first";
    case kSecondBase:
      return "second";
    case kThirdBase:
      return "third";
    default:
      return "home";
  }
}

std::string PlayInWords(const Play& play) {
  std::string words;
  if (const char* verb = VerbOf(play)) words = LastNameOf(play.batter) + ' ' + verb;
  for (const Move& move : play.moves) {
    if (VerbOf(play) != nullptr && VerbTells(play, move)) continue;
    words += (words.empty() ? "" : ", ") + WordsOf(play, move);
  }
  return words.empty() ? AloneInWords(play) : words;
}

std::string PlayInShort(const Play& play) {
  if (VerbOf(play) == nullptr) return PlayInWords(play);
  std::string words = play.batter + ' ' + std::string(OutcomeCode(play.outcome));
  std::string last;
  int scored = 0;
  for (const Move& move : play.moves) {
    if (move.to != kHomePlate || move.from == kAtBatPlace) continue;
    if (!last.empty()) words += ", " + last;
    last = LastNameOf(move.name);
    ++scored;
  }
  const std::string out = RunnerOutIn(play);
  if (!out.empty()) words += ", " + LastNameOf(out) + " out";
  if (scored == 0) return words;
  return words + (scored > 1 ? " and " + last + " score" : ", " + last + " scores");
}

std::string MoveInWords(const Play& play, const std::string& name) {
  const auto move = std::ranges::find(play.moves, name, &Move::name);
  if (move == play.moves.end()) return "";
  const std::string words = WordsOf(play, *move);
  return move->battedIn ? words + ", batted in by " + LastNameOf(play.batter) : words;
}

std::string PlayWithInning(const Play& play) {
  return std::string(play.half % 2 == 0 ? "Top " : "Bottom ")
      .append(std::to_string(play.half / 2 + 1))
      .append(", ")
      .append(Counted(play.outsBefore, "out"))
      .append(": ")
      .append(PlayInWords(play));
}

}  // namespace dtb
