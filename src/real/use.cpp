#include "real/use.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "archive/day_figures.h"
#include "base/text_cell.h"

namespace dtb::real {
namespace {

constexpr const char* kAppearances = "PA";
constexpr const char* kInnings = "innings";
constexpr double kGrace = 1.1;

double AppearancesOf(const archive::Batting& batting) {
  return double(batting.atBats) + batting.walks;
}

// The share of the year that is replayed, and what a full game brings.
struct Pace {
  double share = 0;
  bool told = true;
};

Use UseOf(const char* what, double oneGame, const Pace& pace, double replayed, double toDate,
          double year) {
  Use use{what, replayed, toDate, year, UseMark::Within};
  if (!pace.told) return use;
  if (replayed > year) {
    use.mark = UseMark::Over;
  } else if (replayed > toDate && replayed > year * pace.share * kGrace + oneGame) {
    use.mark = UseMark::AbovePace;
  }
  return use;
}

PlayerUse BatterOf(const BothPlayer& player, const archive::Player& inArchive, const Pace& pace) {
  constexpr double kOfGame = 5;
  const double replayed = player.batting ? player.batting->atBats + player.batting->walks : 0;
  return {player.name,
          true,
          {UseOf(kAppearances, kOfGame, pace, replayed, AppearancesOf(player.reallyBatted),
                 AppearancesOf(inArchive.batting))}};
}

PlayerUse PitcherOf(const BothPlayer& player, const archive::Player& inArchive, const Pace& pace) {
  constexpr double kOutsOfGame = 27;
  const PitchingTotals replayed = player.pitching.value_or(PitchingTotals{});
  const archive::Pitching& real = player.reallyPitched;
  const archive::Pitching& year = inArchive.pitching;
  return {player.name,
          true,
          {UseOf(kInnings, kOutsOfGame, pace, replayed.outs, real.outs, year.outs),
           UseOf("games", 1, pace, replayed.games, real.games, year.games),
           UseOf("starts", 1, pace, player.starts, real.starts, year.starts)}};
}

// Who is not in the archive.
PlayerUse Stranger(const BothPlayer& player, SeasonRole role) {
  PlayerUse use{player.name, false, {}};
  if (role == SeasonRole::Batting) {
    use.uses = {{kAppearances, player.batting->atBats + player.batting->walks}};
  } else {
    use.uses = {{kInnings, player.pitching->outs},
                {"games", player.pitching->games},
                {"starts", player.starts}};
  }
  return use;
}

// Games of the club whose figures of that kind the archive does not tell.
int UntoldGames(const archive::Season& season, int club, std::uint32_t figures) {
  const auto& games = season.clubs[club].games;
  return static_cast<int>(std::ranges::count_if(games, [&](int place) {
    const archive::Game& game = season.games[place];
    return (game.sides[game.sides[0].club == club ? 0 : 1].untold & figures) != 0;
  }));
}

void PutInOrder(std::vector<PlayerUse>& players) {
  std::ranges::stable_sort(players, [](const PlayerUse& a, const PlayerUse& b) {
    if (a.mark() != b.mark()) return a.mark() > b.mark();
    const Use& first = a.uses.front();
    const Use& second = b.uses.front();
    return std::max(first.year, first.replayed) > std::max(second.year, second.replayed);
  });
}

}  // namespace

UseMark PlayerUse::mark() const {
  UseMark most = UseMark::Within;
  for (const Use& use : uses) most = std::max(most, use.mark);
  return most;
}

TeamUse UseOfTeam(const BothWorlds& worlds, const std::vector<BothPlayer>& players, int team) {
  TeamUse use;
  if (!worlds.Compares(team)) return use;
  const archive::Season& season = *worlds.archive;
  const int place = worlds.clubs[team];
  const archive::Club& club = season.clubs[place];
  const auto all = static_cast<double>(club.games.size());
  const auto replayed = static_cast<double>(worlds.replayed->teams[team].games.size());
  const std::array untold{UntoldGames(season, place,
                                      archive::UntoldBit(&archive::Batting::atBats) |
                                          archive::UntoldBit(&archive::Batting::walks)),
                          UntoldGames(season, place, archive::UntoldBit(&archive::Pitching::outs))};
  const double share = std::min(1.0, replayed / all);
  const Pace batting{share, untold[0] == 0};
  const Pace pitching{share, untold[1] == 0};
  for (const BothPlayer& player : players) {
    if (player.team != team) continue;
    if (player.inArchive == archive::kNobody) {
      if (player.batting) use.batters.push_back(Stranger(player, SeasonRole::Batting));
      if (player.pitching) use.pitchers.push_back(Stranger(player, SeasonRole::Pitching));
      continue;
    }
    const archive::Player& inArchive = club.players[player.inArchive];
    PlayerUse bats = BatterOf(player, inArchive, batting);
    if (bats.uses[0].replayed > 0 || bats.uses[0].year > 0) use.batters.push_back(std::move(bats));
    if (player.pitching || inArchive.pitching.games > 0) {
      use.pitchers.push_back(PitcherOf(player, inArchive, pitching));
    }
  }
  PutInOrder(use.batters);
  PutInOrder(use.pitchers);
  const int most = std::max(untold[0], untold[1]);
  if (most > 0) {
    use.note = "The archive lacks the use in " + std::to_string(most) + " of " +
               std::to_string(club.games.size()) + " games, so nobody is marked.";
  }
  return use;
}

const char* MarkWord(UseMark mark) {
  switch (mark) {
    case UseMark::Over:
      return "over";
    case UseMark::AbovePace:
      return "above pace";
    case UseMark::Within:
      break;
  }
  return "";
}

std::string UseFigure(const Use& use, double figure) {
  if (use.what != std::string_view(kInnings)) return DecimalText(figure);
  return archive::InningsWithThirds(static_cast<int>(figure));
}

std::string UseText(const Use& use) {
  return UseFigure(use, use.replayed) + " of " + UseFigure(use, use.year) + ' ' + use.what;
}

std::vector<std::vector<std::string>> UseTexts(const std::vector<PlayerUse>& players,
                                               SeasonRole role) {
  std::vector<std::vector<std::string>> table{{"Player"}};
  if (role == SeasonRole::Batting) table.front().emplace_back("Plate appearances");
  if (role == SeasonRole::Pitching) {
    table.front().insert(table.front().end(), {"Innings", "Games", "Starts"});
  }
  table.front().emplace_back("Real use");
  for (const PlayerUse& player : players) {
    std::vector<std::string> row{player.name};
    for (const Use& use : player.uses) {
      const bool never = player.inArchive && use.replayed <= 0 && use.year <= 0;
      row.push_back(never ? std::string() : UseFigure(use, use.replayed));
      if (!player.inArchive || never) continue;
      row.back() += " of " + UseFigure(use, use.year) + ", really " + UseFigure(use, use.toDate);
    }
    row.emplace_back(player.inArchive ? MarkWord(player.mark()) : "not in the archive");
    table.push_back(std::move(row));
  }
  return table;
}

UseMarks::UseMarks(const BothWorlds& worlds, const StartsOfPitchers& starts) {
  const Moment now;
  const std::vector<BothPlayer> players = PlayersOfBoth(worlds, now, starts);
  std::map<int, std::vector<BothPlayer>> ofTeams;
  for (const BothPlayer& player : players) ofTeams[player.team].push_back(player);
  for (const auto& [team, own] : ofTeams) {
    const TeamUse use = UseOfTeam(worlds, own, team);
    for (const auto* list : {&use.batters, &use.pitchers}) {
      for (const PlayerUse& player : *list) Mark(worlds.replayed->teams[team].name, player);
    }
  }
}

// Who bats and pitches may be marked twice.
void UseMarks::Mark(const std::string& team, const PlayerUse& player) {
  if (player.mark() == UseMark::Within) return;
  Marked& marked = marked_[{team, player.name}];
  if (marked.text.empty() || player.mark() == UseMark::Over) marked.word = MarkWord(player.mark());
  for (const Use& use : player.uses) {
    if (use.mark == UseMark::Within) continue;
    marked.text += (marked.text.empty() ? "" : "; ") + UseText(use) + ", " + MarkWord(use.mark);
  }
}

const UseMarks::Marked* UseMarks::Find(const std::string& team, const std::string& player) const {
  for (const std::string& name : {player, WithoutNumber(player)}) {
    const auto found = marked_.find({team, name});
    if (found != marked_.end()) return &found->second;
  }
  return nullptr;
}

std::string UseMarks::TextOf(const std::string& team, const std::string& player) const {
  const Marked* marked = Find(team, player);
  return marked == nullptr ? "" : "Real use: " + marked->text;
}

std::string UseMarks::WordOf(const std::string& team, const std::string& player) const {
  const Marked* marked = Find(team, player);
  return marked == nullptr ? "" : marked->word;
}

UseMarks ReadUseMarks(Database& database, std::shared_ptr<const archive::Season> archive,
                      const std::stop_token& stop) {
  auto figures = std::make_shared<const SeasonFigures>(ReadPlainFigures(database, stop));
  return {PairWorlds(std::move(figures), std::move(archive)), ReadStarts(database, stop)};
}

}  // namespace dtb::real
