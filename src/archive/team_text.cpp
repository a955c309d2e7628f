#include "archive/team_text.h"

#include <unordered_map>
#include <utility>

#include "base/file_names.h"
#include "game/player_name.h"

namespace dtb::archive {
namespace {

std::vector<std::string> NamesApart(const Club& club, NameForm form, TakenNames taken) {
  std::vector<std::string> names;
  std::unordered_map<std::string, int> numbers;  // the last one tried for a name
  for (const Player& player : club.players) {
    const std::string name = NameInFile(player, form);
    std::string apart = name;
    int& number = numbers.try_emplace(name, 1).first->second;
    while (!taken.insert(apart).second) {
      apart = std::string(name).append(" (").append(std::to_string(++number)).append(")");
    }
    names.push_back(std::move(apart));
  }
  return names;
}

std::string Ordinal(std::size_t number) {
  constexpr std::array<const char*, 4> kEndings{"th", "st", "nd", "rd"};
  return std::to_string(number) + kEndings.at(number < kEndings.size() ? number : 0);
}

std::vector<int> PlayersOf(const LineUp& lineUp) {
  std::vector<int> players;
  for (const Placed& one : lineUp.order) {
    if (one.player != kNobody) players.push_back(one.player);
  }
  players.insert(players.end(), lineUp.bench.begin(), lineUp.bench.end());
  players.insert(players.end(), lineUp.pitchers.begin(), lineUp.pitchers.end());
  return players;
}

// A line that stands for the place and is nobody's: its name is empty.
std::string OpenPlace(std::size_t place) { return "=not known who batted " + Ordinal(place); }

}  // namespace

TeamText MakeTeamText(const Season& season, int club, const LineUp& lineUp, const LineForm& form,
                      const TakenNames& taken) {
  const Club& told = season.clubs[club];
  const std::vector<std::string> names = NamesApart(told, form.names, taken);
  TeamText team;
  team.name = TeamName(season, club);
  team.inOrder = static_cast<int>(lineUp.order.size());
  const auto remark = [&](int player, const std::string& position, bool asPitcher) {
    return Remark(asPitcher ? form.pitchers : form.batters, told.players[player], position,
                  asPitcher);
  };
  const auto add = [&](int player, const std::string& text) {
    team.lines.push_back(text.empty() ? names[player] : names[player] + '=' + text);
  };
  const std::string pitcher = PositionName(kPitcher);
  for (std::size_t i = 0; i < lineUp.order.size(); ++i) {
    const auto& [player, position] = lineUp.order[i];
    if (player == kNobody) {
      team.lines.push_back(OpenPlace(i + 1));
      team.gaps.push_back("who bats " + Ordinal(i + 1));
    } else if (player == lineUp.starter && position != kPitcher) {
      add(player, remark(player, pitcher + '/' + PositionName(position), false) + " / " +
                      remark(player, pitcher, true));
    } else {
      add(player, remark(player, PositionName(position), position == kPitcher));
    }
  }
  if (lineUp.order.empty()) team.gaps.emplace_back("the batting order");
  if (lineUp.starter == kNobody) {
    team.gaps.emplace_back("who starts as pitcher");
  } else {
    team.starter = names[lineUp.starter];
  }
  for (const int player : lineUp.bench) {
    add(player, remark(player, UsualPosition(told.players[player]), false));
  }
  for (const int player : lineUp.pitchers) add(player, remark(player, pitcher, true));
  for (const int player : lineUp.leftOut) team.leftOut.push_back(names[player]);
  return team;
}

GameTeams MakeGameTeams(const Season& season, const Game& game, const LineForm& form) {
  const std::array<LineUp, 2> lineUps = LineUpsOfGame(season, game);
  const std::array<int, 2> clubs{game.sides[0].club, game.sides[1].club};
  GameTeams made;
  TakenNames taken;
  made.teams[0] = MakeTeamText(season, clubs[0], lineUps[0], form);
  for (const std::string& line : made.teams[0].lines) taken.insert(PlayerNameOf(line));
  made.teams[1] = MakeTeamText(season, clubs[1], lineUps[1], form, taken);

  const Club& visitors = season.clubs[clubs[0]];
  const Club& home = season.clubs[clubs[1]];
  const std::vector<std::string> theirs = NamesApart(visitors, form.names, {});
  const std::vector<std::string> ours = NamesApart(home, form.names, std::move(taken));
  std::unordered_map<std::string, int> alike;  // visitors by their names without numbers
  for (const int player : PlayersOf(lineUps[0])) {
    alike[PlainName(visitors.players[player], form.names)] = player;
  }
  for (const int player : PlayersOf(lineUps[1])) {
    const std::string name = PlainName(home.players[player], form.names);
    const auto found = alike.find(name);
    if (found == alike.end()) continue;
    made.alike.push_back("Both teams have a " + name + ": \"" + theirs[found->second] + "\" of " +
                         visitors.name + " and \"" + ours[player] + "\" of " + home.name + '.');
  }
  return made;
}

std::string BytesOf(const TeamText& team) {
  std::string bytes;
  for (const std::string& line : team.lines) bytes.append(line).append("\n");
  return bytes;
}

std::string BoardName(const std::string& teamName) {
  std::string name = SafeNamePart(teamName);
  std::erase(name, '=');  // the board would cut the name there
  return name.empty() ? "Team" : name;
}

std::string FileNameOf(const TeamText& team) { return BoardName(team.name) + ".txt"; }

}  // namespace dtb::archive
