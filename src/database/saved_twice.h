// Games that stand in the database under two GameIDs.
#pragma once

#include <optional>
#include <string>

#include "base/stat_grid.h"
#include "platform/database.h"

namespace dtb {

struct SavedTwice {
  std::string words;  // a sentence: which game, and how many more there are
  std::string again;  // the GameID under which it was saved the second time
};

// Looks among all line scores for games with the same teams, lines and batting rows. Nothing if
// there is none. Throws ProgramError.
[[nodiscard]] std::optional<SavedTwice> FindSavedTwice(DatabaseReader& database,
                                                       const StatGrid& lineScores);

}  // namespace dtb
