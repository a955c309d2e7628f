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
  for (const Man& man : club.men) {
    const std::string name = NameInFile(man, form);
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

std::vector<int> MenOf(const LineUp& lineUp) {
  std::vector<int> men;
  for (const Placed& one : lineUp.order) {
    if (one.man != kNobody) men.push_back(one.man);
  }
  men.insert(men.end(), lineUp.bench.begin(), lineUp.bench.end());
  men.insert(men.end(), lineUp.pitchers.begin(), lineUp.pitchers.end());
  return men;
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
  const auto remark = [&](int man, const std::string& position, bool asPitcher) {
    return Remark(asPitcher ? form.pitchers : form.batters, told.men[man], position, asPitcher);
  };
  const auto add = [&](int man, const std::string& text) {
    team.lines.push_back(text.empty() ? names[man] : names[man] + '=' + text);
  };
  const std::string pitcher = PositionName(kPitcher);
  for (std::size_t i = 0; i < lineUp.order.size(); ++i) {
    const auto& [man, position] = lineUp.order[i];
    if (man == kNobody) {
      team.lines.push_back(OpenPlace(i + 1));
      team.gaps.push_back("who bats " + Ordinal(i + 1));
    } else if (man == lineUp.starter && position != kPitcher) {
      add(man, remark(man, pitcher + '/' + PositionName(position), false) + " / " +
                   remark(man, pitcher, true));
    } else {
      add(man, remark(man, PositionName(position), position == kPitcher));
    }
  }
  if (lineUp.order.empty()) team.gaps.emplace_back("the batting order");
  if (lineUp.starter == kNobody) {
    team.gaps.emplace_back("who starts as pitcher");
  } else {
    team.starter = names[lineUp.starter];
  }
  for (const int man : lineUp.bench) add(man, remark(man, UsualPosition(told.men[man]), false));
  for (const int man : lineUp.pitchers) add(man, remark(man, pitcher, true));
  for (const int man : lineUp.leftOut) team.leftOut.push_back(names[man]);
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
  for (const int man : MenOf(lineUps[0])) alike[PlainName(visitors.men[man], form.names)] = man;
  for (const int man : MenOf(lineUps[1])) {
    const std::string name = PlainName(home.men[man], form.names);
    const auto found = alike.find(name);
    if (found == alike.end()) continue;
    made.alike.push_back("Both teams have a " + name + ": \"" + theirs[found->second] + "\" of " +
                         visitors.name + " and \"" + ours[man] + "\" of " + home.name + '.');
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
