#include "seasons/team_text.h"

#include <set>

#include "shell/report_files.h"

namespace dtb::seasons {
namespace {

std::vector<std::string> NamesApart(const Club& club, NameForm form) {
  std::vector<std::string> names;
  std::set<std::string> taken;
  for (const Man& man : club.men) {
    const std::string name = NameInFile(man, form);
    std::string apart = name;
    for (int number = 2; !taken.insert(apart).second; ++number) {
      apart = std::string(name).append(" (").append(std::to_string(number)).append(")");
    }
    names.push_back(apart);
  }
  return names;
}

}  // namespace

TeamText MakeTeamText(const Season& season, int club, const LineUp& lineUp, const LineForm& form) {
  const Club& told = season.clubs[club];
  const std::vector<std::string> names = NamesApart(told, form.names);
  TeamText team;
  team.name = TeamName(season, told);
  const auto add = [&](int man, const std::string& position, bool asPitcher) {
    const std::string remark =
        Remark(asPitcher ? form.pitchers : form.batters, told.men[man], position, asPitcher);
    team.lines.push_back(remark.empty() ? names[man] : names[man] + '=' + remark);
  };
  for (const Placed& one : lineUp.order) {
    add(one.man, PositionName(one.position), one.position == kPitcher);
  }
  for (const int man : lineUp.bench) add(man, UsualPosition(told.men[man]), false);
  for (const int man : lineUp.pitchers) add(man, PositionName(kPitcher), true);
  for (const int man : lineUp.leftOut) team.leftOut.push_back(names[man]);
  return team;
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

}  // namespace dtb::seasons
