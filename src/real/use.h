// How much each player is used on the board, beside how much he really played: so that a club does
// not live on a player with forty at-bats.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "real/both_players.h"

namespace dtb::real {

enum class UseMark {
  Within,
  AbovePace,  // on the way to more than his real use
  Over,       // more than in his whole real year
};

// One kind of use: plate appearances (at-bats and walks, as the board knows them), innings in outs,
// games or starts of a pitcher.
struct Use {
  const char* what = "";  // "PA", "innings", "games", "starts"
  double replayed = 0;
  double toDate = 0;  // really, up to the moment
  double year = 0;    // really, in the whole year
  UseMark mark = UseMark::Within;
};

struct PlayerUse {
  std::string name;
  bool inArchive = false;
  std::vector<Use> uses;  // of a batter one, of a pitcher innings, games and starts
  [[nodiscard]] UseMark mark() const;
};

// Of one compared team, with its players at a moment. Who is over his real use comes first, then
// who is above its pace, then who has the most of it.
struct TeamUse {
  std::vector<PlayerUse> batters;
  std::vector<PlayerUse> pitchers;
  std::string note;  // what the archive does not tell; then nobody is marked
};

// Over: more than in the whole real year. Above pace: more than he really had by then, and more
// than a tenth and one full game above an even share of his year for the games that are replayed.
[[nodiscard]] TeamUse UseOfTeam(const BothWorlds& worlds, const std::vector<BothPlayer>& players,
                                int team);

// "over", "above pace" or "".
[[nodiscard]] const char* MarkWord(UseMark mark);
// "45", or of innings "12.1": whole innings and outs.
[[nodiscard]] std::string UseFigure(const Use& use, double figure);
// "45 of 40 PA"
[[nodiscard]] std::string UseText(const Use& use);

// Texts of the table of one role, its header first: the player, each kind of use as "45 of 40,
// really 38", and the mark.
[[nodiscard]] std::vector<std::vector<std::string>> UseTexts(const std::vector<PlayerUse>& players,
                                                             SeasonRole role);

// The marks of all players of all compared teams, for line-ups.
class UseMarks {
 public:
  UseMarks() = default;
  UseMarks(const BothWorlds& worlds, const StartsOfPitchers& starts);

  // "Real use: 45 of 40 PA, over"; "" for a player without a mark.
  [[nodiscard]] std::string TextOf(const std::string& team, const std::string& player) const;
  // "over", "above pace" or "".
  [[nodiscard]] std::string WordOf(const std::string& team, const std::string& player) const;

 private:
  struct Marked {
    const char* word = "";
    std::string text;
  };
  void Mark(const std::string& team, const PlayerUse& player);
  [[nodiscard]] const Marked* Find(const std::string& team, const std::string& player) const;
  std::map<std::pair<std::string, std::string>, Marked> marked_;  // by team and player
};

// Reads the saved games for it. Throws ProgramError. Any thread may call it; once a stop
// is asked for, it fails soon.
[[nodiscard]] UseMarks ReadUseMarks(Database& database,
                                    std::shared_ptr<const archive::Season> archive,
                                    const std::stop_token& stop = {});

}  // namespace dtb::real
