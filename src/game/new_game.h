// One game after another in the same run.
#pragma once

#include <functional>
#include <string>

#include "aids/aids_state.h"
#include "game/board.h"

namespace dtb {

// What a new game needs beyond the board; start-up fills it.
struct NewGames {
  AidsState& aids;
  RecoveryStore& store;
  // "Next game of Oakland 2020", of the season of real games that was chosen; "" where none was, or
  // none is left. None: there are no seasons.
  std::function<std::string()> nextOffer = {};
  // Loads both teams of that game.
  std::function<void()> loadNext = {};
  // A new game has begun: windows about the old one close.
  std::function<void()> begun = {};
};

// Nothing was done on the board yet that a new game would take away.
[[nodiscard]] bool IsFresh(const Board& board);

// Figures of a game stand on the sheet, or outs were made.
[[nodiscard]] bool GameUnderWay(const Board& board);

// The board as after a start, with an empty log and history; options, dice and ballpark stay. A
// game that is not saved is set aside, and the person told where it is and how it comes back; where
// that cannot be, he is asked. False: he keeps the board.
bool NewGame(Board& board);

// The same, with both teams as they were loaded.
void PlaySameTeamsAgain(Board& board);

// A box that says `told` and offers what can follow the game on the board, which is saved: nothing
// (the usual answer), a new game, the same teams, the next game of the season.
void OfferNewGame(Board& board, const std::string& told);

// Whether the game on the board is saved, so that nothing is counted for it any more. The first
// time that something is to be counted the person is told so, and offered a new game.
[[nodiscard]] bool RefusesAfterSave(Board& board);

// Where a team goes that is loaded while a game is on the board.
enum class LoadInto { NewGame, ThisGame, Nowhere };

// Asks for it, where a game is under way: its counts stay when another team is loaded. `caption` is
// what a new game is called there, "New game with this team".
[[nodiscard]] LoadInto WhereToLoad(Board& board, const std::string& caption);

}  // namespace dtb
