// One team or one player, game by game.
#pragma once

#include <string>
#include <vector>

#include "season/season_figures.h"

namespace dtb {

// Who is looked at.
struct SeasonSubject {
  int team = 0;
  std::string player = {};  // "": the whole team
  bool wholeTeam = true;
  SeasonRole role = SeasonRole::Batting;
};

// The same subject by its names in another reading of the season; nothing where it is gone. A role
// in which it has no figures any more becomes the other one.
[[nodiscard]] std::optional<SeasonSubject> FoundAgain(const SeasonFigures& season,
                                                      const SeasonSubject& subject,
                                                      const SeasonFigures& in);

// What the subject did in one game.
struct SeasonOuting {
  std::string id;                 // GameID
  std::optional<LocalTime> time;  // none: the GameID tells none
  int game = -1;                  // its place in the season; -1: it has no line score
  SeasonTotals line = {};
  SeasonTotals total = {};  // up to this game
};

// The outings in the order in which they were played: of a team all its games, of a player those in
// which he has a row. Throws ProgramError. Any thread may call it; once a stop is asked for, it
// fails soon.
[[nodiscard]] std::vector<SeasonOuting> ReadOutings(Database& database, const SeasonFigures& season,
                                                    const SeasonSubject& subject,
                                                    const std::stop_token& stop = {});

// Puts outings in order and adds them up. Games that a team has, and the outings lack, are added to
// those of a whole team.
void SettleOutings(const SeasonFigures& season, const SeasonSubject& subject,
                   std::vector<SeasonOuting>& outings);

// 1: the team won, -1: it lost, 0: neither, or not known.
[[nodiscard]] int ResultOf(const SeasonFigures& season, int team, const SeasonOuting& outing);

// The average, or the earned run average, of a line.
[[nodiscard]] std::optional<Quotient> RateOf(const SeasonTotals& line);
[[nodiscard]] std::string RateText(const SeasonTotals& line);

// "2 for 4, 1 HR, 3 RBI", or "6.33 innings, 2 ER, 7 K".
[[nodiscard]] std::string OutingText(const SeasonTotals& line);

// The headers and the figures of a line, without name and month.
[[nodiscard]] std::vector<std::string> LineHeaders(SeasonRole role);
[[nodiscard]] std::vector<std::string> LineTexts(const SeasonTotals& line);

}  // namespace dtb
