// Box score and story as markup of a page.
#pragma once

#include <string>

#include "record/box_score.h"
#include "record/story.h"

namespace dtb {

// The tables and notes, without a heading; classes "box", "box-notes".
[[nodiscard]] std::string BoxHtml(const BoxScore& box);
// The scoring plays, then the half-innings; class "story".
[[nodiscard]] std::string StoryHtml(const Story& story);

}  // namespace dtb
