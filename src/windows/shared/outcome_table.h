// How the outcomes look and which keys they have, wherever one can be chosen.
#pragma once

#include <array>

#include "game/outcome.h"
#include "windows/shared/controls.h"

namespace dtb {

enum class OutcomeFamily { Plain, Out, AtBat };

struct OutcomeEntry {
  Outcome outcome;
  OutcomeFamily family;
  const char* name;     // objectName of the label on the board
  const char* caption;  // "1B"
  const char* tip;
  int key;            // Qt::Key
  const char* shown;  // the key
  const char* meaning;
};

// Hits, walk, outs, the rest: the order in which they stand on the board.
inline constexpr std::array<OutcomeEntry, 15> kOutcomes{{
    {Outcome::Single, OutcomeFamily::Plain, "lbl_Single", "1B", "Single", Qt::Key_1, "1", "Single"},
    {Outcome::Double, OutcomeFamily::Plain, "lbl_Double", "2B", "Double", Qt::Key_2, "2", "Double"},
    {Outcome::Triple, OutcomeFamily::Plain, "lbl_Triple", "3B", "Triple", Qt::Key_3, "3", "Triple"},
    {Outcome::Homer, OutcomeFamily::Plain, "lbl_Homer", "HR", "Homer", Qt::Key_4, "4", "Homer"},
    {Outcome::Walk, OutcomeFamily::Plain, "lbl_BB", "BB", "Walk", Qt::Key_W, "W, B", "Walk"},
    {Outcome::Strikeout, OutcomeFamily::Out, "lbl_K", "K", "Strikeout", Qt::Key_K, "K",
     "Strikeout"},
    {Outcome::Groundout, OutcomeFamily::Out, "lbl_GO", "GO", "Groundout", Qt::Key_G, "G",
     "Groundout"},
    {Outcome::Flyout, OutcomeFamily::Out, "lbl_FO", "FO", "Flyout/Foulout", Qt::Key_F, "F",
     "Flyout, foulout"},
    {Outcome::Lineout, OutcomeFamily::Out, "lbl_LO", "LO", "Lineout", Qt::Key_L, "L", "Lineout"},
    {Outcome::Popout, OutcomeFamily::Out, "lbl_PO", "PO", "Popout", Qt::Key_P, "P", "Popout"},
    {Outcome::DoublePlay, OutcomeFamily::Out, "lbl_DP", "DP", "Double Play", Qt::Key_D, "D",
     "Double play"},
    {Outcome::FieldersChoice, OutcomeFamily::Out, "lbl_FC", "FC", "Fielder's choice", Qt::Key_C,
     "C", "Fielder's choice"},
    {Outcome::ThrownOut, OutcomeFamily::Out, "lbl_Pick", "TO", "Runner thrown out/tagged out",
     Qt::Key_T, "T", "Runner thrown out"},
    {Outcome::AtBat, OutcomeFamily::AtBat, "lbl_AB", "AB",
     "Assign an 'At-Bat' [e.g. reached on an error]", Qt::Key_E, "E",
     "At-bat, reached on an error"},
    {Outcome::RunBattedIn, OutcomeFamily::Plain, "lbl_RBI", "RBI", "Run batted in", Qt::Key_R, "R",
     "Run batted in"},
}};

// The outcome of a key, "B" being a walk like "W"; none for a key that is no outcome's.
[[nodiscard]] const OutcomeEntry* OutcomeOfKey(int key);

[[nodiscard]] ClickLabel::Shades ShadesOf(OutcomeFamily family);

}  // namespace dtb
