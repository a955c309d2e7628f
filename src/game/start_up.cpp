#include "game/start_up.h"

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "game/game_pieces.h"
#include "game/innings.h"
#include "game/keep_bases.h"
#include "platform/trapped.h"
#include "teams/lineup_edit.h"
#include "teams/logos.h"

namespace dtb {
namespace {

void Connect(Board& board) {
  board.state.tb_OUT.SetChangeOperation([&board] { OutsChanged(board); });
  board.state.tb_OutsCount.SetChangeOperation([&board] { OutsCountChanged(board); });
  for (const Side side : {Side::Visitors, Side::Home}) {
    SideOf(board, side).list.SetSelectedEvent([&board, side] { SelectBatter(board, side); });
  }
}

}  // namespace

void StartUp(Board& board) {
  Trapped(board.platform.boxes, [&] {
    Connect(board);
    PlacePiecesAtStart(board.state);
    SetUpSheet(board.sheet);
    ShowDefaultLogos(board);
    board.state.lbl_PhotoPath.Set(
        board.platform.settings.Read(settings::kLabels, settings::kPhotoPath, ""));
    ReadKeepBases(board);
  });
}

bool ConfirmExit(Board& board) {
  const bool end =
      board.platform.boxes.Ask({"Don't forget to go to the Stats Form and save all stats "
                                "using 'SAVE TO DB'.\n\n"
                                "Do you still want to EXIT?",
                                "EXIT program?"});
  if (end) board.platform.sounds.Silence();
  return end;
}

void ToggleOptions(Board& board) {
  board.state.fra_Options_visible.Set(!board.state.fra_Options_visible.value());
}

void ToggleBaseTracker(Board& board) {
  board.state.pb_BaseTracker_visible.Set(!board.state.pb_BaseTracker_visible.value());
}

}  // namespace dtb
