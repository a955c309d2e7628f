// Games that go from one database into another: those of other boards are taken in, own ones given
// out.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "database/saved_games.h"
#include "platform/platform.h"

namespace dtb {

// What makes a game that game, wherever its rows go and whatever its GameID becomes there.
struct GameIdentity {
  SavedGame game;
  std::string day;                // "2020-08-07"; "" where nothing tells it
  std::string ownId;              // of the table Games; "" for a game without a row there
  std::uint64_t fingerprint = 0;  // of the line score and the rows of all players
};

// Of all games, in the order in which they were saved. Throws ProgramError, here and below.
[[nodiscard]] std::vector<GameIdentity> IdentitiesOf(DatabaseReader& database);

// Those of another database that this one lacks: with neither the OwnID nor the fingerprint of any
// of its games. A game that stands there twice comes once.
[[nodiscard]] std::vector<GameIdentity> GamesLacking(DatabaseReader& database,
                                                     DatabaseReader& other);

// Puts games of one database into another, in one transaction: their rows in all tables, a win or
// loss of each team and the matchup. A GameID that another game has there becomes the next free
// second. Those that are there by now are passed over. Returns how many were put in.
int PutGames(DatabaseReader& from, const std::vector<GameIdentity>& games, Database& into);

inline constexpr const char* kTakeInTitle = "Take in games";
inline constexpr const char* kGiveOutTitle = "Give out games";

// Asks for another board's database and returns what it has that ours lacks; nothing where the
// person cancels, or where there is none, which was told.
struct OthersGames {
  std::filesystem::path file;
  std::vector<GameIdentity> games;
};
[[nodiscard]] OthersGames AskForOthersGames(Platform& platform);

// Takes in the chosen ones. What came of it is told, failures too. True: the database is another.
bool TakeIn(Platform& platform, const OthersGames& chosen);

// Writes the chosen games of our database into a file of the person's choice, a database of its
// own. What came of it is told.
void GiveOut(Platform& platform, const std::vector<GameIdentity>& chosen);

// "1 Aug 2020: Boston 2020 2, New York Yankees 2020 5".
[[nodiscard]] std::string GameLine(const GameIdentity& game);

}  // namespace dtb
