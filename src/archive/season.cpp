#include "archive/season.h"

#include <algorithm>
#include <chrono>
#include <numeric>

#include "base/words.h"

namespace dtb::archive {
namespace {

constexpr std::array<const char*, kPositions> kNames{"",   "P",  "C",  "1B", "2B", "3B", "SS",
                                                     "LF", "CF", "RF", "DH", "PH", "PR"};

constexpr int kCatcher = 2;
constexpr int kRightField = 9;

// The place from `first` to `last` with most games; 0 where there is none.
int MostPlayed(const Batting& batting, int first, int last) {
  int most = 0;
  for (int position = first; position <= last; ++position) {
    if (batting.gamesAt.at(position) > (most == 0 ? 0 : batting.gamesAt.at(most))) most = position;
  }
  return most;
}

// Digits of a text as a number between two limits.
unsigned Limited(std::string_view digits, unsigned least, unsigned most) {
  unsigned number = 0;
  for (const char c : digits) {
    if (c >= '0' && c <= '9') number = number * 10 + static_cast<unsigned>(c - '0');
  }
  return std::clamp(number, least, most);
}

}  // namespace

int DayOf(std::string_view date) {
  constexpr std::size_t kLength = 10;
  if (date.size() != kLength) return 0;
  const std::chrono::year_month_day day{
      std::chrono::year(static_cast<int>(Limited(date.substr(0, 4), 0, 9999))),
      std::chrono::month(Limited(date.substr(5, 2), 1, 12)),
      std::chrono::day(Limited(date.substr(8, 2), 1, 31))};
  return static_cast<int>(std::chrono::sys_days(day).time_since_epoch().count());
}

const char* PositionName(int position) {
  return position >= 0 && position < kPositions ? kNames.at(position) : "";
}

std::string FullName(const Player& player) {
  if (player.last.empty()) return player.id;
  return player.first.empty() ? player.last : player.first + ' ' + player.last;
}

bool IsPitcher(const Player& player) {
  const bool called = player.position == kNames[kPitcher];
  const Batting& batting = player.batting;
  if (batting.games == 0) return called;
  if (player.pitching.games * 2 > batting.games) return true;
  const auto others = batting.gamesAt.begin() + kCatcher;
  const int elsewhere = std::accumulate(others, batting.gamesAt.begin() + kDesignatedHitter + 1, 0);
  return called && player.pitching.games >= elsewhere;
}

std::string UsualPosition(const Player& player) {
  if (IsPitcher(player)) return PositionName(kPitcher);
  if (const int field = MostPlayed(player.batting, kCatcher, kRightField); field != 0) {
    return PositionName(field);
  }
  const std::string& told = player.position;
  const bool known =
      std::ranges::find(kNames, told) != kNames.end() || told == "OF" || told == "IF";
  if (known && !told.empty() && told != kNames[kPitcher]) return told;
  return PositionName(MostPlayed(player.batting, kDesignatedHitter, kPinchRunner));
}

const std::string& TeamName(const Season& season, int club) { return season.clubs[club].name; }

std::string FaultCountText(const Season& season) {
  return Counted(season.faultCount, "line") + (season.faultCount == 1 ? " makes" : " make") +
         " no sense; the rest counts.\n";
}

}  // namespace dtb::archive
