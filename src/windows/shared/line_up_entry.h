// A line of a line-up as it is shown.
#pragma once

#include <QString>
#include <string>

#include "game/lineup_list.h"

namespace dtb {

// The line, cut where no screen shows more; the box of the right click shows all of it.
[[nodiscard]] QString ShownEntry(const std::string& entry);

// The name, and what stands behind the first "=".
struct LineUpEntry {
  QString name;
  QString remark;
};
[[nodiscard]] LineUpEntry PartsOf(const std::string& entry);

// "D. Larkmoor" of "Desmond Larkmoor" and of "Larkmoor, Desmond", for where the whole name has no
// room. A name of one word stays.
[[nodiscard]] QString ShortName(const QString& name);

// What is remarked of a player; empty where he has no remark, or no line in this list.
[[nodiscard]] QString RemarkOf(const LineupList& list, const std::string& player);

}  // namespace dtb
