// The game told play by play, in plain English and from the plays alone.
#pragma once

#include <string>
#include <vector>

#include "record/game_record.h"

namespace dtb {

struct StoryHalf {
  std::string title;                        // "Top of the 3rd, Boston 2020 at bat, Tanaka pitching"
  std::vector<std::string> sentences = {};  // "Devers lines out. One out."
  // "2 runs, 2 hits, 1 left on base. Boston 2020 2, New York Yankees 2020 5."
  std::string summary = {};
};

struct Story {
  std::string headline;              // "New York Yankees 2020 5, Boston 2020 2"
  std::vector<std::string> scoring;  // the plays that brought runs
  std::vector<StoryHalf> halves;
};

// Nothing but a headline for a game without plays.
[[nodiscard]] Story StoryOf(const GameRecord& game);

// The whole story; lines end in "\n", a paragraph is one line.
[[nodiscard]] std::string StoryText(const Story& story);

}  // namespace dtb
