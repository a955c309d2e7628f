#include "game/play_credits.h"

#include <functional>

#include "game/history.h"
#include "game/new_game.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

void RaiseFigure(StatGrid& grid, int nameColumn, const std::string& name, int column, int by) {
  const auto row = grid.FindRow(nameColumn, name);
  if (!row || name.empty()) return;
  const double figure = NumberOf(grid.Text(*row, column)) + by;
  grid.SetText(*row, column, figure == 0 ? "" : DecimalText(figure));
}

Side SideBatting(const Play& play) { return play.half % 2 == 0 ? Side::Visitors : Side::Home; }

void Decide(Board& board, std::size_t place, std::size_t number, const std::string& step,
            const std::function<void(Move&)>& decide) {
  if (place >= board.state.plays.size() || RefusesAfterSave(board)) return;
  Trapped(board.platform.boxes, [&] {
    Play play = board.state.plays.At(place);
    if (number >= play.moves.size() || play.moves[number].to != kHomePlate) return;
    const Gesture gesture(board, step + ", " + play.moves[number].name);
    CreditRun(board, play, play.moves[number], -1);
    decide(play.moves[number]);
    CreditRun(board, play, play.moves[number], 1);
    board.state.plays.Replace(place, play);
  });
}

}  // namespace

Side SideOfBatter(Board& board, const Play& play) {
  const Side usual = SideBatting(play);
  const auto has = [&](Side side) {
    return SideOf(board, side).grid.FindRow(stat_column::kBatter, play.batter).has_value() &&
           SideOf(board, Other(side)).grid.FindRow(stat_column::kPitcher, play.pitcher).has_value();
  };
  return has(usual) || !has(Other(usual)) ? usual : Other(usual);
}

void CreditRun(Board& board, const Play& play, const Move& move, int by) {
  const Side batting = SideOfBatter(board, play);
  if (move.battedIn) {
    RaiseFigure(SideOf(board, batting).grid, stat_column::kBatter, play.batter,
                stat_column::kRunsBattedIn, by);
  }
  if (move.earned) {
    RaiseFigure(SideOf(board, Other(batting)).grid, stat_column::kPitcher, move.pitcher,
                stat_column::kEarnedRuns, by);
  }
}

void SetBattedIn(Board& board, std::size_t play, std::size_t move, bool battedIn) {
  Decide(board, play, move, "RBI", [battedIn](Move& run) { run.battedIn = battedIn; });
}

void SetEarned(Board& board, std::size_t play, std::size_t move, bool earned) {
  Decide(board, play, move, "earned run", [earned](Move& run) { run.earned = earned; });
}

}  // namespace dtb
