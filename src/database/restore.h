// The copies of the database side by side with it, and the way back to one of them.
#pragma once

#include <string>
#include <vector>

#include "base/field.h"
#include "base/stat_grid.h"
#include "platform/database_copies.h"
#include "platform/platform.h"

namespace dtb {

inline constexpr const char* kCopiesTitle = "Restore a copy";

// What the window of the copies holds while it is open.
struct CopiesState {
  StatGrid grd_Copies{1, 4};        // column 1 date and time, 2 games, 3 size; newest first
  StatGrid grd_Changes{1, 4};       // column 1 "back" or "gone", 2 game, 3 GameID
  Field<std::string> lbl_Database;  // what stands in the database now
  Field<std::string> lbl_Changes;   // what the selected copy would change
  Field<bool> canBringBack;
  std::vector<std::string> names;  // of the rows of grd_Copies
  int row = 0;                     // the selected one; 0: none
  bool broughtBack = false;        // the database is another one than at the opening
};

struct CopiesDesk {
  CopiesState& state;
  Platform& platform;
};

// Lists the copies and selects the newest.
void ListCopies(CopiesDesk& desk);

// A row of grd_Copies: tells which games would come back and which would go.
void SelectCopy(CopiesDesk& desk, int row);

// Puts the selected copy in the database's place after a question. The database of today becomes a
// copy first; if that cannot be, the person is asked. A damaged one is set aside instead.
void BringBackSelected(CopiesDesk& desk);

}  // namespace dtb
