#include "seasons/season.h"

#include <algorithm>

namespace dtb::seasons {
namespace {

constexpr std::array<const char*, kPositions> kNames{"",   "P",  "C",  "1B", "2B", "3B", "SS",
                                                     "LF", "CF", "RF", "DH", "PH", "PR"};

// The last names of a city's clubs tell them apart; elsewhere the city is enough.
bool SharesCity(const Season& season, const Club& club) {
  return std::ranges::count_if(season.clubs, [&](const Club& other) {
           return other.year == club.year && other.city == club.city;
         }) > 1;
}

// The place from `first` to `last` with most games; 0 where there is none.
int MostPlayed(const Batting& batting, int first, int last) {
  int most = 0;
  for (int position = first; position <= last; ++position) {
    if (batting.gamesAt.at(position) > (most == 0 ? 0 : batting.gamesAt.at(most))) most = position;
  }
  return most;
}

}  // namespace

const char* PositionName(int position) {
  return position >= 0 && position < kPositions ? kNames.at(position) : "";
}

std::string FullName(const Man& man) {
  if (man.last.empty()) return man.id;
  return man.first.empty() ? man.last : man.first + ' ' + man.last;
}

bool IsPitcher(const Man& man) {
  if (man.batting.games == 0) return man.position == "P";
  return man.pitching.games * 2 > man.batting.games;
}

std::string UsualPosition(const Man& man) {
  if (const int field = MostPlayed(man.batting, kPitcher, 9); field != 0) {
    return PositionName(field);
  }
  const bool known = std::ranges::find(kNames, man.position) != kNames.end() ||
                     man.position == "OF" || man.position == "IF";
  if (known && !man.position.empty()) return man.position;
  return PositionName(MostPlayed(man.batting, kDesignatedHitter, kPinchRunner));
}

std::string TeamName(const Season& season, const Club& club) {
  std::string name = club.city.empty() ? club.id : club.city;
  if (!club.nickname.empty() && SharesCity(season, club)) name += ' ' + club.nickname;
  return name + ' ' + std::to_string(club.year);
}

}  // namespace dtb::seasons
