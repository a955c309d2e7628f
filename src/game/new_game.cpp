#include "game/new_game.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "base/program_error.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/memento.h"
#include "game/recovery.h"
#include "platform/trapped.h"
#include "teams/logos.h"
#include "teams/team_load.h"

namespace dtb {
namespace {

constexpr std::array kSides{Side::Visitors, Side::Home};

// The board as it stands after a start, with the options that the person has chosen since.
GameMemento FreshGame(const Board& board) {
  BoardState state;
  StatSheet sheet;
  EventLog log;
  Board fresh{state, sheet, log, board.platform};
  const BoardState& now = board.state;
  state.pieceWidth = now.pieceWidth;
  state.pieceHeight = now.pieceHeight;
  state.pb_BaseTracker_visible = now.pb_BaseTracker_visible;
  state.cb_BaseTracker = now.cb_BaseTracker;
  state.chk_Ctrls = now.chk_Ctrls;
  state.cb_KeepBases = now.cb_KeepBases;
  state.fra_Options_visible = now.fra_Options_visible;
  state.lbl_PhotoPath = now.lbl_PhotoPath;
  state.Text1 = now.Text1;
  state.Text1_visible = now.Text1_visible;
  PlacePiecesAtStart(state);
  SetUpSheet(sheet);
  ShowDefaultLogos(fresh);
  return {state, sheet, log};
}

bool IsSaved(const Board& board) { return !board.sheet.Command2_enabled.value(); }

bool HasCounts(const StatGrid& grid) {
  for (int row = 1; row < grid.rows(); ++row) {
    for (int column = stat_column::kStrikeouts; column <= stat_column::kEarnedRuns; ++column) {
      if (column != stat_column::kPitcher && !grid.Text(row, column).empty()) return true;
    }
  }
  return false;
}

// Sets a game aside that is not saved, and gives what is to be told of it; "" where there is
// nothing to set aside. Nothing: it cannot be set aside, and the person wants to keep it.
std::optional<std::string> SetGameAside(Board& board) {
  if (board.newGames == nullptr || IsSaved(board) || IsFresh(board)) return "";
  const std::string file = board.newGames->store.PutAside(TableText(board, board.newGames->aids),
                                                          AsideTitle(board.state));
  if (!file.empty()) {
    return "The game that was on the board is set aside as \"" + TextOf(PathOf(file).filename()) +
           "\". \"" + kTakeUpSetAside + "\" in the menu \"Edit\" brings it back.";
  }
  if (board.platform.boxes.Ask(
          {"The game on the board is not saved, and it cannot be set aside; the disk may be full. "
           "Begin a new game anyway? This one will be lost.",
           "New game"})) {
    return "";
  }
  return std::nullopt;
}

void Begin(Board& board) {
  Restore(board, FreshGame(board));
  board.savedTold.clear();
  if (board.history != nullptr) board.history->Clear();
  if (board.newGames != nullptr && board.newGames->begun) board.newGames->begun();
}

std::string NextGameAhead(const Board& board) {
  return board.newGames->nextOffer ? board.newGames->nextOffer() : "";
}

}  // namespace

bool IsFresh(const Board& board) {
  if (!board.log.text().empty() || IsSaved(board)) return false;
  GameMemento fresh = FreshGame(board);
  return GameText({fresh.state, fresh.sheet, fresh.log, board.platform}) == GameText(board);
}

bool GameUnderWay(const Board& board) {
  const BoardState& state = board.state;
  return HasCounts(board.sheet.grd_VisStats) || HasCounts(board.sheet.grd_HomeStats) ||
         state.tb_OUT.number() > 0 || state.tb_OutsCount.number() > 0;
}

bool NewGame(Board& board) {
  bool begun = false;
  Trapped(board.platform.boxes, [&] {
    const std::optional<std::string> aside = SetGameAside(board);
    if (!aside) return;
    Begin(board);
    begun = true;
    if (!aside->empty()) board.platform.boxes.Show(*aside, BoxIcon::Information, "New game");
  });
  return begun;
}

void PlaySameTeamsAgain(Board& board) {
  std::array<TeamLines, 2> teams;
  for (const Side side : kSides) {
    const SideFields fields = SideOf(board, side);
    teams.at(static_cast<std::size_t>(side)) = {fields.team.value(), fields.loaded.entries()};
  }
  if (NewGame(board)) ReplaceTeams(board, teams, "Same teams again");
}

void OfferNewGame(Board& board, const std::string& told) {
  if (board.newGames == nullptr) return board.platform.boxes.Show(told, BoxIcon::Information);
  // Closing the box is the last answer.
  std::vector<std::pair<std::string, std::function<void()>>> ways;
  ways.emplace_back("New game", [&board] { NewGame(board); });
  if (!board.state.VisLoaded.empty() && !board.state.HomeLoaded.empty()) {
    ways.emplace_back("Same teams again", [&board] { PlaySameTeamsAgain(board); });
  }
  if (const std::string offer = NextGameAhead(board); !offer.empty()) {
    ways.emplace_back(offer, [&board] {
      if (NewGame(board)) board.newGames->loadNext();
    });
  }
  ways.emplace_back("Stay here", [] {});
  Choice choice{.text = told, .usual = ways.size() - 1, .icon = BoxIcon::Information};
  for (const auto& [caption, way] : ways) choice.answers.push_back(caption);
  ways.at(board.platform.boxes.Choose(choice)).second();
}

bool RefusesAfterSave(Board& board) {
  if (!IsSaved(board)) return false;
  const std::string& game = board.sheet.tb_TimeStamp2.value();
  if (std::exchange(board.savedTold, game) != game) {
    OfferNewGame(board, "This game is saved. Nothing more is counted for it.");
  }
  return true;
}

LoadInto WhereToLoad(Board& board, const std::string& caption) {
  if (!GameUnderWay(board)) return LoadInto::ThisGame;
  Choice choice{.text = "A game is on the board. If you load a team into it, its counts stay.",
                .title = "LOAD"};
  std::vector<LoadInto> places;
  const auto add = [&](const std::string& answer, LoadInto place) {
    choice.answers.push_back(answer);
    places.push_back(place);
  };
  if (board.newGames != nullptr) add(caption, LoadInto::NewGame);
  // One that is saved has no use for another team.
  if (board.newGames != nullptr && !IsSaved(board)) choice.usual = 1;
  add("Load into this game", LoadInto::ThisGame);
  add("Back", LoadInto::Nowhere);
  return places.at(board.platform.boxes.Choose(choice));
}

}  // namespace dtb
