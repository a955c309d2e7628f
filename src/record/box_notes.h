// What stands below the tables of a box score.
#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "record/box_score.h"
#include "record/short_names.h"

namespace dtb {

// The letters of the substitutes, by team and name, and what each did first: "a-singled for Law in
// the 7th". Those whom no play tells have neither.
struct BoxSubstitutes {
  std::map<std::pair<std::string, std::string>, std::string> marks;
  std::array<std::vector<std::string>, 2> notes;
};
[[nodiscard]] BoxSubstitutes SubstitutesOf(const GameRecord& game, const ShortNames& names);

// Errors, double plays, runners left, extra-base hits, steals and more: those that there were. What
// only plays on the bases tell is left out where the board did not keep them.
[[nodiscard]] std::vector<BoxNote> NotesOf(const GameRecord& game, const SeasonToDate& season,
                                           const ShortNames& names);

// The plays that brought runs, with the score behind them.
[[nodiscard]] std::vector<std::string> ScoringOf(const GameRecord& game);

// "The plays do not tell who scored." and the like; "" where they tell all.
[[nodiscard]] std::string RemarkOf(const GameRecord& game);

// "1st", "2nd", "11th".
[[nodiscard]] std::string Ordinal(int number);

}  // namespace dtb
