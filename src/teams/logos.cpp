#include "teams/logos.h"

#include "base/paths.h"
#include "game/history.h"

namespace dtb {

namespace {

void ShowDefaultLogo(Board& board, const SideFields& fields) {
  const auto file = board.platform.programFolder / "Logos" / fields.defaultLogo;
  fields.logo.Set(board.platform.pictures.Load(file).value_or(Picture{}));
}

void ShowLogo(const SideFields& fields, const Picture& logo) {
  fields.logo.Set(logo);
  fields.sheetLogo.Set(logo);
}

}  // namespace

void ShowDefaultLogos(Board& board) {
  for (const Side side : {Side::Visitors, Side::Home}) ShowDefaultLogo(board, SideOf(board, side));
}

void LoadLogo(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const auto folder = board.platform.programFolder / "Logos";
  Pictures& pictures = board.platform.pictures;
  if (const auto logo = pictures.Load(folder / PathOf(fields.team.value() + ".jpg"))) {
    ShowLogo(fields, *logo);
  } else if (fields.logo.value().empty()) {
    ShowDefaultLogo(board, fields);
  }
}

void ChooseLogo(Board& board, Side side) {
  const Gesture gesture(board, "logo, " + SideOf(board, side).team.value());
  const auto file =
      board.platform.dialogs.OpenFile({"Open Image", board.platform.programFolder / "Logos",
                                       "Graphic Files (*.bmp;*.jpg)|*.bmp;*.jpg", true});
  if (!file) return;
  const SideFields fields = SideOf(board, side);
  if (const auto logo = board.platform.pictures.Load(*file)) {
    ShowLogo(fields, *logo);
  } else {
    board.platform.boxes.Show(board.platform.pictures.WhyNone(*file), BoxIcon::Warning,
                              "Open Image");
  }
}

}  // namespace dtb
