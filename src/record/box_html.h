// Box score and story as markup of a page.
#pragma once

#include <string>

#include "record/box_score.h"
#include "record/story.h"

namespace dtb {

// Both teams below each other, or side by side.
enum class BoxColumns { One, Two };

// The tables and notes, without a heading; classes "box", "box-notes".
[[nodiscard]] std::string BoxHtml(const BoxScore& box, BoxColumns columns);
// The scoring plays, then the half-innings; class "story".
[[nodiscard]] std::string StoryHtml(const Story& story);

}  // namespace dtb
