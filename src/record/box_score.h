// The box score of a game as newspapers print it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "record/game_record.h"
#include "record/season_to_date.h"

namespace dtb {

struct BoxRow {
  std::string name;
  bool indented = false;  // a substitute, below the player whom he replaced
  std::vector<std::string> cells;
};

// Figures with a name in front.
struct BoxTable {
  std::string title;
  std::vector<std::string> headers;  // of the cells
  std::vector<BoxRow> rows = {};
  std::vector<std::string> totals = {};  // as many as cells; none: there is no such row
};

// "HR", "Judge (2), Urshela (1)".
struct BoxNote {
  std::string what;
  std::string text;
};

struct BoxSide {
  BoxTable batting;
  BoxTable pitching;
  std::vector<std::string> substitutes;  // "a-singled for Law in the 7th"
};

// A side's row of the line score: its innings in threes, and its runs, hits and errors.
struct BoxLine {
  std::string team;
  std::vector<std::string> innings;  // "0", "12", "x"
  std::string runs;
  std::string hits;
  std::string errors;
};

struct BoxScore {
  std::string headline;   // "New York 5, Boston 2", the winner first
  std::string when;       // "1 Aug 2020, Yankee Stadium"; "" where nothing of it is known
  std::string decisions;  // "W: Nelson (1-0), L: Godley (0-1), S: Hale (1)"
  std::array<BoxSide, 2> sides = {};
  std::array<BoxLine, 2> line = {};
  std::vector<BoxNote> notes = {};
  std::vector<std::string> scoring = {};  // "Bottom 1, 1 out: Judge homers. Boston 0, New York 1"
  std::string remark = {};                // what the plays do not tell; "" where they tell all
};

// `season` holds the game itself as well. A figure that no play tells is "-".
[[nodiscard]] BoxScore BoxScoreOf(const GameRecord& game, const SeasonToDate& season);

// "New York 5, Boston 2": the winner first, the home team after a tie.
[[nodiscard]] std::string BoxHeadline(const GameRecord& game);

// Outs as innings and thirds: 19 are "6.1".
[[nodiscard]] std::string InningsAndThirds(double outs);

// "1 Aug 2020" for "2020-08-01"; any other text as it is.
[[nodiscard]] std::string PlainDate(const std::string& date);

}  // namespace dtb
