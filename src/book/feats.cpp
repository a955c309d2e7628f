#include "book/feats.h"

#include <algorithm>
#include <tuple>

#include "base/text_cell.h"
#include "season/season_words.h"

namespace dtb::book {
namespace {

// A player's part in a game.
struct Part {
  int game = 0;
  int player = 0;
  const SeasonOuting* outing = nullptr;
};

// All of them in the order of the games; those of no game, and of games whose players are not told
// apart, are left out.
std::vector<Part> InOrder(const SeasonFigures& season, const AllOutings& outings) {
  std::vector<Part> parts;
  for (std::size_t player = 0; player < outings.size(); ++player) {
    for (const SeasonOuting& outing : outings[player]) {
      if (outing.game < 0 || season.games[outing.game].mixed) continue;
      parts.push_back({outing.game, static_cast<int>(player), &outing});
    }
  }
  std::ranges::sort(parts, {}, [](const Part& part) { return std::pair(part.game, part.player); });
  return parts;
}

// A feat of a team in a game, without the players.
Feat FeatOf(const SeasonFigures& season, int game, std::size_t side) {
  const SeasonGame& told = season.games[game];
  return {.team = season.teams[told.sides.at(side).team].name,
          .opponent = season.teams[told.sides.at(1 - side).team].name,
          .day = told.day,
          .figures = {DecimalText(told.sides.at(side).runs) + "-" +
                      DecimalText(told.sides.at(1 - side).runs)}};
}

Feat FeatOf(const SeasonFigures& season, const Part& part) {
  const int team = season.players[part.player].team;
  Feat feat = FeatOf(season, part.game, season.games[part.game].sides[0].team == team ? 0 : 1);
  feat.lines = {part.player};
  return feat;
}

// A run of games that is still going on.
struct Run {
  int games = 0;
  int first = 0;  // their places
  int last = 0;
  void Add(int game) {
    if (games++ == 0) first = game;
    last = game;
  }
};

void AddStreak(TopList<Feat>& list, const SeasonFigures& season, const Run& run, Feat feat) {
  if (run.games < 2) return;
  feat.value = run.games;
  feat.day = season.games[run.first].day;
  feat.last = season.games[run.last].day;
  list.Add(std::move(feat));
}

}  // namespace

void FindBestGames(Chapter& chapter, const SeasonFigures& season, const AllOutings& outings,
                   SeasonRole role) {
  for (const Part& part : InOrder(season, outings)) {
    LeadCandidate candidate;
    if (role == SeasonRole::Batting) {
      candidate.batting = &std::get<BattingTotals>(part.outing->line);
    } else {
      candidate.pitching = &std::get<PitchingTotals>(part.outing->line);
    }
    for (std::size_t i = 0; i < kGameLeads.size(); ++i) {
      const auto lead = LeadOf(part.player, candidate, kGameLeads.at(i));
      if (!lead) continue;
      chapter.bestGames.at(i).Offer(lead->value, [&] { return FeatOf(season, part); });
    }
  }
}

void FindTeamGames(Chapter& chapter, const SeasonFigures& season) {
  for (std::size_t game = 0; game < season.games.size(); ++game) {
    for (std::size_t side = 0; side < 2; ++side) {
      const SeasonSide& told = season.games[game].sides.at(side);
      const auto make = [&] { return FeatOf(season, static_cast<int>(game), side); };
      if (told.runs > 0) chapter.teamRuns.Offer(told.runs, make);
      if (told.hits > 0) chapter.teamHits.Offer(told.hits, make);
    }
  }
}

void FindCycles(Chapter& chapter, const SeasonFigures& season, const AllOutings& batting) {
  for (const Part& part : InOrder(season, batting)) {
    const auto& line = std::get<BattingTotals>(part.outing->line);
    const double singles = line.hits - line.doubles - line.triples - line.homeRuns;
    if (std::min({singles, line.doubles, line.triples, line.homeRuns}) < 1) continue;
    Feat& feat = chapter.cycles.emplace_back(FeatOf(season, part));
    feat.figures.insert(feat.figures.begin(), OutingText(line));
  }
}

void FindNoHitters(Chapter& chapter, const SeasonFigures& season, const PitchedGames& pitched) {
  constexpr double kOutsOfNineInnings = 27;
  for (std::size_t game = 0; game < pitched.size(); ++game) {
    const SeasonGame& told = season.games[game];
    if (told.mixed || told.sides[0].team == told.sides[1].team) continue;
    for (std::size_t side = 0; side < 2; ++side) {
      const PitchedSide& pitchers = pitched[game].at(side);
      const PitchingTotals& sum = pitchers.sum;
      if (sum.outs < kOutsOfNineInnings || sum.hits > 0 || told.sides.at(1 - side).hits > 0) {
        continue;
      }
      Feat& feat = chapter.noHitters.emplace_back(FeatOf(season, static_cast<int>(game), side));
      feat.lines = pitchers.players;
      feat.figures.insert(feat.figures.begin(), {DecimalInnings(sum.outs), DecimalText(sum.walks),
                                                 DecimalText(sum.strikeouts)});
    }
  }
}

void FindHittingStreaks(Chapter& chapter, const SeasonFigures& season, const AllOutings& batting) {
  // By person; each part stands in the order of the games.
  std::vector<std::vector<Part>> parts(chapter.persons.size());
  for (const Part& part : InOrder(season, batting)) {
    parts[chapter.lines[part.player].person].push_back(part);
  }
  for (const std::vector<Part>& own : parts) {
    Run run;
    BattingTotals sum;
    int line = 0;  // of the last game
    const auto end = [&] {
      if (run.games > 0) {
        AddStreak(chapter.hitting, season, run,
                  {.lines = {line},
                   .team = chapter.lines[line].team,
                   .figures = {DecimalText(sum.hits) + " for " + DecimalText(sum.atBats)}});
      }
      run = {};
      sum = {};
    };
    for (const Part& part : own) {
      const auto& game = std::get<BattingTotals>(part.outing->line);
      if (game.atBats <= 0 && game.hits <= 0) continue;
      if (game.hits <= 0) {
        end();
        continue;
      }
      run.Add(part.game);
      sum += game;
      line = part.player;
    }
    end();
  }
}

void FindWinningStreaks(Chapter& chapter, const SeasonFigures& season) {
  for (std::size_t team = 0; team < season.teams.size(); ++team) {
    Run run;
    const auto end = [&] {
      AddStreak(chapter.winning, season, run, {.team = season.teams[team].name});
      run = {};
    };
    for (const int game : season.teams[team].games) {
      const auto& [visitors, home] = season.games[game].sides;
      if (visitors.team == home.team || visitors.runs == home.runs) continue;
      if ((visitors.runs > home.runs) == (visitors.team == static_cast<int>(team))) {
        run.Add(game);
      } else {
        end();
      }
    }
    end();
  }
}

}  // namespace dtb::book
