// What stands behind "=" in a team file, by a form that the person can change.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "archive/season.h"

namespace dtb::archive {

enum class NameForm { FirstLast, LastFirst };

// How lines of a team file are made.
struct LineForm {
  // What the dice game reads comes first, since a narrow list may cut the end.
  std::string batters = "{pos} {bats} {avg}{few} {power} {speed} {hr} HR";
  std::string pitchers = "P {throws} {era}{few} ERA {role} {ip} IP {h} H {bb} BB {k} K";
  NameForm names = NameForm::FirstLast;
  friend bool operator==(const LineForm&, const LineForm&) = default;
};

// A sample is small with fewer plate appearances, or innings pitched, than these.
inline constexpr int kFewAppearances = 100;
inline constexpr int kFewInnings = 30;

// Fills a form for a player: each "{word}" is replaced by his figure, and blanks that an empty one
// leaves behind become one. A word that is not known stays as it stands. A pitcher's "{h}", "{bb}",
// "{k}", "{hr}" and "{g}" are those that he allowed. "{at}" tells the games by position, as "SS 45,
// 2B 10"; "{few}" is the mark "?" of a small sample, to stand behind a figure: ".188?". Line breaks
// are no part of a remark.
[[nodiscard]] std::string Remark(const std::string& form, const Player& player,
                                 std::string_view position, bool asPitcher);

// The words of a form that are not known, as "{wrong}".
[[nodiscard]] std::vector<std::string> UnknownWords(const std::string& form, bool asPitcher);

// All words, for a help: "pos, bats, avg, ...".
[[nodiscard]] std::string KnownWords(bool asPitcher);

// His name in the form, without what a team file cannot hold. "Ken Griffey Jr." keeps his suffix.
[[nodiscard]] std::string PlainName(const Player& player, NameForm form);

// The same with his number among the year's players of that name: "Luis Garcia (2)".
[[nodiscard]] std::string NameInFile(const Player& player, NameForm form);

// "68.1": whole innings and outs.
[[nodiscard]] std::string InningsWithThirds(int outs);

}  // namespace dtb::archive
