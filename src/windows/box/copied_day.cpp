#include "windows/box/copied_day.h"

#include "base/time_stamp.h"
#include "base/words.h"
#include "database/kept_record.h"
#include "record/box_text.h"
#include "season/season_before.h"

namespace dtb {

std::vector<BoxScore> BoxScoresOf(Database& database, const std::vector<GameRecord>& games) {
  std::vector<BoxScore> boxes;
  for (const GameRecord& game : games) {
    SeasonToDate season = ReadSeasonBefore(database, game);
    season.Add(game);
    boxes.push_back(BoxScoreOf(game, season));
  }
  return boxes;
}

std::string CopiedDay(Platform& platform, const GameRecord& game) {
  const std::string day = game.date.empty() ? DateText(platform.clock.Now()) : game.date;
  const std::vector<BoxScore> boxes =
      BoxScoresOf(platform.database, ReadRecordsOfDay(platform.database, day));
  if (boxes.empty()) return "No game of " + PlainDate(day) + " is saved.";
  platform.clipboard.SetText(DayText(day, boxes));
  return Counted(static_cast<long long>(boxes.size()), "game") + " of " + PlainDate(day) +
         (boxes.size() == 1 ? " was" : " were") + " copied to the clipboard.";
}

}  // namespace dtb
