// How much the players of a team are used, as bars in a table.
#pragma once

#include <QStyledItemDelegate>

#include "real/use.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// A row for each player: his name, a bar for each kind of use, and his mark in words. A bar is as
// long as the share of his real year that is used; a thin line stands where he really was by then,
// a thick one where his year ends.
class UseTable : public StatGridView {
  Q_OBJECT
 public:
  // The grid outlives the view.
  UseTable(const char* name, const QString& accessibleName, StatGrid& grid);

  void SetPlayers(std::vector<real::PlayerUse> players, SeasonRole role);
  [[nodiscard]] const std::vector<real::PlayerUse>& players() const { return players_; }

 private:
  StatGrid& shown_;
  std::vector<real::PlayerUse> players_;
};

}  // namespace dtb
