#include "aids/edited_label.h"

#include "base/paths.h"
#include "base/program_error.h"
#include "base/settings_keys.h"
#include "platform/trapped.h"

namespace dtb {

bool BeginEdit(Platform& platform, const EditedLabel& fields) {
  if (!platform.keyboard.ControlHeld() || fields.editing.value()) return false;
  fields.edit.Set(fields.label.value());
  fields.editing.Set(true);
  return true;
}

void SaveEdit(Platform& platform, const EditedLabel& fields) {
  if (fields.editing.value()) {
    fields.label.Set(fields.edit.value());
    fields.editing.Set(false);
  }
  Trapped(platform.boxes,
          [&] { platform.settings.Write(settings::kLabels, fields.key, fields.label.value()); });
}

void ChooseFolder(Platform& platform, const EditedLabel& fields) {
  const auto folder = platform.dialogs.OpenFolder(fields.folderTitle, PathOf(fields.edit.value()));
  if (!folder) return;
  fields.edit.Set(TextOf(*folder));
  SaveEdit(platform, fields);
}

void CancelEdit(const EditedLabel& fields) { fields.editing.Set(false); }

}  // namespace dtb
