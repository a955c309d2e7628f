// What stands over a table in which a search found nothing.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <functional>

#include "windows/shared/stat_grid_view.h"

namespace dtb {

// "No match", and a button that shows all rows again. It goes as soon as the table has rows.
class NoMatch : public QWidget {
  Q_OBJECT
 public:
  explicit NoMatch(StatGridView* table);
  // A search was made; its words, and what shows all.
  void AfterSearch(const QString& wanted, std::function<void()> showAll);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool TableIsEmpty() const;
  void Place();

  StatGridView* table_;
  QLabel* words_;
  QPushButton* button_;
  std::function<void()> showAll_;
};

}  // namespace dtb
