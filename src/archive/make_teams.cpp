#include "archive/make_teams.h"

#include <algorithm>
#include <memory>

#include "archive/figures_csv.h"
#include "archive/lineup_choice.h"
#include "archive/season_files.h"
#include "archive/season_reader.h"
#include "archive/team_text.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/words.h"

namespace dtb::archive {
namespace {

void RefuseUnknownWords(const std::string& form, bool asPitcher) {
  const std::vector<std::string> unknown = UnknownWords(form, asPitcher);
  if (unknown.empty()) return;
  throw ProgramError(error_number::kInvalidCall,
                     "The form for " + std::string(asPitcher ? "pitchers" : "batters") +
                         " has a word that is not known: " + unknown.front() + ". The words are " +
                         KnownWords(asPitcher) + '.');
}

std::vector<TeamText> TeamsOfGame(const Season& season, const std::string& id, const LineForm& form,
                                  std::string& told) {
  const auto game = std::ranges::find(season.games, id, &Game::id);
  if (game == season.games.end()) {
    throw ProgramError(error_number::kInvalidCall,
                       "There is no game \"" + id +
                           "\" in the archive. "
                           "A game's name is the home team, the date and a number, such as " +
                           season.games.front().id + ".");
  }
  GameTeams made = MakeGameTeams(season, *game, form);
  for (const std::string& alike : made.alike) told += alike + '\n';
  return {std::move(made.teams[0]), std::move(made.teams[1])};
}

std::vector<TeamText> AllTeams(const Season& season, const TeamsRequest& request) {
  std::vector<TeamText> teams;
  for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
    const Club& told = season.clubs[club];
    // A roster of a club that is none, as that of an All-Star game, makes no team.
    if (told.players.empty() || (told.games.empty() && !told.listed)) continue;
    teams.push_back(
        MakeTeamText(season, club, LineUpOfSeason(season, club, request.nine), request.form));
  }
  return teams;
}

void TellFaults(const Season& season, std::string& errors) {
  for (const std::string& skipped : season.skipped) errors += skipped + '\n';
  for (const LineFault& fault : season.faults) {
    errors += fault.file + ':' + std::to_string(fault.line) + ": " + fault.what + '\n';
  }
  if (season.faultCount > 0) {
    errors += FaultCountText(season);
  }
}

void WriteTeams(const std::vector<TeamText>& teams, const TeamsRequest& request,
                CommandResult& result) {
  const std::filesystem::path folder = PathOf(request.folder);
  int written = 0;
  for (const TeamText& team : teams) {
    const std::filesystem::path file = folder / PathOf(FileNameOf(team));
    const std::string bytes = BytesOf(team);
    const FileState standing = WhatStands(file, bytes);
    if (standing == FileState::Another && !request.replace) {
      result.errors += "\"" + TextOf(file) +
                       "\" exists already and differs. It was kept; --replace replaces it.\n";
      result.exitCode = 1;
      continue;
    }
    if (standing != FileState::TheSame) WriteTeamFile(file, bytes);
    ++written;
    for (const std::string& gap : team.gaps) {
      result.errors += team.name + ": the archive does not say " + gap + ".\n";
    }
    for (const std::string& name : team.leftOut) {
      result.errors += team.name + ": no room for " + name + ".\n";
    }
  }
  result.output += Counted(written, "team file") + " in \"" + TextOf(folder) + "\".\n";
}

}  // namespace

CommandResult MakeTeams(Archives& archives, const TeamsRequest& request) {
  CommandResult result;
  try {
    RefuseUnknownWords(request.form.batters, false);
    RefuseUnknownWords(request.form.pitchers, true);
    const std::unique_ptr<Archive> archive = archives.OpenArchive(PathOf(request.archive), Always);
    const Season season = *ReadSeason(*archive, Always);
    TellFaults(season, result.errors);
    const std::vector<TeamText> teams =
        request.game.empty() ? AllTeams(season, request)
                             : TeamsOfGame(season, request.game, request.form, result.errors);
    if (!request.batting.empty()) {
      WriteTeamFile(PathOf(request.batting), BattingTable(season));
    }
    if (!request.pitching.empty()) {
      WriteTeamFile(PathOf(request.pitching), PitchingTable(season));
    }
    result.output = Counted(std::ssize(season.games), "game") + " read.\n";
    WriteTeams(teams, request, result);
    result.output += std::string(kOwnersNotice) + '\n';
  } catch (const ProgramError& error) {
    result.exitCode = 1;
    result.errors += std::string(error.what()) + '\n';
  }
  return result;
}

}  // namespace dtb::archive
