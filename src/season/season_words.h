// How the figures of a season read.
#pragma once

#include <string>

#include "season/season_figures.h"

namespace dtb {

// "12 Apr 2026", and with the time of day "12 Apr 2026, 19:05"; "no date" for none.
[[nodiscard]] std::string DayText(const std::optional<LocalTime>& time);
[[nodiscard]] std::string DayAndTimeText(const std::optional<LocalTime>& time);
// "Apr 2026"; "no date" for none.
[[nodiscard]] std::string MonthText(const std::optional<LocalTime>& time);

// "Ants 5, Bees 3": visitors, then home team.
[[nodiscard]] std::string ScoreText(const SeasonFigures& season, const SeasonGame& game);

// "10-4", with ties "10-4-1".
[[nodiscard]] std::string RecordText(int wins, int losses, int ties);
[[nodiscard]] std::string RecordText(const SeasonTeam& team);
// "6 above .500", "2 below .500", "at .500".
[[nodiscard]] std::string AboveText(int above);

// ".333" and "2.57"; "-" for nothing.
[[nodiscard]] std::string AverageText(const std::optional<Quotient>& average);
[[nodiscard]] std::string EarnedRunText(const std::optional<Quotient>& average);
// Outs as innings: 16 are "5.33".
[[nodiscard]] std::string DecimalInnings(double outs);

}  // namespace dtb
