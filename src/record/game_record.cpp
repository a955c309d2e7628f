#include "record/game_record.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "base/text_cell.h"
#include "game/game_end.h"
#include "game/innings.h"
#include "game/player_name.h"
#include "record/batting_places.h"
#include "record/chosen_decisions.h"
#include "record/positions.h"

namespace dtb {
namespace {

using namespace stat_column;

template <class Record>
auto Sum(const std::vector<Record>& records) {
  decltype(Record::figures) sum;
  for (const Record& record : records) sum += record.figures;
  return sum;
}

template <class Figures>
Figures& AddAll(Figures& sum, const Figures& other,
                std::initializer_list<double Figures::*> members) {
  for (const auto member : members) sum.*member += other.*member;
  return sum;
}

BatterFigures BatterIn(const StatGrid& grid, int row) {
  const auto figure = [&](int column) { return NumberOf(grid.Text(row, column)); };
  return {.atBats = figure(kAtBats),
          .singles = figure(kSingles),
          .doubles = figure(kDoubles),
          .triples = figure(kTriples),
          .homeRuns = figure(kHomeRuns),
          .runsBattedIn = figure(kRunsBattedIn),
          .walks = figure(kWalks),
          .strikeouts = figure(kStrikeouts),
          .steals = figure(kStolenBases)};
}

PitcherFigures PitcherIn(const StatGrid& grid, int row) {
  const auto figure = [&](int column) { return NumberOf(grid.Text(row, column)); };
  return {.outs = OutsOfInnings(figure(kInningsPitched)),
          .hits = figure(kPitcherHits),
          .earnedRuns = figure(kEarnedRuns),
          .walks = figure(kPitcherWalks),
          .strikeouts = figure(kPitcherStrikeouts),
          .homeRuns = figure(kPitcherHomeRuns)};
}

// The first of a list's first nine rows that has the player, from 1; 0 for none.
int RowInOrder(const LineupList& list, const std::string& name) {
  for (int row = 0; row < std::min(list.size(), kLineupSlots); ++row) {
    if (PlayerNameOf(list.entries()[static_cast<std::size_t>(row)]) == name) return row + 1;
  }
  return 0;
}

std::string PositionOf(const SideFields& fields, const std::string& name) {
  for (const LineupList* list : {&fields.list, &fields.loaded}) {
    for (const std::string& entry : list->entries()) {
      if (PlayerNameOf(entry) == name) return PositionIn(entry);
    }
  }
  return "";
}

std::vector<BatterRecord> BattersOf(const SideFields& fields) {
  std::vector<BatterRecord> batters;
  for (int row = 1; row < fields.grid.rows(); ++row) {
    const std::string name(fields.grid.Text(row, kBatter));
    if (name.empty() || fields.grid.Text(row, kPlayed) != "1") continue;
    const int now = RowInOrder(fields.list, name);
    const int loaded = RowInOrder(fields.loaded, name);
    batters.push_back({.name = name,
                       .position = PositionOf(fields, name),
                       .place = now != 0 ? now : loaded,
                       .substitute = now != 0 && now != loaded,
                       .figures = BatterIn(fields.grid, row)});
  }
  return batters;
}

std::vector<PitcherRecord> PitchersOf(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  std::vector<PitcherRecord> pitchers;
  for (int row = 1; row < fields.grid.rows(); ++row) {
    const std::string name(fields.grid.Text(row, kPitcher));
    if (name.empty()) continue;
    PitcherRecord& pitcher =
        pitchers.emplace_back(PitcherRecord{name, PitcherIn(fields.grid, row)});
    if (fields.grid.Text(row, kInningsPitched).empty() && name == fields.pitcher.value()) {
      pitcher.figures.outs = OutsOfInnings(InningsNotCredited(board, side));
    }
  }
  return pitchers;
}

SideRecord SideRecordOf(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  SideRecord record{.team = fields.sheetTeam.value(),
                    .batters = BattersOf(fields),
                    .pitchers = PitchersOf(board, side)};
  for (int inning = 0; inning < kInnings; ++inning) {
    record.innings.push_back(fields.score.at(inning).text.value());
  }
  while (!record.innings.empty() && record.innings.back().empty()) record.innings.pop_back();
  record.runs = RunsOfInnings(fields.score);
  record.hits = fields.score.at(kTotalHits).text.number();
  record.errors = fields.score.at(kTotalErrors).text.number();
  return record;
}

template <class Record>
Record* Find(std::vector<Record>& records, const std::string& name) {
  const auto found = std::ranges::find(records, name, &Record::name);
  return found == records.end() ? nullptr : &*found;
}

void CountRuns(GameRecord& game) {
  std::array<double, 2> told{};
  for (SideRecord& side : game.sides) {
    for (BatterRecord& batter : side.batters) batter.figures.runs = 0;
    for (PitcherRecord& pitcher : side.pitchers) pitcher.figures.runs = 0;
  }
  for (const Play& play : game.plays) {
    const Side batting = game.BattingIn(play);
    SideRecord& fielding = game.side(Other(batting));
    for (const Move& move : play.moves) {
      if (move.to != kHomePlate) continue;
      BatterRecord* runner = Find(game.side(batting).batters, move.name);
      PitcherRecord* pitcher = Find(fielding.pitchers, move.pitcher);
      if (runner != nullptr) ++runner->figures.runs;
      if (pitcher != nullptr) ++pitcher->figures.runs;
      if (runner != nullptr && pitcher != nullptr) ++told.at(batting == Side::Visitors ? 0 : 1);
    }
  }
  for (std::size_t side = 0; side < 2; ++side) {
    SideRecord& record = game.sides.at(side);
    record.runsKnown = !game.plays.empty() && told.at(side) == record.runs;
  }
}

// Where a batter stands among those of his place, and which he is.
struct Standing {
  int place = 0;
  long entrance = 0;
};

void SettlePlaces(GameRecord& game, Side side) {
  constexpr long kFirst = -1;
  constexpr long kLast = 1'000'000;
  std::vector<BatterRecord>& batters = game.side(side).batters;
  const std::vector<BattingPlace> places = PlacesOf(game, side);
  std::vector<std::pair<Standing, BatterRecord>> settled;
  for (BatterRecord& batter : batters) {
    const auto known = std::ranges::find(places, batter.name, &BattingPlace::name);
    // Who came to no play began in his place, or was the last one in it.
    Standing standing{batter.place == 0 ? kLineupSlots + 1 : batter.place,
                      batter.substitute ? kLast : kFirst};
    if (known != places.end()) standing = {known->place, static_cast<long>(known - places.begin())};
    settled.emplace_back(standing, std::move(batter));
  }
  std::ranges::stable_sort(settled, [](const auto& a, const auto& b) {
    return std::pair(a.first.place, a.first.entrance) < std::pair(b.first.place, b.first.entrance);
  });
  batters.clear();
  for (auto& [standing, batter] : settled) {
    batter.place = standing.place > kLineupSlots ? 0 : standing.place;
    batter.substitute =
        batter.place != 0 && !batters.empty() && batters.back().place == batter.place;
    batters.push_back(std::move(batter));
  }
}

}  // namespace

BatterFigures& BatterFigures::operator+=(const BatterFigures& other) {
  using F = BatterFigures;
  return AddAll(*this, other,
                {&F::atBats, &F::singles, &F::doubles, &F::triples, &F::homeRuns, &F::runsBattedIn,
                 &F::walks, &F::strikeouts, &F::steals, &F::runs});
}

PitcherFigures& PitcherFigures::operator+=(const PitcherFigures& other) {
  using F = PitcherFigures;
  return AddAll(
      *this, other,
      {&F::outs, &F::hits, &F::earnedRuns, &F::walks, &F::strikeouts, &F::homeRuns, &F::runs});
}

Side GameRecord::BattingIn(const Play& play) const {
  const Side usual = play.half % 2 == 0 ? Side::Visitors : Side::Home;
  const auto has = [&](Side one) {
    return std::ranges::any_of(side(one).batters,
                               [&](const auto& batter) { return batter.name == play.batter; }) &&
           std::ranges::any_of(side(Other(one)).pitchers,
                               [&](const auto& pitcher) { return pitcher.name == play.pitcher; });
  };
  return has(usual) || !has(Other(usual)) ? usual : Other(usual);
}

void SettleRecord(GameRecord& game) {
  for (const Side side : {Side::Visitors, Side::Home}) SettlePlaces(game, side);
  CountRuns(game);
}

GameRecord RecordOf(Board& board) {
  GameRecord game{.sides = {SideRecordOf(board, Side::Visitors), SideRecordOf(board, Side::Home)},
                  .plays = board.state.plays.All()};
  const bool saved = !board.sheet.Command2_enabled.value();
  if (saved) game.id = board.sheet.tb_TimeStamp2.value();
  game.over = saved || IsGameOver(board.state);
  SettleRecord(game);
  game.decisions = DecisionsOnSheet(board.sheet, game);
  return game;
}

BatterFigures SumOf(const std::vector<BatterRecord>& batters) { return Sum(batters); }
PitcherFigures SumOf(const std::vector<PitcherRecord>& pitchers) { return Sum(pitchers); }

double OutsOfInnings(double innings) { return std::round(innings * 3); }

}  // namespace dtb
