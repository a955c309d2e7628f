#include "aids/logos.h"

#include "platform/paths.h"

namespace dtb {

void LoadLogo(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const auto folder = board.platform.programFolder / "Logos";
  Pictures& pictures = board.platform.pictures;
  if (const auto logo = pictures.Load(folder / PathOf(fields.team.value() + ".jpg"))) {
    fields.logo.Set(*logo);
    fields.sheetLogo.Set(*logo);
  } else if (fields.logo.value().empty()) {
    fields.logo.Set(pictures.Load(folder / fields.defaultLogo).value_or(Picture{}));
  }
}

void ChooseLogo(Board& board, Side side) {
  const auto file =
      board.platform.dialogs.OpenFile({"Open Image", board.platform.programFolder / "Logos",
                                       "Graphic Files (*.bmp;*.jpg)|*.bmp;*.jpg"});
  if (!file) return;
  const SideFields fields = SideOf(board, side);
  if (const auto logo = board.platform.pictures.Load(*file)) {
    fields.logo.Set(*logo);
    fields.sheetLogo.Set(*logo);
  }
}

}  // namespace dtb
