// The type of what Qt shows by itself: menus and tips.
#pragma once

#include <QObject>
#include <QWidget>

namespace dtb {

// Gives menus and tips the type of the board, whatever its size, for as long as it lives.
class BoardType : public QObject {
  Q_OBJECT
 public:
  explicit BoardType(QWidget* board);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Apply();

  QWidget* board_;
  int pixels_ = 0;
};

}  // namespace dtb
