// Which lines of a season are one player's.
#pragma once

#include <vector>

#include "book/chapter.h"

namespace dtb::book {

// When the player of a line was in the season's games.
struct Presence {
  std::optional<LocalTime> first = {};
  std::optional<LocalTime> last = {};
};

// Lines of one id of the archive are one player's. Without one, lines of one name are where he left
// each team before he came to the next; else they are namesakes. Sets the persons of the chapter.
void FindPersons(Chapter& chapter, const std::vector<Presence>& presences, const ArchiveIds& ids);

}  // namespace dtb::book
