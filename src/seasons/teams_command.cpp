#include "seasons/teams_command.h"

#include <algorithm>
#include <map>
#include <optional>

#include "platform/paths.h"
#include "seasons/figures_csv.h"
#include "seasons/lineup_choice.h"
#include "seasons/season_files.h"
#include "seasons/season_reader.h"
#include "seasons/team_text.h"
#include "shell/program_error.h"

namespace dtb::seasons {
namespace {

struct Arguments {
  std::string game;
  std::string batting;
  std::string pitching;
  bool replace = false;
  std::string archive;
  std::string folder;
};

std::optional<Arguments> Understood(const std::vector<std::string>& given) {
  Arguments arguments;
  const std::map<std::string, std::string*> options{{"--game", &arguments.game},
                                                    {"--batting", &arguments.batting},
                                                    {"--pitching", &arguments.pitching}};
  std::vector<std::string> plain;
  bool onlyPlain = false;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const std::string& one = given[i];
    if (const auto option = options.find(one); !onlyPlain && option != options.end()) {
      if (++i == given.size() || given[i].empty()) return std::nullopt;
      *option->second = given[i];
    } else if (!onlyPlain && one == "--replace") {
      arguments.replace = true;
    } else if (!onlyPlain && one == "--") {
      onlyPlain = true;
    } else if (!onlyPlain && one.size() > 1 && one.starts_with('-')) {
      return std::nullopt;
    } else {
      plain.push_back(one);
    }
  }
  if (plain.size() != 2 || plain[0].empty() || plain[1].empty()) return std::nullopt;
  arguments.archive = plain[0];
  arguments.folder = plain[1];
  return arguments;
}

std::vector<TeamText> TeamsOfGame(const Season& season, const std::string& id, std::string& told) {
  const auto game = std::ranges::find(season.games, id, &Game::id);
  if (game == season.games.end()) {
    throw ProgramError(error_number::kInvalidCall,
                       "There is no game \"" + id +
                           "\" in the archive. A game's name is the home "
                           "team, the date and a number, such as " +
                           season.games.front().id + ".");
  }
  GameTeams made = MakeGameTeams(season, *game, LineForm{});
  for (const std::string& alike : made.alike) told += alike + '\n';
  return {std::move(made.teams[0]), std::move(made.teams[1])};
}

std::vector<TeamText> AllTeams(const Season& season) {
  std::vector<TeamText> teams;
  for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
    const Club& told = season.clubs[club];
    // A roster of a club that is none, as that of an All-Star game, makes no team.
    if (told.men.empty() || (told.games.empty() && !told.listed)) continue;
    teams.push_back(MakeTeamText(season, club, LineUpUsedMost(season, club), LineForm{}));
  }
  return teams;
}

void TellFaults(const Season& season, std::string& errors) {
  for (const std::string& skipped : season.skipped) errors += skipped + '\n';
  for (const LineFault& fault : season.faults) {
    errors += fault.file + ':' + std::to_string(fault.line) + ": " + fault.what + '\n';
  }
  if (season.faultCount > 0) {
    errors += std::to_string(season.faultCount) +
              (season.faultCount == 1 ? " line makes" : " lines make") +
              " no sense; the rest counts.\n";
  }
}

void WriteTeams(const std::vector<TeamText>& teams, const Arguments& arguments,
                CommandResult& result) {
  const std::filesystem::path folder = PathOf(arguments.folder);
  int written = 0;
  for (const TeamText& team : teams) {
    const std::filesystem::path file = folder / PathOf(FileNameOf(team));
    const std::string bytes = BytesOf(team);
    const Standing standing = WhatStands(file, bytes);
    if (standing == Standing::Another && !arguments.replace) {
      result.errors += "\"" + TextOf(file) +
                       "\" is there already and differs. It stays; --replace would replace it.\n";
      result.exitCode = 1;
      continue;
    }
    if (standing != Standing::TheSame) WriteTeamFile(file, bytes);
    ++written;
    for (const std::string& gap : team.gaps) {
      result.errors += team.name + ": the archive does not tell " + gap + ".\n";
    }
    for (const std::string& name : team.leftOut) {
      result.errors += team.name + ": no room for " + name + ".\n";
    }
  }
  result.output += std::to_string(written) + (written == 1 ? " team file in" : " team files in") +
                   " \"" + TextOf(folder) + "\".\n";
}

}  // namespace

CommandResult RunTeams(Archives& archives, const std::vector<std::string>& arguments) {
  CommandResult result;
  const auto understood = Understood(arguments);
  if (!understood) {
    result.exitCode = 2;
    result.errors = std::string("Usage: ") + kTeamsUsage + "\n";
    return result;
  }
  try {
    const std::unique_ptr<Archive> archive =
        archives.OpenArchive(PathOf(understood->archive), Always);
    const Season season = *ReadSeason(*archive, Always);
    TellFaults(season, result.errors);
    const std::vector<TeamText> teams = understood->game.empty()
                                            ? AllTeams(season)
                                            : TeamsOfGame(season, understood->game, result.errors);
    if (!understood->batting.empty()) {
      WriteTeamFile(PathOf(understood->batting), BattingTable(season));
    }
    if (!understood->pitching.empty()) {
      WriteTeamFile(PathOf(understood->pitching), PitchingTable(season));
    }
    result.output = std::to_string(season.games.size()) +
                    (season.games.size() == 1 ? " game read.\n" : " games read.\n");
    WriteTeams(teams, *understood, result);
    result.output += std::string(kOwnersNotice) + '\n';
  } catch (const ProgramError& error) {
    result.exitCode = 1;
    result.errors += std::string(error.what()) + '\n';
  }
  return result;
}

}  // namespace dtb::seasons
