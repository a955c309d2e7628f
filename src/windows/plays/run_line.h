// A run of a play: who scored, to whom it is charged, and two marks.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>

#include "game/plays.h"

namespace dtb {

class RunLine : public QWidget {
  Q_OBJECT
 public:
  // `number` counts the runs of a play from 0.
  RunLine(int number, QWidget* parent);

  void ShowRun(const Move& run);

 signals:
  // The person has set or taken off a mark.
  void battedInWanted(bool on);
  void earnedWanted(bool on);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QCheckBox* AddMark(const QByteArray& name, const QString& caption);
  void FitWords();

  QString words_;
  QLabel* label_;
  QCheckBox* battedIn_;
  QCheckBox* earned_;
};

}  // namespace dtb
