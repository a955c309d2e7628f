#include "game/keep_bases.h"

#include <algorithm>

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "game/bases.h"
#include "game/game_pieces.h"
#include "game/gate.h"
#include "game/history.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

constexpr const char* kOn = "1";
constexpr const char* kOff = "0";

bool PiecesStand(const BoardState& state) {
  const std::string& batter = state.lbl_Selected.value();
  return std::ranges::any_of(state.pieces, [&batter](const GamePiece& piece) {
    return !piece.free() && piece.tag.value() != batter;
  });
}

}  // namespace

void ReadKeepBases(Board& board) {
  board.state.cb_KeepBases.Set(
      board.platform.settings.Read(settings::kLabels, settings::kKeepBases, kOff) == kOn);
}

void KeepBasesClicked(Board& board) {
  Trapped(board.platform.boxes, [&] {
    const bool on = KeepsBases(board.state);
    {
      const Gesture gesture(board, "KEEP THE BASES");
      ClearBases(board);
      if (on) LeaveOnePieceEach(board.state);
    }
    if (on && PiecesStand(board.state)) {
      board.platform.boxes.Notify("Drag each runner's piece to his base.");
    }
    board.platform.settings.Write(settings::kLabels, settings::kKeepBases, on ? kOn : kOff);
  });
}

bool OffersToKeepBases(Board& board) {
  return BothTeamsLoaded(board.state) && !KeepsBases(board.state) &&
         board.platform.settings.Read(settings::kLabels, settings::kKeepBasesOffered, kOff) != kOn;
}

void AnswerOffer(Board& board, bool turnOn) {
  Trapped(board.platform.boxes, [&] {
    if (turnOn) {
      board.state.cb_KeepBases.Set(true);
      KeepBasesClicked(board);
    }
    board.platform.settings.Write(settings::kLabels, settings::kKeepBasesOffered, kOn);
  });
}

}  // namespace dtb
