// The players of all seasons, each with his lines.
#pragma once

#include <vector>

#include "book/chapter.h"

namespace dtb::book {

// How it is known that lines of several seasons are one player's.
enum class KnownBy { Id, Name, Both };

struct CareerLine {
  int chapter = 0;
  int line = 0;  // of the chapter
};

struct Career {
  std::string name;  // of his last season
  KnownBy by = KnownBy::Name;
  std::string id = {};                 // the archive's
  std::string apart = {};              // the team that tells him from namesakes; "": none needed
  std::vector<int> chapters = {};      // in which he played, each once
  std::vector<int> chaptersById = {};  // those of them in which his id is known
  std::vector<CareerLine> lines = {};
  std::optional<BattingTotals> batting = {};
  std::optional<PitchingTotals> pitching = {};
  // Of his teams, in a season with several those of the team that played the most.
  double teamGames = 0;
};

struct Careers {
  std::vector<Career> all;  // in the order of names
  // By chapter and person: whose career.
  std::vector<std::vector<int>> of;
};

// Puts the persons of all chapters together. One id of the archive is one player. A person without
// one goes by his name: to the one player of that name who has an id and did not play in that
// season otherwise, else to all others of that name. Where a season has several of a name, nothing
// tells who of them played in another season, so that each team's is a player of his own.
[[nodiscard]] Careers MakeCareers(const std::vector<Chapter>& chapters);

}  // namespace dtb::book
