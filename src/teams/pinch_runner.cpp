#include "teams/pinch_runner.h"

#include <optional>

#include "base/program_error.h"
#include "game/base_running.h"
#include "game/bases.h"
#include "game/batting_order.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/new_game.h"
#include "game/play_words.h"
#include "platform/trapped.h"
#include "teams/lineup_edit.h"
#include "teams/sheet_line.h"

namespace dtb {
namespace {

// The row of the first nine that has this player.
std::optional<int> RowInOrder(const LineupList& list, const std::string& name) {
  for (int row = 0; row < kStarters; ++row) {
    if (list.HasRow(row) && PlayerAt(list, row) == name) return row;
  }
  return std::nullopt;
}

const GamePiece& PieceAt(const Board& board, int piece) {
  return board.state.pieces.at(static_cast<std::size_t>(piece));
}

// The piece stays where it stands.
void GivePiece(Board& board, int piece, const std::string& name) {
  GamePiece& given = board.state.pieces.at(static_cast<std::size_t>(piece));
  const auto photo = board.platform.pictures.Load(PhotoFile(board.state, name));
  given.tag.Set(name);
  given.picture.Set(photo.value_or(Picture{}));
  given.store.Set(photo.value_or(Picture{}));
  given.plate.Set(photo ? "" : name);
}

}  // namespace

Replacement ReplacementOn(Board& board, Side side, int row, int piece) {
  const SideFields fields = SideOf(board, side);
  const std::string name = PlayerAt(fields.list, row);
  const GamePiece& target = PieceAt(board, piece);
  const std::string& runner = target.tag.value();
  if (name.empty()) return {false, "There is no player in this row."};
  if (!fields.atBat.value()) return {false, name + " plays for the team in the field."};
  if (row < kStarters) return {false, name + " is in the batting order already."};
  if (BaseOf(board.state, name) > 0) return {false, name + " is on base already."};
  if (target.free() || runner.empty()) return {false, "There is nobody on this game piece."};
  const auto place = RowInOrder(fields.list, runner);
  if (!place) return {false, runner + " is no longer in the batting order."};
  const bool bats = RowOfBatter(board, side) == place;
  return {true, name + (bats ? " bats for " : " runs for ") + runner};
}

std::vector<int> PiecesToComeInOn(Board& board, Side side, int row) {
  std::vector<int> pieces;
  for (int piece = 0; piece < kPieces; ++piece) {
    if (ReplacementOn(board, side, row, piece).possible) pieces.push_back(piece);
  }
  return pieces;
}

void ComeIn(Board& board, Side side, int row, int piece) {
  if (RefusesAfterSave(board)) return;
  const Replacement replacement = ReplacementOn(board, side, row, piece);
  if (!replacement.possible) {
    board.platform.boxes.Show(replacement.words, BoxIcon::Exclamation);
    return;
  }
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, replacement.words);
    const SideFields fields = SideOf(board, side);
    const std::string name = PlayerAt(fields.list, row);
    const std::string runner = PieceAt(board, piece).tag.value();
    const int place = RowInOrder(fields.list, runner).value();
    const bool bats = RowOfBatter(board, side) == place;
    fields.list.Swap(place, row);
    if (bats) board.state.lbl_Selected.Set(name);
    if (board.state.LastRunnerClicked == runner) board.state.LastRunnerClicked = name;
    GivePiece(board, piece, name);
    TakeOverBase(board.state, runner, name);
    GiveSheetLine(board, side, name);
    MarkPlayed(board, side, name);
    HighlightPlaceInOrder(board, side);
    board.log.Append(name + (bats ? "_____[bats for " : "_____[runs for ") + runner + "]");
  });
  board.platform.boxes.Notify(replacement.words);
}

void BeginOnBase(Board& board, Side side, int row, int base, const GameMemento& before) {
  const std::string name = PlayerAt(SideOf(board, side).list, row);
  const Gesture gesture(board, std::string("on ") + BaseName(base) + ", " + name,
                        RowKey(board, side));
  Restore(board, before);
  PutOnBase(board, name, base);
  if (BaseOf(board.state, name) != base) return;  // it could not be
  GiveSheetLine(board, side, name);
  MarkPlayed(board, side, name);
}

}  // namespace dtb
