// The box score in fixed columns, for a forum or a letter.
#pragma once

#include <span>
#include <string>

#include "record/box_score.h"

namespace dtb {

inline constexpr std::size_t kBoxWidth = 65;  // letters in a line: a page of a typewriter

// Lines end in "\n". None is longer than kBoxWidth letters; names that have no room are cut.
[[nodiscard]] std::string BoxText(const BoxScore& box);

// All games of a day in short: line scores, decisions and home runs.
[[nodiscard]] std::string DayText(const std::string& date, std::span<const BoxScore> games);

}  // namespace dtb
