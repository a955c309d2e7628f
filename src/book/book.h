// All seasons of the shelf, read for their book.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "book/careers.h"
#include "book/chapter.h"
#include "platform/platform.h"
#include "sheet/sheet_plan.h"

namespace dtb::book {

// A season that the book has not, and why.
struct LeftOut {
  std::string name;
  std::string why;  // sentences
};

struct Book {
  std::vector<Chapter> chapters = {};  // in the order of their first games
  Careers careers = {};
  std::vector<std::string> empty = {};  // seasons without a game
  std::vector<LeftOut> leftOut = {};    // those that cannot be read, or lack something

  [[nodiscard]] const SeasonLine& LineOf(const CareerLine& place) const {
    return chapters[place.chapter].lines[place.line];
  }
};

// Reads one season after the other. The progress hears the share that is done; nothing once it says
// no. A season that cannot be read whole is left out whole.
[[nodiscard]] std::optional<Book> ReadBook(Platform& platform, const ExportProgress& progress);

}  // namespace dtb::book
