// A team file made of a line-up.
#pragma once

#include <string>
#include <vector>

#include "seasons/lineup_choice.h"
#include "seasons/remarks.h"

namespace dtb::seasons {

struct TeamText {
  std::string name;                  // of the team; the file is "name.txt"
  std::vector<std::string> lines;    // "Marcus Semien=SS R .223 7 HR"; at most 49
  std::vector<std::string> leftOut;  // names for which there was no room
};

// No two lines have the same name: of men of one name, all but the first of the roster get a
// number, "Luis Garcia (2)", which they keep whatever the line-up.
[[nodiscard]] TeamText MakeTeamText(const Season& season, int club, const LineUp& lineUp,
                                    const LineForm& form);

// The file's bytes: UTF-8, each line with its end.
[[nodiscard]] std::string BytesOf(const TeamText& team);

// A team's name as the board takes it from its file's name, which every file system takes.
[[nodiscard]] std::string BoardName(const std::string& teamName);

// "Oakland 2020.txt".
[[nodiscard]] std::string FileNameOf(const TeamText& team);

}  // namespace dtb::seasons
