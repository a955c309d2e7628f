#include "teams/photo_folder.h"

#include "base/settings_keys.h"

namespace dtb {

EditedLabel PhotoFolder(BoardState& state) {
  return {state.lbl_PhotoPath, state.Text1, state.Text1_visible, settings::kPhotoPath,
          "The folder of the player photos"};
}

}  // namespace dtb
