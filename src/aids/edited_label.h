// A label whose text the person edits in place and which lasts from run to run.
#pragma once

#include <string>

#include "base/field.h"
#include "platform/platform.h"

namespace dtb {

struct EditedLabel {
  Field<std::string>& label;
  Field<std::string>& edit;      // the text in the editor
  Field<bool>& editing;          // the editor is shown instead of the label
  std::string key;               // of the settings
  std::string folderTitle = {};  // of the dialog for a text that is a folder; "": it is none
};

// A click on the label: with Ctrl held its editor opens, and the result is true.
bool BeginEdit(Platform& platform, const EditedLabel& fields);

// The editor's text is taken over and stored for the next runs. A store that cannot be written is
// told; the text holds for this run then.
void SaveEdit(Platform& platform, const EditedLabel& fields);

// The person chooses the folder in a dialog; it is taken over and stored as above. Nothing changes
// if he cancels.
void ChooseFolder(Platform& platform, const EditedLabel& fields);

// The editor closes, and the text stays as it was.
void CancelEdit(const EditedLabel& fields);

}  // namespace dtb
