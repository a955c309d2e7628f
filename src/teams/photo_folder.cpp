#include "teams/photo_folder.h"

#include "platform/paths.h"
#include "shell/settings_keys.h"

namespace dtb {

EditedLabel PhotoFolder(BoardState& state) {
  return {state.lbl_PhotoPath, state.Text1, state.Text1_visible, settings::kPhotoPath,
          "The folder of the player photos"};
}

void ChoosePhotoFolder(Board& board) {
  const std::string& now = board.state.lbl_PhotoPath.value();
  const auto start = now.empty() ? board.platform.programFolder : PathOf(now);
  const auto folder = board.platform.dialogs.OpenFolder("Folder of the player photos", start);
  if (!folder) return;
  const EditedLabel fields = PhotoFolder(board.state);
  CancelEdit(fields);
  fields.label.Set(TextOf(*folder));
  SaveEdit(board.platform, fields);
}

}  // namespace dtb
