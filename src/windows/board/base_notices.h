// What the board says by itself while it keeps the bases. Each holds nothing back.
#pragma once

#include <QLabel>
#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "game/board.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// Panels under the scoreboard, one at a time: the offer to keep the bases, once in the program's
// life; that another runner may have been out, or that a runner may have stopped at third, until
// the next play; and that the game is over.
class BaseNotices : public QObject {
  Q_OBJECT
 public:
  BaseNotices(Board& board, Scene& scene, QWidget* park);

  // The next outcome and its boxes: what was said of the last play goes, until Refresh.
  void Withdraw();
  void Refresh();

 signals:
  void statsWanted();

 private:
  struct Notice {
    Panel* panel = nullptr;
    QLabel* words = nullptr;
  };
  struct Choice {
    const char* name;
    QString caption;
    QString tip;
    std::function<void()> operation;
  };
  Notice Make(Scene& scene, QWidget* park, const char* name, const std::vector<Choice>& choices);
  void Show(const Notice& notice, bool shown, const QString& words);

  Board& board_;
  Notice offer_;
  Notice another_;
  Notice scored_;
  Notice over_;
  bool offering_ = false;
  std::string closed_;  // the final score that the person has closed
};

}  // namespace dtb
