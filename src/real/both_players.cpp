#include "real/both_players.h"

#include <algorithm>
#include <unordered_map>

#include "archive/day_figures.h"
#include "base/letters.h"
#include "database/rows.h"

namespace dtb::real {
namespace {

using archive::Club;
using archive::kNobody;
using archive::NameForm;

constexpr std::array kForms{NameForm::FirstLast, NameForm::LastFirst};

// The players of a club by their names without a number.
class NamesOfClub {
 public:
  explicit NamesOfClub(const Club& club) : club_(club) {
    for (int player = 0; player < static_cast<int>(club.players.size()); ++player) {
      for (const NameForm form : kForms) {
        std::vector<int>& players = players_[archive::PlainName(club.players[player], form)];
        if (players.empty() || players.back() != player) players.push_back(player);
      }
    }
  }

  [[nodiscard]] int PlayerOf(const std::string& name) const {
    for (const std::string& plain : {name, WithoutNumber(name)}) {
      const auto found = players_.find(plain);
      if (found == players_.end()) continue;
      const std::vector<int>& players = found->second;
      if (players.size() == 1) return players.front();
      for (const int player : players) {
        for (const NameForm form : kForms) {
          if (archive::NameInFile(club_.players[player], form) == name) return player;
        }
      }
    }
    return kNobody;
  }

 private:
  const Club& club_;
  std::unordered_map<std::string, std::vector<int>> players_;
};

// What the players of a club did in its first games.
struct ClubDays {
  std::vector<archive::Batting> batting;
  std::vector<archive::Pitching> pitching;
};

ClubDays DaysOf(const archive::Season& season, int club, int games) {
  const Club& told = season.clubs[club];
  ClubDays days{std::vector<archive::Batting>(told.players.size()),
                std::vector<archive::Pitching>(told.players.size())};
  for (int i = 0; i < games; ++i) {
    const archive::Game& game = season.games[told.games[i]];
    archive::ForEachDay(game.sides[game.sides[0].club == club ? 0 : 1],
                        [&](const archive::DayFigures& day) {
                          archive::Add(days.batting[day.player], day.batting);
                          archive::Add(days.pitching[day.player], day.pitching);
                        });
  }
  return days;
}

template <class Totals>
void AddTo(std::optional<Totals>& sum, const std::optional<Totals>& totals) {
  if (!totals) return;
  if (!sum) sum.emplace();
  *sum += *totals;
}

BattingTotals TotalsOf(const archive::Batting& real) {
  BattingTotals totals;
  totals.games = real.games;
  totals.atBats = real.atBats;
  totals.hits = real.hits;
  totals.doubles = real.doubles;
  totals.triples = real.triples;
  totals.homeRuns = real.homeRuns;
  totals.runsBattedIn = real.runsBattedIn;
  totals.walks = real.walks;
  totals.strikeouts = real.strikeouts;
  totals.stolenBases = real.stolenBases;
  totals.runs = real.runs;
  totals.intoDoublePlays = real.intoDoublePlays;
  totals.leftOnBase = real.leftOnBase;
  return totals;
}

PitchingTotals TotalsOf(const archive::Pitching& real) {
  PitchingTotals totals;
  totals.games = real.games;
  totals.outs = real.outs;
  totals.hits = real.hits;
  totals.earnedRuns = real.earnedRuns;
  totals.homeRuns = real.homeRuns;
  totals.walks = real.walks;
  totals.strikeouts = real.strikeouts;
  totals.wins = real.wins;
  totals.losses = real.losses;
  totals.saves = real.saves;
  totals.runs = real.runs;
  return totals;
}

std::uint32_t FiguresOf(SeasonLead lead) {
  using archive::Batting;
  using archive::Pitching;
  const auto bits = [](auto... figures) { return (archive::UntoldBit(figures) | ...); };
  switch (lead) {
    case SeasonLead::Average:
      return bits(&Batting::atBats, &Batting::hits);
    case SeasonLead::Hits:
      return bits(&Batting::hits);
    case SeasonLead::HomeRuns:
      return bits(&Batting::homeRuns);
    case SeasonLead::RunsBattedIn:
      return bits(&Batting::runsBattedIn);
    case SeasonLead::Runs:
      return bits(&Batting::runs);
    case SeasonLead::StolenBases:
      return bits(&Batting::stolenBases);
    case SeasonLead::EarnedRunAverage:
      return bits(&Pitching::earnedRuns, &Pitching::outs);
    case SeasonLead::Wins:
    case SeasonLead::Saves:
      return bits(&Pitching::wins);
    case SeasonLead::Strikeouts:
      return bits(&Pitching::strikeouts);
    case SeasonLead::Innings:
      return bits(&Pitching::outs);
  }
  return 0;
}

}  // namespace

std::string WithoutNumber(const std::string& name) {
  const std::size_t open = name.rfind(" (");
  if (open == std::string::npos || open == 0 || !name.ends_with(')')) return name;
  const std::string number = name.substr(open + 2, name.size() - open - 3);
  const bool plain = !number.empty() && number.find_first_not_of("0123456789") == std::string::npos;
  return plain ? name.substr(0, open) : name;
}

StartsOfPitchers ReadStarts(DatabaseReader& database, const std::stop_token& stop) {
  StartsOfPitchers starts;
  ForEachRow(database,
             {"SELECT ifnull(Team, ''), ifnull(Pitcher, ''), count(*) FROM Pitching WHERE rowid IN"
              " (SELECT min(rowid) FROM Pitching GROUP BY GameID, Team) GROUP BY 1, 2",
              {},
              stop},
             [&](std::span<const DatabaseValue> row) {
               starts[{TextIn(row[0]), TextIn(row[1])}] += NumberIn(row[2]);
             });
  return starts;
}

std::vector<BothPlayer> PlayersOfBoth(const BothWorlds& worlds, const Moment& moment,
                                      const StartsOfPitchers& starts) {
  std::vector<BothPlayer> players;
  const SeasonFigures& replayed = *worlds.replayed;
  std::vector<std::optional<NamesOfClub>> names(replayed.teams.size());
  std::map<std::pair<int, int>, std::size_t> places;  // by team and place in the club
  for (std::size_t team = 0; team < replayed.teams.size(); ++team) {
    if (worlds.clubs[team] == kNoClub || replayed.teams[team].games.empty()) continue;
    const Club& club = worlds.archive->clubs[worlds.clubs[team]];
    names[team].emplace(club);
    const ClubDays days = DaysOf(*worlds.archive, worlds.clubs[team],
                                 RealGamesAt(worlds, static_cast<int>(team), moment));
    for (std::size_t place = 0; place < club.players.size(); ++place) {
      places[{static_cast<int>(team), static_cast<int>(place)}] = players.size();
      BothPlayer player{.name = archive::NameInFile(club.players[place], worlds.names)};
      player.team = static_cast<int>(team);
      player.inArchive = static_cast<int>(place);
      player.reallyBatted = days.batting[place];
      player.reallyPitched = days.pitching[place];
      players.push_back(std::move(player));
    }
  }
  for (const SeasonPlayer& saved : replayed.players) {
    if (!names[saved.team]) continue;
    const int inArchive = names[saved.team]->PlayerOf(saved.name);
    const auto found = places.find({saved.team, inArchive});
    const std::size_t place = found == places.end() ? players.size() : found->second;
    if (place == players.size()) players.push_back({.name = saved.name, .team = saved.team});
    BothPlayer& player = players[place];
    if (!player.batting && !player.pitching) player.name = saved.name;
    AddTo(player.batting, saved.batting);
    AddTo(player.pitching, saved.pitching);
    const auto started = starts.find({replayed.teams[saved.team].name, saved.name});
    if (started != starts.end()) player.starts += started->second;
  }
  // Of a roster, who plays in neither world is left out.
  std::erase_if(players, [&](const BothPlayer& player) {
    if (player.inArchive == kNobody || player.batting || player.pitching) return false;
    return worlds.archive->clubs[worlds.clubs[player.team]].players[player.inArchive].days.empty();
  });
  std::ranges::sort(players, [](const BothPlayer& a, const BothPlayer& b) {
    const int order = CompareNames(a.name, b.name);
    if (order != 0) return order < 0;
    return a.name != b.name ? a.name < b.name : a.team < b.team;
  });
  return players;
}

void AddPlayers(BothStandings& both, const std::vector<BothPlayer>& players) {
  for (const BothPlayer& player : players) {
    both.replayed.players.push_back({player.name, player.team, player.batting, player.pitching});
    SeasonPlayer real{player.name, player.team};
    if (player.reallyBatted.games > 0) real.batting = TotalsOf(player.reallyBatted);
    if (player.reallyPitched.games > 0) real.pitching = TotalsOf(player.reallyPitched);
    both.really.players.push_back(std::move(real));
  }
}

Untold UntoldOf(const BothWorlds& worlds, const Moment& moment, SeasonLead lead) {
  const std::uint32_t wanted = FiguresOf(lead);
  Untold untold;
  for (std::size_t team = 0; team < worlds.clubs.size(); ++team) {
    const int games = RealGamesAt(worlds, static_cast<int>(team), moment);
    for (int i = 0; i < games; ++i) {
      const int club = worlds.clubs[team];
      const archive::Game& game = worlds.archive->games[worlds.archive->clubs[club].games[i]];
      ++untold.of;
      if (game.sides[game.sides[0].club == club ? 0 : 1].untold & wanted) ++untold.games;
    }
  }
  return untold;
}

std::string UntoldText(const Untold& untold) {
  if (untold.games == 0) return {};
  if (untold.games == untold.of) return "The archive does not say.";
  return "The archive lacks this for " + std::to_string(untold.games) + " of the teams' " +
         std::to_string(untold.of) + " games.";
}

}  // namespace dtb::real
