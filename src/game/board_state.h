// The one flat record of the board: every named field that a game consists of.
#pragma once

#include <array>
#include <map>
#include <string>

#include "base/colour.h"
#include "base/field.h"
#include "base/text_cell.h"
#include "game/lineup_list.h"
#include "game/plays.h"
#include "platform/picture.h"

namespace dtb {

// The size of the scene in layout units: the default ballpark picture at full size.
inline constexpr double kSceneWidth = 1679;
inline constexpr double kSceneHeight = 974;

// Cells 0 to 19 of a line-score row are innings 1 to 20; three totals follow.
inline constexpr int kInnings = 20;
inline constexpr int kTotalRuns = 20;
inline constexpr int kTotalHits = 21;
inline constexpr int kTotalErrors = 22;
inline constexpr int kScoreCells = 23;

struct ScoreCell {
  TextCell text;                // runs of the inning; "" for not played
  Field<Colour> colour{kGrey};  // grey: not finished; yellow: finished, counts three outs
  friend bool operator==(const ScoreCell&, const ScoreCell&) = default;
};

struct ScoreRow : std::array<ScoreCell, kScoreCells> {
  ScoreRow() {
    for (int total : {kTotalRuns, kTotalHits, kTotalErrors}) at(total).text.Set("0");
  }
};

// Outs that each pitcher of a side made while he pitched, by his name. None of them is below zero.
using PitchedOuts = std::map<std::string, int>;

// A player on the field for the side at bat: a photo, or a name plate where there is none.
struct GamePiece {
  Field<Picture> picture;    // the photo box
  Field<std::string> tag;    // the player's name; may outlive the photo
  Field<std::string> plate;  // the name plate, shown while it is not ""
  Field<Picture> store;      // keeps the last photo until the pieces are reset
  Field<double> left{0};     // place of the box in the scene, in layout units
  Field<double> top{0};

  [[nodiscard]] bool free() const { return picture.value().empty() && plate.value().empty(); }
  friend bool operator==(const GamePiece&, const GamePiece&) = default;
};

inline constexpr int kPieces = 4;

// Pieces are 1350 by 2025 twips at start, 15 twips to the pixel of the reference screen.
inline constexpr double kPieceWidth = 90;
inline constexpr double kPieceHeight = 135;

struct BoardState {
  // Sides and current batter.
  Field<std::string> tb_VisTeam{"VIS"};
  Field<std::string> tb_HomeTeam{"HOME"};
  std::string ArchiveGame;  // the archive's game that was loaded last (NoteArchiveGame)
  LineupList VisLoaded;     // the visitors' list as it was loaded, for the same teams once more
  LineupList HomeLoaded;
  Field<bool> Option5;  // the visitors are at bat
  Field<bool> Option6;  // the home team is at bat; never on together with Option5
  LineupList List1;     // visitors: batting order in the first nine rows, then the reserves
  LineupList List2;     // home team
  Field<std::string> lbl_Selected;        // name of the current batter, of either side
  Field<std::string> BatterOf;            // whose batter that is: "V", "H"; "" after a third out
  Field<std::string> lbl_L1current{"0"};  // row that last became the batter in List1
  Field<std::string> lbl_L2current{"0"};  // the same for List2
  Field<int> VisDue;               // row of List1 that bats when the visitors come to bat next
  Field<int> HomeDue;              // the same for List2
  TextCell tb_ListBoxStatus{"0"};  // above 0: a selection names no batter

  // Editing of the line-ups.
  Field<bool> Check1;               // "EDIT" of the visitors
  Field<bool> Check2;               // "EDIT" of the home team
  Field<std::string> tb_List1edit;  // new text for a row of List1
  Field<std::string> tb_List2edit;  // new text for a row of List2
  int DragSourceIndex = 0;          // row where a drag in edit mode began

  // Pitchers.
  Field<std::string> lbl_VisPitcher;      // current pitcher of the visitors
  Field<std::string> lbl_HomePitcher;     // current pitcher of the home team
  Field<std::string> lbl_VisPitcher_tag;  // pitcher who was on until the last change
  Field<std::string> lbl_HomePitcher_tag;
  PitchedOuts VisOuts;          // outs of the visitors' pitchers
  PitchedOuts HomeOuts;         // outs of the home pitchers
  Field<Picture> img_VisPitch;  // photos of the current pitchers
  Field<Picture> img_HomePitch;

  // Outs and innings.
  TextCell tb_OUT{"0"};        // outs of the half-inning in progress, 0 to 3
  TextCell tb_OutsCount{"0"};  // outs of all finished half-innings, 0 to 120 in steps of 3
  Field<bool> cb_Xinnings;     // the panel of innings 11 to 20 is open

  // Line score.
  ScoreRow tb_BoxScore;            // visitors
  ScoreRow tb_BoxScoreBottom;      // home team
  Field<std::string> lbl_BoxSel;   // index of the cell that last had the focus
  Field<std::string> lbl_VisHome;  // its row: "V" or "H"
  Field<std::string> lbl_NumSel;   // digit last clicked on the score pad
  std::string EnteredCell;         // "V3": cell entered by the person since it took the focus
  bool OtherLineAsked = false;     // the person was told that runs go into the other side's line

  // Game pieces and base tracker.
  std::array<GamePiece, kPieces> pieces;  // pb_Player1 to pb_Player4
  Field<double> pieceWidth{kPieceWidth};  // size of all four, in layout units
  Field<double> pieceHeight{kPieceHeight};
  int StolenBasePiece = 0;        // piece 1 to 4 whose stolen base is being recorded
  std::string LastRunnerClicked;  // name on the piece clicked last
  Field<bool> pb_BaseTracker_visible;
  std::array<Field<Colour>, 3> lbl_tracker{Field<Colour>{kWhite}, Field<Colour>{kWhite},
                                           Field<Colour>{kWhite}};  // first, second, third base

  // The bases, while the board keeps them, and the plays of the game.
  Field<bool> cb_KeepBases;                // "KEEP THE BASES"
  std::array<Field<Runner>, kBases> base;  // first, second, third
  int BasesHalf = 0;                       // the half-inning whose runners these are
  PlayList plays;

  // Logos.
  Field<Picture> img_VisLogo;
  Field<Picture> img_HomeLogo;

  // The panel "OPTIONS".
  Field<bool> fra_Options_visible;
  Field<bool> cb_BaseTracker;        // "SHOW BASE TRACKER"
  Field<bool> chk_Ctrls;             // "HIDE CONTROLS": the outcome labels are hidden
  Field<std::string> lbl_PhotoPath;  // folder of the player photos
  Field<std::string> Text1;          // editor of that folder
  Field<bool> Text1_visible;         // the editor is shown instead of lbl_PhotoPath

  friend bool operator==(const BoardState&, const BoardState&) = default;
};

// The number of the half-inning in progress, from 0: even is the top, odd the bottom of an inning.
// At 40 and above the frame of twenty innings is full.
[[nodiscard]] inline int HalfInProgress(const BoardState& state) {
  const double outs = state.tb_OutsCount.number();
  constexpr double kBeyond = 1e6;
  return outs < 0 ? 0 : static_cast<int>((outs < kBeyond ? outs : kBeyond) / 3);
}

inline constexpr int kHalves = 2 * kInnings;
inline constexpr int kMostOuts = 3 * kHalves;

// The line-score cell of half-inning k, 0 to 39.
[[nodiscard]] inline ScoreCell& Cell(BoardState& state, int k) {
  ScoreRow& row = k % 2 == 0 ? state.tb_BoxScore : state.tb_BoxScoreBottom;
  return row.at(static_cast<std::size_t>(k / 2));
}

}  // namespace dtb
