#include "windows/shared/board_type.h"

#include <QApplication>
#include <QEvent>
#include <QToolTip>

#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {

BoardType::BoardType(QWidget* board) : QObject(board), board_(board) {
  board->installEventFilter(this);
  Apply();
}

bool BoardType::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Resize) Apply();
  return false;
}

void BoardType::Apply() {
  const QFont font = look::Font(look::kBody * TypeScale(board_));
  if (font.pixelSize() == pixels_) return;
  pixels_ = font.pixelSize();
  QApplication::setFont(font, "QMenu");
  QToolTip::setFont(font);
}

}  // namespace dtb
