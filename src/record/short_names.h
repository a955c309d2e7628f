// What players are called in a box score.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "record/game_record.h"

namespace dtb {

// Last names; where two players of a game share one, "A. Adams" and "B. Adams", and where that is
// the same, too, the whole names.
class ShortNames {
 public:
  explicit ShortNames(const GameRecord& game);
  [[nodiscard]] const std::string& Of(const std::string& name) const;

 private:
  std::map<std::string, std::string, std::less<>> names_;
};

}  // namespace dtb
