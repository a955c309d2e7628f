// The rows of a side's line-up: what is told of each, and how much room its texts take.
#pragma once

#include <QAbstractListModel>
#include <QFont>
#include <string>
#include <vector>

#include "game/batting_order.h"
#include "game/board.h"
#include "windows/board/next_step.h"
#include "windows/shared/line_up_entry.h"

namespace dtb {

inline constexpr int kLineupGap = 10;   // pixels between a name and what is remarked of the player
inline constexpr int kLineupSlack = 2;  // pixels by which a text may be wider than its letters

// What else the model tells of a row.
inline constexpr int kBatterRole = Qt::UserRole;    // he bats now
inline constexpr int kNoteRole = Qt::UserRole + 1;  // a word about him
inline constexpr int kNextRole = Qt::UserRole + 2;  // the word is the next step; 2 while it flashes

extern const QString kDueNote;

class LineupModel : public QAbstractListModel {
  Q_OBJECT
 public:
  LineupModel(Board& board, Side side, const NextStep& next, QObject* parent);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // The list changed in any way.
  void Refresh();

  // A text and its width in pixels.
  struct Measured {
    QString text;
    int width = 0;
  };
  struct Row {
    Measured name;
    Measured shortName;  // the whole one where a short one would be that of two players
    Measured remark;
  };
  // The rows in names of a font, and the type and the column of their remarks.
  struct Layout {
    QFont remarks;
    int left = 0;
    std::vector<Row> rows = {};
  };
  // In rows of so many pixels. It is kept, since shaping texts is most of what painting costs.
  [[nodiscard]] const Layout& LayoutIn(const QFont& font, int room) const;

 private:
  // What stands at the right of a row: who is due, and who has no line on the sheet.
  [[nodiscard]] QString NoteOf(int row) const;
  // The row of the first batter, as long as he is the next step.
  [[nodiscard]] bool IsNext(int row) const;
  void MeasureNames(const QFont& font) const;
  void FitRemarks(const QFont& font, int room) const;

  Board& board_;
  Side side_;
  LineupList& list_;
  const NextStep& next_;
  int shownRows_ = 0;
  mutable Layout layout_;  // of these entries, in the font and the room below
  mutable std::vector<std::string> measuredEntries_;
  mutable QFont measuredFont_;
  mutable int measuredRoom_ = -1;  // below 0: nothing is measured yet
};

}  // namespace dtb
