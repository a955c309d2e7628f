// The context that every operation takes, and the one table of what belongs to a side.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "base/side.h"
#include "game/board_state.h"
#include "game/event_log.h"
#include "game/stat_sheet.h"
#include "platform/platform.h"

namespace dtb {

class History;
struct NewGames;

// The step and the play by which a runner was put out, where the board chose him. No step: none.
struct RunnerChoice {
  std::size_t steps = 0;
  std::size_t plays = 0;
};

struct Board {
  BoardState& state;
  StatSheet& sheet;
  EventLog& log;
  Platform& platform;
  History* history = nullptr;    // none: no gesture can be taken back
  std::string counting = {};     // what the gesture in progress counts: "Tony Kubek 1B"
  NewGames* newGames = nullptr;  // none: one run is one game
  std::string savedTold = {};    // GameID of the saved game that an outcome has told about
  RunnerChoice choice = {};      // see PutOutInstead
};

// The twin fields of one side, by their role.
struct SideFields {
  LineupList& list;
  Field<bool>& atBat;                 // the option "AT BAT"
  Field<std::string>& rememberedRow;  // row that last became the batter
  Field<int>& due;                    // row that bats when the side comes to bat next
  Field<bool>& edit;                  // the check box "EDIT"
  Field<std::string>& newEntry;       // text field for a new row
  Field<std::string>& team;           // team name on the board
  LineupList& loaded;                 // the list as it was loaded
  Field<std::string>& pitcher;        // current pitcher
  Field<std::string>& pitcherTag;     // pitcher until the last change
  PitchedOuts& outs;                  // what its pitchers have pitched, out by out
  Field<Picture>& pitcherPhoto;
  Field<Picture>& logo;
  ScoreRow& score;                // the side's row of the line score
  StatGrid& grid;                 // the side's table of the sheet
  Field<std::string>& sheetTeam;  // team name on the sheet
  Field<Picture>& sheetLogo;
  ReportedInnings& reported;  // innings that the last report settled
  int boxScoreRow;            // the side's row of grd_BoxScore
  const char* letter;         // "V" or "H", as lbl_VisHome and lbl_GridSelected name the side
  const char* defaultLogo;    // file in Logos for a team without a logo
};

[[nodiscard]] SideFields SideOf(Board& board, Side side);

// The side whose option "AT BAT" is on; nothing before the player chose one.
[[nodiscard]] std::optional<Side> SideAtBat(const BoardState& state);

// The colour of a side's list, team name and option: white at bat, grey in the field. While nobody
// is at bat the visitors are white.
[[nodiscard]] Colour SideColour(const BoardState& state, Side side);

// Turns the option "AT BAT" of a side on, and the other side's off.
void PutAtBat(Board& board, Side side);

}  // namespace dtb
