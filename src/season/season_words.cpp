#include "season/season_words.h"

#include "base/text_cell.h"
#include "base/words.h"

namespace dtb {
namespace {

constexpr const char* kNoDate = "no date";

}  // namespace

std::string MonthText(const std::optional<LocalTime>& time) {
  return time ? PlainMonth(*time) : kNoDate;
}

std::string DayText(const std::optional<LocalTime>& time) {
  return time ? PlainDay(*time) : kNoDate;
}

std::string DayAndTimeText(const std::optional<LocalTime>& time) {
  if (!time) return kNoDate;
  return DayText(time) + ", " + TwoDigits(time->hour) + ":" + TwoDigits(time->minute);
}

std::string ScoreText(const SeasonFigures& season, const SeasonGame& game) {
  std::string text;
  for (const SeasonSide& side : game.sides) {
    text +=
        (text.empty() ? "" : ", ") + season.teams[side.team].name + " " + DecimalText(side.runs);
  }
  return text;
}

std::string RecordText(int wins, int losses, int ties) {
  return std::to_string(wins) + "-" + std::to_string(losses) +
         (ties > 0 ? "-" + std::to_string(ties) : "");
}

std::string RecordText(const SeasonTeam& team) {
  return RecordText(team.wins, team.losses, team.ties());
}

std::string AboveText(int above) {
  if (above == 0) return "at .500";
  return std::to_string(above > 0 ? above : -above) + (above > 0 ? " above .500" : " below .500");
}

std::string AverageText(const std::optional<Quotient>& average) {
  if (!average) return "-";
  std::string text = RoundedQuotient(average->part, average->whole, 3);
  return text.starts_with("0.") ? text.substr(1) : text;
}

std::string EarnedRunText(const std::optional<Quotient>& average) {
  return average ? RoundedQuotient(average->part, average->whole, 2) : "-";
}

std::string DecimalInnings(double outs) { return RoundedQuotient(outs, 3, 2); }

}  // namespace dtb
