#include "record/line_up_card.h"

#include <algorithm>

#include "game/batting_order.h"
#include "record/positions.h"
#include "record/scorecard_boxes.h"

namespace dtb {
namespace {

constexpr int kColumnsToFill = 10;

BatterRecord PlayerOf(const LineupList& list, int row) {
  const std::string& entry = list.entries().at(static_cast<std::size_t>(row));
  const bool inOrder = row < kLineupSlots;
  return {.name = PlayerAt(list, row),
          .position = PositionIn(entry),
          .place = inOrder ? row + 1 : 0,
          .figures = {}};
}

void FillOrder(Board& board, Side side, SideRecord& record) {
  const LineupList& list = SideOf(board, side).list;
  for (int row = 0; row < std::min(list.size(), kLineupSlots); ++row) {
    BatterRecord player = PlayerOf(list, row);
    const auto same = std::ranges::find(record.batters, player.name, &BatterRecord::name);
    const bool listed = same != record.batters.end();
    if (player.name.empty() || (listed && same->place > 0)) continue;
    if (listed) player.figures = same->figures;
    if (listed) record.batters.erase(same);
    player.substitute = std::ranges::find(record.batters, player.place, &BatterRecord::place) !=
                        record.batters.end();
    record.batters.push_back(player);
  }
}

}  // namespace

GameRecord RecordWithLineups(Board& board) {
  GameRecord game = RecordOf(board);
  for (const Side side : {Side::Visitors, Side::Home}) {
    SideRecord& record = game.side(side);
    const SideFields fields = SideOf(board, side);
    if (record.team.empty()) record.team = fields.team.value();
    FillOrder(board, side, record);
    if (record.pitchers.empty() && !fields.pitcher.value().empty()) {
      record.pitchers.push_back({.name = fields.pitcher.value()});
    }
  }
  return game;
}

Scorecard EmptyScorecard(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const SideFields others = SideOf(board, Other(side));
  Scorecard card;
  card.toFillIn = true;
  card.side = side;
  card.team = fields.team.value();
  card.other = others.team.value();
  card.places.resize(kLineupSlots);
  for (int row = 0; row < fields.list.size(); ++row) {
    const BatterRecord player = PlayerOf(fields.list, row);
    if (player.name.empty()) continue;
    if (player.place == 0) {
      card.bench.push_back(player);
    } else {
      card.places.at(static_cast<std::size_t>(row)).push_back({player, 0, false});
    }
  }
  for (int column = 1; column <= kColumnsToFill; ++column) card.columns.push_back({column, 0});
  if (!others.pitcher.value().empty()) {
    ScorePitcher pitcher;
    pitcher.record.name = others.pitcher.value();
    card.pitchers.push_back(pitcher);
  }
  return card;
}

}  // namespace dtb
