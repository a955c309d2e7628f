#include "teams/team_load.h"

#include "aids/logos.h"
#include "game/history.h"
#include "platform/paths.h"
#include "shell/program_error.h"
#include "shell/utf8.h"
#include "teams/batting_order.h"
#include "teams/player_name.h"
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
  fields.logo.Set({});
}

void FillSide(Board& board, Side side, const std::filesystem::path& file) {
  const SideFields fields = SideOf(board, side);
  ReadTeamFile(file, [&](std::string line) { fields.list.Append(std::move(line)); });
  fields.team.Set(TextOf(file.filename()));
  fields.team.Set(WithoutExtension(fields.team.value()));
  FillTable(fields);
  if (fields.team.value().empty()) {
    throw ProgramError(error_number::kInvalidCall,
                       "The file name has nothing before its extension, so the team has no name.");
  }
  fields.team.Set(PlayerNameOf(fields.team.value()));
  fields.sheetTeam.Set(fields.team.value());
  board.sheet.grd_BoxScore.SetText(fields.boxScoreRow, 0, fields.sheetTeam.value());
  for (int row = 1; row <= kStarters; ++row) fields.grid.SetText(row, stat_column::kPlayed, "1");
  LoadLogo(board, side);
}

}  // namespace

void LoadTeam(Board& board, Side side) {
  Gesture gesture(board, side == Side::Visitors ? "LOAD Visitor team" : "LOAD Home team");
  EmptySide(board, side);
  const auto file = board.platform.dialogs.OpenFile(
      {side == Side::Visitors ? "LOAD Visitor team" : "LOAD Home team",
       board.platform.programFolder / "Teams",
       "Team files (*.txt;*.csv*)|*.txt;*.csv*|Text (*.txt)|*.txt|Csv (*.csv*)|*.csv*"});
  if (!file) return;
  gesture.SetName("LOAD " + TextOf(file->filename()));
  OpenTeam(board, side, *file);
}

void ReplaceTeam(Board& board, Side side, const std::filesystem::path& file) {
  const Gesture gesture(board, "LOAD " + TextOf(file.filename()));
  EmptySide(board, side);
  OpenTeam(board, side, file);
}

void OpenTeam(Board& board, Side side, const std::filesystem::path& file) {
  const Gesture gesture(board, "LOAD " + TextOf(file.filename()));
  Trapped(board.platform.boxes, [&] { FillSide(board, side, file); });
  // The batter stays where the same team was loaded again.
  if (const auto batter = RowOfBatter(board, side)) SideOf(board, side).list.Highlight(*batter);
}

}  // namespace dtb
