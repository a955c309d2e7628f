// Follows one game after the other, play by play, and counts the figures of every player in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "archive/play.h"
#include "archive/season.h"

namespace dtb::archive {

// Sides are 0 for the visitors and 1 for the home team; players are indices of their club.
// Operations that can meet nonsense return what is wrong in a few words, or nullptr; what makes
// sense counts.
class Scorer {
 public:
  explicit Scorer(Season& season) : season_(season) {}

  // A game begins; its clubs are set.
  void Begin(Game game);

  // A player starts or comes into the game; order 0 is the pitcher for whom another bats. He takes
  // the place on the bases of the player whom he replaces.
  const char* Enter(int side, int player, int order, int position, bool starts);

  // The next half-inning, or the one in progress, has this player of the side at bat on a base.
  void PutOnBase(std::string_view id, int base);

  // One play, also one that ends no time at bat. `count` is balls and strikes, as "12".
  const char* Score(int inning, int side, int batter, std::string_view count, const Play& play);

  // Without any charge to a side, the earned runs of its pitchers in the game are not known.
  void ChargeEarnedRuns(int side, int player, int runs);

  // A game without plays: the figures of a player in it, the position that he played, 0 for none
  // that is told, and the runs of a side.
  const char* AddBatting(int side, int player, const Batting& figures);
  const char* AddPitching(int side, int player, const Pitching& figures, bool started);
  const char* NotePosition(int side, int player, int position);
  void SetRuns(int side, int runs);
  // The archive does not tell these figures of a player of the side: bits of GameSide::untold.
  void NoteUntold(int side, std::uint32_t figures) { game_.sides.at(side).untold |= figures; }

  // A win, a loss or a save of this game goes to the player with this id. Who is in neither side,
  // or nobody, is passed over.
  void Credit(int Pitching::*decision, std::string_view id);

  void NoteForfeit(Forfeit forfeit) { game_.forfeit = forfeit; }
  [[nodiscard]] bool HasPlays() const { return game_.account == Account::Plays; }

  // The player with this id whom the side has in the game, or had; kNobody if there is none.
  [[nodiscard]] int Find(int side, std::string_view id);

  // The game is over: it goes to the season.
  void End();

 private:
  struct Entrant {
    int player = kNobody;
    unsigned positions = 0;  // one bit each
    // His figures before this game.
    Batting batting;
    Pitching pitching;
  };
  struct Side {
    Club* club = nullptr;
    std::array<int, kOrder + 1> order{};  // 0: who pitches and does not bat
    int pitcher = kNobody;
    int due = 1;  // place in the order that is probably next
    std::vector<Entrant> entrants;
    bool charged = false;  // earned runs are told
  };
  struct Waiting {
    std::string id;
    int base = 0;
  };

  [[nodiscard]] Player& PlayerOf(int side, int player) {
    return sides_.at(side).club->players[player];
  }
  // Nothing if the game has too many players.
  Entrant* EntrantOf(int side, int player);
  bool NotePart(int side, int player, int position, bool starts);
  void NoteChange(int side, int player, int order, int position);
  const char* BeginHalf(int inning, int side);
  const char* MoveRunners(int side, int batter, const Play& play);
  // Whom the run of the player on each base is charged to, the batter's at 0.
  [[nodiscard]] std::array<int, kHome> ChargesIn(int side, const Play& play) const;
  bool InOrder(Side& side, int player);
  void CountRun(int side, int batter, int player, bool battedIn);
  void ChargeRun(int side, int pitcher);
  const char* CreditPlateAppearance(int side, int batter, const Play& play);

  Season& season_;
  Game game_;
  bool won_ = false;                  // somebody is credited with the win
  std::vector<std::uint8_t> packed_;  // of a side; kept for its store
  std::array<Side, 2> sides_;
  std::vector<Waiting> waiting_;  // for a base
  int inning_ = 0;
  int atBat_ = 0;  // the side
  int outs_ = 0;
  std::array<int, kHome> bases_{};    // from 1
  std::array<int, kHome> charged_{};  // the pitchers who left the players there
  // The time at bat in progress.
  bool open_ = false;
  int batter_ = kNobody;
  int balls_ = 0;
  int strikes_ = 0;
  int owesWalk_ = kNobody;  // the pitcher who left when the count favoured the batter: rule 9.16(h)
  int owesStrikeout_ = kNobody;  // the batter who left with two strikes: rule 9.15(b)
};

}  // namespace dtb::archive
