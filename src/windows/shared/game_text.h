// Text fields of the game, whose letters can be taken back.
#pragma once

#include <QLineEdit>

#include "game/board.h"
#include "windows/shared/bind.h"

namespace dtb {

// Ties a text field to a field of the game, as BindText does. What the person types until the focus
// leaves is one step of the history, under this name; Esc takes that step back and leaves. Ctrl + Z
// in the field is the game's, not the field's own.
void BindGameText(QLineEdit* edit, Field<std::string>& field, Board& board, const char* name);

}  // namespace dtb
