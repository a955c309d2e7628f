#include "database/play_rows.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/checksum.h"
#include "base/text_cell.h"
#include "base/text_parts.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"

namespace dtb {
namespace {

// By the numbers of the places.
constexpr std::string_view kPlaceLetters = "B123HXS";
constexpr std::size_t kMoveHead = 4;  // "1-H "

std::optional<Move> MoveIn(std::string_view line) {
  if (line.size() < kMoveHead || line[1] != '-' || line[3] != ' ') return std::nullopt;
  const auto from = kPlaceLetters.find(line[0]);
  const auto to = kPlaceLetters.find(line[2]);
  if (from == std::string_view::npos || to == std::string_view::npos) return std::nullopt;
  Move move;
  move.name = line.substr(kMoveHead);
  move.from = static_cast<int>(from);
  move.to = static_cast<int>(to);
  return move;
}

const char* OneOrNought(bool holds) { return holds ? "1" : "0"; }

// Texts without letters stay Null.
void Put(TableRow& row, const char* column, const std::string& text) {
  if (!text.empty()) row.cells.push_back({column, text});
}

TableRow PlayRow(const GameRecord& game, const Play& play, const std::string& number) {
  const Side batting = game.BattingIn(play);
  TableRow row{table::kPlays, {}};
  Put(row, "Number", number);
  Put(row, "Inning", std::to_string(play.half / 2 + 1));
  Put(row, "Half", HostOf(play.half % 2 == 0 ? Side::Visitors : Side::Home));
  Put(row, "Outs", DecimalText(play.outsBefore));
  Put(row, "Team", game.side(batting).team);
  Put(row, "Batter", play.batter);
  Put(row, "Opponent", game.side(Other(batting)).team);
  Put(row, "Pitcher", play.pitcher);
  Put(row, "Outcome", std::string(OutcomeCode(play.outcome)));
  Put(row, "BasesKept", OneOrNought(play.basesKept));
  Put(row, "Moves", MovesText(play));
  Put(row, "First", play.after[0]);
  Put(row, "Second", play.after[1]);
  Put(row, "Third", play.after[2]);
  Put(row, "GameID", game.id);
  return row;
}

TableRow RunRow(const GameRecord& game, const Play& play, const Move& run,
                const std::string& number) {
  const Side batting = game.BattingIn(play);
  TableRow row{table::kRuns, {}};
  Put(row, "Play", number);
  Put(row, "Runner", run.name);
  Put(row, "Batter", play.batter);
  Put(row, "Pitcher", run.pitcher);
  Put(row, "RBI", OneOrNought(run.battedIn));
  Put(row, "Earned", OneOrNought(run.earned));
  Put(row, "OnByError", OneOrNought(run.byError));
  Put(row, "Team", game.side(batting).team);
  Put(row, "Opponent", game.side(Other(batting)).team);
  Put(row, "GameID", game.id);
  return row;
}

}  // namespace

std::string MovesText(const Play& play) {
  std::string text;
  for (const Move& move : play.moves) {
    if (!text.empty()) text += '\n';
    text += kPlaceLetters.at(static_cast<std::size_t>(move.from));
    text += '-';
    text += kPlaceLetters.at(static_cast<std::size_t>(move.to));
    text += ' ' + move.name;
  }
  return text;
}

std::optional<std::vector<Move>> MovesIn(std::string_view text) {
  std::vector<Move> moves;
  while (!text.empty()) {
    auto move = MoveIn(TakeUpTo(text, '\n'));
    if (!move) return std::nullopt;
    moves.push_back(std::move(*move));
  }
  return moves;
}

std::optional<Outcome> OutcomeOfCode(std::string_view code) {
  for (int number = 0; number <= static_cast<int>(Outcome::PutOnBase); ++number) {
    const auto outcome = static_cast<Outcome>(number);
    if (OutcomeCode(outcome) == code) return outcome;
  }
  return std::nullopt;
}

std::optional<Decision> DecisionOfCode(std::string_view code) {
  for (int number = 0; number <= static_cast<int>(Decision::BlownSave); ++number) {
    const auto decision = static_cast<Decision>(number);
    if (DecisionCode(decision) == code) return decision;
  }
  return std::nullopt;
}

std::string LineupText(const SideRecord& side) {
  std::string text;
  for (const BatterRecord& batter : side.batters) {
    if (!text.empty()) text += '\n';
    if (batter.place > 0) text += DecimalText(batter.place);
    text.append("\t").append(batter.position).append("\t").append(batter.name);
  }
  return text;
}

std::vector<BatterRecord> LineupIn(std::string_view text) {
  std::vector<BatterRecord> batters;
  while (!text.empty()) {
    std::string_view line = TakeUpTo(text, '\n');
    if (std::ranges::count(line, '\t') < 2) continue;
    const int placeBefore = batters.empty() ? 0 : batters.back().place;
    BatterRecord& batter = batters.emplace_back();
    const double place = NumberOf(TakeUpTo(line, '\t'));
    if (place >= 1 && place <= kLineupSlots) batter.place = static_cast<int>(place);
    batter.substitute = batter.place > 0 && batter.place == placeBefore;
    batter.position = TakeUpTo(line, '\t');
    batter.name = line;
  }
  return batters;
}

std::vector<TableRow> PlayRowsOf(const GameRecord& game) {
  std::vector<TableRow> rows;
  std::vector<TableRow> runs;
  for (std::size_t i = 0; i < game.plays.size(); ++i) {
    const Play& play = game.plays[i];
    const std::string number = std::to_string(i + 1);
    rows.push_back(PlayRow(game, play, number));
    for (const Move& move : play.moves) {
      if (move.to == kHomePlate) runs.push_back(RunRow(game, play, move, number));
    }
  }
  std::ranges::move(runs, std::back_inserter(rows));
  for (const PitcherDecision& decision : game.decisions) {
    TableRow& row = rows.emplace_back(TableRow{table::kDecisions, {}});
    Put(row, "Pitcher", decision.pitcher);
    Put(row, "Decision", DecisionCode(decision.decision));
    Put(row, "Team", game.side(decision.side).team);
    Put(row, "GameID", game.id);
  }
  return rows;
}

std::uint64_t ChecksumOf(const TableRow& row, std::uint64_t before) {
  constexpr std::string_view kBetween("\0", 1);
  std::uint64_t sum = ChecksumOf(row.table, before);
  for (const ColumnText& cell : row.cells) {
    for (const std::string& text : {cell.column, cell.text}) {
      sum = ChecksumOf(text, ChecksumOf(kBetween, sum));
    }
  }
  return ChecksumOf("\n", sum);
}

TableRow GameRowOf(const GameRecord& game, std::uint64_t checksum) {
  TableRow row{table::kGames, {}};
  Put(row, "GameID", game.id);
  Put(row, "GameDate", game.date);
  Put(row, "ArchiveGame", game.archive);
  Put(row, "Park", game.park);
  Put(row, "VisitorsLineup", LineupText(game.side(Side::Visitors)));
  Put(row, "HomeLineup", LineupText(game.side(Side::Home)));
  Put(row, "OwnID", HexText(ChecksumOf(row, checksum)));
  return row;
}

}  // namespace dtb
