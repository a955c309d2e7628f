#include "teams/team_load.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/utf8.h"
#include "game/batting_order.h"
#include "game/history.h"
#include "game/new_game.h"
#include "game/player_name.h"
#include "platform/trapped.h"
#include "teams/logos.h"
#include "teams/pitchers.h"
#include "teams/team_file.h"

namespace dtb {
namespace {

constexpr std::size_t kExtensionLength = 4;  // ".txt", ".csv"

// Where the last `count` characters of a UTF-8 text begin; nothing if it has fewer.
std::optional<std::size_t> LastCharacters(const std::string& text, std::size_t count) {
  std::size_t place = text.size();
  for (std::size_t found = 0; found < count; ++found) {
    if (place == 0) return std::nullopt;
    do {
      --place;
    } while (place > 0 && ContinuesCharacter(text[place]));
  }
  return place;
}

std::string WithoutExtension(const std::string& fileName) {
  const auto cut = LastCharacters(fileName, kExtensionLength);
  if (!cut) {
    throw ProgramError(
        error_number::kInvalidCall,
        "The file name \"" + fileName +
            "\" is too short. A team file's name is the team's name and .txt or .csv.");
  }
  return fileName.substr(0, *cut);
}

void FillTable(const SideFields& fields) {
  for (int row = 1; row <= fields.list.size(); ++row) {
    if (row >= fields.grid.rows()) {
      throw ProgramError(error_number::kSubscriptOutOfRange,
                         "The team file has " + std::to_string(fields.list.size()) +
                             " players, but the statistics sheet has room for " +
                             std::to_string(fields.grid.rows() - 1) + " on a side.");
    }
    fields.grid.SetText(row, stat_column::kBatter,
                        PlayerNameOf(fields.list.entries()[static_cast<std::size_t>(row - 1)]));
  }
}

void EmptySide(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  fields.list.Clear();
  fields.loaded.Clear();
  fields.logo.Set({});
}

// Of a game that is not under way: nothing of other teams stays on the sheet.
void EmptySheet(Board& board, Side side) {
  StatGrid& grid = SideOf(board, side).grid;
  for (int row = 1; row < grid.rows(); ++row) {
    grid.SetText(row, stat_column::kBatter, "");
    grid.SetText(row, stat_column::kPlayed, "");
  }
  TakeOffPitcher(board, side);
}

// The lines are in the list; `name` is the team's. A name of nothing is refused at the end.
void FillSide(Board& board, Side side, const std::string& name) {
  const SideFields fields = SideOf(board, side);
  fields.team.Set(name);
  FillTable(fields);
  // The batter stays where the same team was loaded again.
  if (const auto batter = RowOfBatter(board, side)) fields.list.Highlight(*batter);
  if (fields.team.value().empty()) {
    throw ProgramError(error_number::kInvalidCall,
                       "The file name has nothing before its extension, so the team has no name.");
  }
  fields.team.Set(PlayerNameOf(fields.team.value()));
  fields.sheetTeam.Set(fields.team.value());
  board.sheet.grd_BoxScore.SetText(fields.boxScoreRow, 0, fields.sheetTeam.value());
  for (int row = 1; row <= kStarters; ++row) fields.grid.SetText(row, stat_column::kPlayed, "1");
  LoadLogo(board, side);
  fields.loaded = fields.list;
}

void FillFromFile(Board& board, Side side, const std::filesystem::path& file) {
  const SideFields fields = SideOf(board, side);
  ReadTeamFile(file, [&](std::string line) { fields.list.Append(std::move(line)); });
  fields.team.Set(TextOf(file.filename()));
  FillSide(board, side, WithoutExtension(fields.team.value()));
}

// Names that both lists have, in the visitors' order.
std::vector<std::string> CommonNames(Board& board) {
  std::unordered_set<std::string> home;
  for (const std::string& entry : SideOf(board, Side::Home).list.entries()) {
    home.insert(PlayerNameOf(entry));
  }
  std::vector<std::string> common;
  for (const std::string& entry : SideOf(board, Side::Visitors).list.entries()) {
    std::string name = PlayerNameOf(entry);
    if (!name.empty() && home.erase(name) > 0) common.push_back(std::move(name));
  }
  return common;
}

void TellCommonNames(Board& board) {
  constexpr std::size_t kMostNames = 6;
  const std::vector<std::string> names = CommonNames(board);
  if (names.empty()) return;
  std::string told;
  for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) {
    told += (i == 0 ? "\"" : ", \"") + names[i] + '"';
  }
  if (names.size() > kMostNames) {
    told += " and " + std::to_string(names.size() - kMostNames) + " more";
  }
  board.platform.boxes.Show("Both teams have " + told +
                                ".\n\nThe board knows a player by his name alone, "
                                "so the figures of two players with the same name can mix. "
                                "Give each his own name in the team file and load it again.",
                            BoxIcon::Exclamation);
}

}  // namespace

void LoadTeam(Board& board, Side side) {
  const auto file = board.platform.dialogs.OpenFile(
      {side == Side::Visitors ? "LOAD Visitor team" : "LOAD Home team",
       board.platform.programFolder / "Teams",
       "Team files (*.txt;*.csv*)|*.txt;*.csv*|Text (*.txt)|*.txt|Csv (*.csv*)|*.csv*"});
  if (!file) return;
  const LoadInto place = WhereToLoad(board, "New game with this team");
  if (place == LoadInto::Nowhere) return;
  if (place == LoadInto::NewGame && !NewGame(board)) return;
  ReplaceTeam(board, side, *file);
}

bool ReplaceTeam(Board& board, Side side, const std::filesystem::path& file) {
  const Gesture gesture(board, "LOAD " + TextOf(file.filename()));
  EmptySide(board, side);
  return OpenTeam(board, side, file);
}

bool ReplaceTeams(Board& board, const std::array<TeamLines, 2>& teams, const std::string& step) {
  return Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, step);
    const bool underWay = GameUnderWay(board);
    for (const Side side : {Side::Visitors, Side::Home}) {
      EmptySide(board, side);
      if (!underWay) EmptySheet(board, side);
    }
    for (const Side side : {Side::Visitors, Side::Home}) {
      const TeamLines& team = teams.at(side == Side::Visitors ? 0 : 1);
      const SideFields fields = SideOf(board, side);
      for (const std::string& line : team.lines) fields.list.Append(line);
      FillSide(board, side, team.name);
      if (!team.starter.empty() && fields.pitcher.value().empty()) {
        NamePitcher(board, side, team.starter);
      }
    }
    TellCommonNames(board);
  });
}

bool OpenTeam(Board& board, Side side, const std::filesystem::path& file) {
  return Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, "LOAD " + TextOf(file.filename()));
    FillFromFile(board, side, file);
    TellCommonNames(board);
  });
}

}  // namespace dtb
