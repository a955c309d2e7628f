#include "season/season_scores.h"

#include <algorithm>

#include "base/text_cell.h"
#include "base/words.h"
#include "season/season_words.h"

namespace dtb {
namespace {

// A line score may hold anything that a person wrote there.
int PlaceOfRuns(double runs, int most) {
  return static_cast<int>(std::clamp(runs, 0.0, static_cast<double>(most)));
}

}  // namespace

SeasonScores CountScores(const SeasonFigures& season) {
  SeasonScores scores;
  for (const SeasonGame& game : season.games) {
    const double visitors = game.sides[0].runs;
    const double home = game.sides[1].runs;
    const double most = std::max(visitors, home);
    const double fewest = std::min(visitors, home);
    ++scores.games;
    scores.runs += visitors + home;
    ++(home > visitors ? scores.homeWins : home < visitors ? scores.visitorsWins : scores.ties);
    scores.shutouts += fewest <= 0 && most > 0 ? 1 : 0;
    scores.byOneRun += most - fewest == 1 ? 1 : 0;
    ++scores.ofTeam.at(PlaceOfRuns(visitors, kMostRunsOfTeam));
    ++scores.ofTeam.at(PlaceOfRuns(home, kMostRunsOfTeam));
    ++scores.finals.at(PlaceOfRuns(most, kMostRunsOfScore))
          .at(PlaceOfRuns(fewest, kMostRunsOfScore));
    const std::string month = MonthText(game.time);
    if (scores.months.empty() || scores.months.back().month != month) {
      scores.months.push_back({month});
    }
    ++scores.months.back().games;
    scores.months.back().runs += visitors + home;
  }
  return scores;
}

std::string ScoresText(const SeasonScores& scores) {
  if (scores.games == 0) return {};
  return "Games: " + std::to_string(scores.games) +
         ". Runs per game, both teams: " + RoundedQuotient(scores.runs, scores.games, 2) +
         ". Won by the home team: " + std::to_string(scores.homeWins) +
         ", by the visitors: " + std::to_string(scores.visitorsWins) +
         ", ties: " + std::to_string(scores.ties) +
         ". Shutouts: " + std::to_string(scores.shutouts) +
         ". Decided by one run: " + std::to_string(scores.byOneRun) + ".";
}

std::string FinalsText(const SeasonScores& scores) {
  struct Final {
    int most, fewest, times;
  };
  std::vector<Final> came;
  for (int most = 0; most <= kMostRunsOfScore; ++most) {
    for (int fewest = 0; fewest <= most; ++fewest) {
      const int times = scores.finals.at(most).at(fewest);
      if (times > 0) came.push_back({most, fewest, times});
    }
  }
  std::ranges::stable_sort(came, std::greater{}, &Final::times);
  std::string text;
  for (const Final& final : came) {
    text += RunsLabel(final.most, kMostRunsOfScore) + "-" +
            RunsLabel(final.fewest, kMostRunsOfScore) + ": " + Counted(final.times, "time") + '\n';
  }
  return text;
}

std::string RunsLabel(int runs, int most) {
  return std::to_string(runs) + (runs == most ? "+" : "");
}

}  // namespace dtb
