#include "windows/box/copied_day.h"

#include "base/time_stamp.h"
#include "base/words.h"
#include "database/kept_record.h"
#include "record/box_text.h"
#include "season/season_before.h"

namespace dtb {

std::string CopiedDay(Platform& platform, const GameRecord& game) {
  const std::string day = game.date.empty() ? DateText(platform.clock.Now()) : game.date;
  std::vector<BoxScore> boxes;
  for (const GameRecord& one : ReadRecordsOfDay(platform.database, day)) {
    SeasonToDate season = ReadSeasonBefore(platform.database, one);
    season.Add(one);
    boxes.push_back(BoxScoreOf(one, season));
  }
  if (boxes.empty()) return "No game of " + PlainDate(day) + " is saved.";
  platform.clipboard.SetText(DayText(day, boxes));
  return Counted(static_cast<long long>(boxes.size()), "game") + " of " + PlainDate(day) +
         (boxes.size() == 1 ? " was" : " were") + " copied to the clipboard.";
}

}  // namespace dtb
