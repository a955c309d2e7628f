// The statistics sheet of the game in progress.
#pragma once

#include <QDialog>

#include "game/board.h"
#include "platform/qt/qt_pictures.h"

namespace dtb {

class Form2 : public QDialog {
  Q_OBJECT
 public:
  Form2(Board& board, QtPictures& pictures, QWidget* parent);
};

}  // namespace dtb
