// The plays of a game as the rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <vector>

#include "game/board.h"
#include "game/plays.h"

namespace dtb {

// A row a play, the oldest first; its text is the play in words, with inning and outs.
class PlaysModel : public QAbstractListModel {
  Q_OBJECT
 public:
  PlaysModel(Board& board, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  // The row must exist.
  [[nodiscard]] const Play& PlayAt(int row) const { return plays_[static_cast<std::size_t>(row)]; }
  // "Top of inning 3, Boston" over the first play of a half-inning; else "".
  [[nodiscard]] QString HeadingOf(int row) const;

  // Takes over the plays of the board. Rows that stay keep their selection.
  void Update();

 private:
  Board& board_;
  std::vector<Play> plays_;
};

// The half-innings stand under headings, which belong to their first row.
class PlaysList : public QListView {
  Q_OBJECT
 public:
  PlaysList(PlaysModel& model, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace dtb
