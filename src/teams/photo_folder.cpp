#include "teams/photo_folder.h"

#include "shell/program_error.h"
#include "shell/settings_keys.h"

namespace dtb {

void ClickPhotoPath(Board& board) {
  BoardState& state = board.state;
  if (!board.platform.keyboard.FreshlyDown(Key::Control) || state.Text1_visible.value()) return;
  state.Text1.Set(state.lbl_PhotoPath.value());
  state.Text1_visible.Set(true);
}

void SavePhotoPath(Board& board) {
  BoardState& state = board.state;
  if (state.Text1_visible.value()) {
    state.lbl_PhotoPath.Set(state.Text1.value());
    state.Text1_visible.Set(false);
  }
  Trapped(board.platform.boxes, [&] {
    board.platform.settings.Write(settings::kLabels, settings::kPhotoPath,
                                  state.lbl_PhotoPath.value());
  });
}

}  // namespace dtb
