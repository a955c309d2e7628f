// Notices at the foot of the board, for those who want no box to hold them up.
#pragma once

#include <QWidget>
#include <deque>

namespace dtb {

// Shows each message for a second and a half, the newest on top. It lies over everything and takes
// no click away.
class Notices : public QWidget {
  Q_OBJECT
 public:
  // `board`: the widget at whose foot it stands.
  explicit Notices(QWidget* board);

  // In the middle, or to the right of home plate, where they cover no batter.
  enum class Stand { Middle, Right };
  // `counted`, if there is one, stands behind the message: who and what. `scale` gives the size of
  // the type, 1 at the reference size of the board.
  void Show(const QString& message, const QString& counted, double scale, Stand stand);
  // What is shown at the moment, the newest first.
  [[nodiscard]] QStringList shown() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Notice {
    int number = 0;
    QString message;
    QString counted;
  };
  void Drop(int number);
  void Arrange();

  std::deque<Notice> notices_;  // the newest first
  int lastNumber_ = 0;
  double scale_ = 1;
  Stand stand_ = Stand::Middle;
};

}  // namespace dtb
