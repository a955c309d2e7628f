// What an archive holds once it is read: clubs, their players with figures, and games. It does not
// change then, so any thread may look at it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dtb::archive {

// Positions count as the archives do: 1 pitcher to 9 right field, then these.
inline constexpr int kPitcher = 1;
inline constexpr int kDesignatedHitter = 10;
inline constexpr int kPinchHitter = 11;
inline constexpr int kPinchRunner = 12;
inline constexpr int kPositions = 13;
inline constexpr int kOrder = 9;

struct Batting {
  int games = 0;  // in any part, also as pitcher
  int atBats = 0;
  int hits = 0;  // of all kinds
  int doubles = 0;
  int triples = 0;
  int homeRuns = 0;
  int walks = 0;
  int strikeouts = 0;
  int hitByPitch = 0;
  int stolenBases = 0;
  int runs = 0;
  int runsBattedIn = 0;
  int sacrificeHits = 0;
  int sacrificeFlies = 0;
  int intoDoublePlays = 0;  // grounded
  // Runners, when he was out but for sacrifices, or when one of them was by his choice.
  int leftOnBase = 0;
  std::array<int, kPositions> gamesAt{};
};

[[nodiscard]] inline int PlateAppearances(const Batting& b) {
  return b.atBats + b.walks + b.hitByPitch + b.sacrificeHits + b.sacrificeFlies;
}

struct Pitching {
  int games = 0;
  int starts = 0;
  int outs = 0;
  int hits = 0;
  int homeRuns = 0;
  int walks = 0;
  int strikeouts = 0;
  int earnedRuns = 0;
  int runs = 0;  // all that are charged to him
  int wins = 0;
  int losses = 0;
  int saves = 0;
  int outsUncharged = 0;  // in games of which the archive does not tell the earned runs
};

// One player of one club.
struct Player {
  std::string id;
  std::string first;
  std::string last;
  std::string bats;       // "L", "R", "B"; "": not told
  std::string throws;     // "L", "R"
  std::string position;   // of the roster: "P", "SS", "OF"
  int number = 1;         // among the year's players of his name
  std::vector<int> days;  // on which he was in a game, in order; as DayOf counts
  Batting batting;
  Pitching pitching;
};

struct Club {
  int year = 0;
  std::string id;               // "NYA"
  std::string city;             // "New York"
  std::string nickname;         // "Yankees"
  std::string league;           // "A"; "": not told
  bool listed = false;          // among the archive's clubs
  std::string name;             // TeamName
  std::vector<Player> players;  // in the order of roster and first appearance
  std::vector<int> games;       // of Season::games, by date
};

// A player and where he plays: indices of Club::players, kNobody for a gap in the archive.
inline constexpr int kNobody = -1;
struct Placed {
  int player = kNobody;
  int position = 0;
  friend bool operator==(const Placed&, const Placed&) = default;
};

struct GameSide {
  int club = 0;  // index of Season::clubs
  int runs = 0;
  std::array<Placed, kOrder> order;
  int pitcher = kNobody;              // who started
  std::vector<int> came;              // into the game later, in that order
  std::vector<int> pitched;           // of these, who pitched
  std::vector<std::uint8_t> figures;  // of the day, of all who were in the game; see day_figures.h
  std::uint32_t untold = 0;           // which of them the archive does not tell, or not of all
};

// What an archive tells of a game.
enum class Account : std::uint8_t { LineUps, BoxScore, Plays };

// To whom a game was given that was not played to its end.
enum class Forfeit : std::uint8_t { No, ToVisitors, ToHome, ToNobody };

struct Game {
  std::string id;                 // "OAK202008070"
  std::string date;               // "2020-08-07"
  int day = 0;                    // as DayOf counts
  int number = 0;                 // of the day: 0 for the only game, else 1 or 2
  std::array<GameSide, 2> sides;  // visitors, home
  Account account = Account::LineUps;
  Forfeit forfeit = Forfeit::No;
};

struct LineFault {
  std::string file;
  int line = 0;
  std::string what;
};

struct Season {
  std::vector<Club> clubs;        // by year and city
  std::vector<Game> games;        // by date
  std::vector<LineFault> faults;  // the first kFaultsKept of them
  int faultCount = 0;
  std::vector<std::string> skipped;  // files that were left out, and why
};

inline constexpr std::size_t kFaultsKept = 500;

// What an archive may hold at most, so that one made to do harm fills neither memory nor time. All
// seasons ever played fit.
namespace season_limit {
inline constexpr std::size_t kGames = 300'000;
inline constexpr std::size_t kClubs = 6'000;
inline constexpr std::size_t kPlayers = 300'000;  // of all clubs
inline constexpr std::size_t kPlayersOfClub = 300;
inline constexpr std::size_t kNameBytes = 64;  // a longer name is cut
inline constexpr std::size_t kIdBytes = 32;
}  // namespace season_limit

// The owners of the public archives ask that this is shown with what is made of them.
inline constexpr const char* kOwnersNotice =
    "The information used here was obtained free of charge from and is copyrighted by Retrosheet. "
    "Interested parties may contact Retrosheet at 20 Sunset Rd., Newark, DE 19711.";

// Days from a fixed one on, for "2020-08-07"; months and days that no calendar has stand for the
// nearest that it has.
[[nodiscard]] int DayOf(std::string_view date);

// "Marcus Semien"; the id of a player without any name.
[[nodiscard]] std::string FullName(const Player& player);

// He is a pitcher by trade: he pitched in most of his games, or the roster calls him one and he
// played no other part more often.
[[nodiscard]] bool IsPitcher(const Player& player);

// What the club is called on the board: "Oakland 2020", or "New York Yankees 2020" where two clubs
// of a year share a city.
[[nodiscard]] const std::string& TeamName(const Season& season, int club);

// The position he played most, a pitcher by trade "P"; without any in the field the roster's, else
// what he did at bat: "SS".
[[nodiscard]] std::string UsualPosition(const Player& player);

// "P", "C", "1B", ... "DH", "PH", "PR"; "" for anything else.
[[nodiscard]] const char* PositionName(int position);

// "3 lines make no sense; the rest counts.", and a line break.
[[nodiscard]] std::string FaultCountText(const Season& season);

}  // namespace dtb::archive
