// Any bytes as the files of a season's archive: clubs, roster and events, and one play alone.
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

#include "archive/figures_csv.h"
#include "archive/season_lines.h"
#include "archive/team_text.h"
#include "game/player_name.h"

using namespace dtb;
using namespace dtb::archive;

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void MakeTeams(const Season& season) {
  for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
    const LineUp lineUp = LineUpOfSeason(season, club, SeasonNine::UsedMost);
    const TeamText team = MakeTeamText(season, club, lineUp, {});
    Require(team.lines.size() <= kMostPlayers);
    Require(FileNameOf(team).find('/') == std::string::npos);
    std::set<std::string> names;
    for (const std::string& line : team.lines) {
      Require(line.find_first_of("\r\n") == std::string::npos);
      Require(!PlayerNameOf(line).empty() && names.insert(PlayerNameOf(line)).second);
    }
  }
  for (const Game& game : season.games) {
    std::set<std::string> names;  // of both teams; places that nobody has bear none
    for (const TeamText& team : MakeGameTeams(season, game, {}).teams) {
      for (const std::string& line : team.lines) {
        const std::string name = PlayerNameOf(line);
        Require(name.empty() || names.insert(name).second);
      }
    }
  }
}

}  // namespace

// A zero byte parts the files; the last of them is the events.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  Play play;
  (void)ReadPlay(std::string_view(bytes).substr(0, 200), play);
  Require(play.outs() <= 4 && play.runs() <= 4);
  SeasonLines lines;
  if (const std::size_t end = bytes.find('\0'); end != std::string::npos) {
    (void)lines.TakeClubs("TEAM2020", 2020, bytes.substr(0, end), Always);
    (void)lines.TakeRoster("AAA2020.ROS", 2020, "AAA", bytes.substr(0, end), Always);
    bytes.erase(0, end + 1);
  }
  (void)lines.TakeGames("2020AAA.EVA", bytes, Always);
  const Season season = lines.Take();
  for (const Club& club : season.clubs) {
    for (const Player& player : club.players) {
      Require(player.batting.hits <=
              player.batting.atBats + player.batting.sacrificeHits + player.batting.sacrificeFlies);
    }
  }
  MakeTeams(season);
  (void)BattingTable(season);
  (void)PitchingTable(season);
  return 0;
}
