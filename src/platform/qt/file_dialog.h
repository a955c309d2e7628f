// The looks of the file dialogs of our own making, where the system gives none.
#pragma once

#include <QFileDialog>
#include <QLabel>

namespace dtb {

// Wide enough for names and dates, in the type of the menus, with a list of details.
void DressFileDialog(QFileDialog& dialog);

// Shows each picture that the person comes to before he chooses it. The dialog is one of our own
// making then.
void AddPicturePreview(QFileDialog& dialog);

}  // namespace dtb
