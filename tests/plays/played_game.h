// A script of an archive's game, played on the board without windows.
#pragma once

#include "core/fake_platform.h"
#include "game/played_mark.h"
#include "plays/season_scripts.h"

namespace dtb::plays {

class PlayedGame : public Game {
 public:
  explicit PlayedGame(const GameScript& script) : Game(false) {
    ReplaceTeams(board,
                 {TeamLines{script.teams[0], LinesOf(script.teamFiles[0])},
                  TeamLines{script.teams[1], LinesOf(script.teamFiles[1])}},
                 "teams");
    for (std::size_t i = 0; i < script.gestures.size(); ++i) {
      const bool named =
          i + 1 < script.gestures.size() && script.gestures[i + 1].starts_with("OUT ");
      Gesture(script.gestures[i], named ? script.gestures[i + 1][4] - '0' : 0);
      ChangeOfState(board);  // as the board's clock does
    }
  }

 private:
  static std::vector<std::string> LinesOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
      if (line.ends_with('\r')) line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  static int Base(const std::string& word) {
    return word == "HOME" ? kHomePlate : word == "OUT" ? kPutOut : word[0] - '0';
  }

  int RowOf(Side side, const std::string& player) {
    const auto row = RowOfPlayer(SideOf(board, side).list, player);
    EXPECT_TRUE(row) << player;
    return row.value_or(0);
  }

  void Gesture(const std::string& line, int out) {
    std::istringstream words(line);
    std::string verb, first;
    words >> verb;
    if (verb == "BASES") return state.cb_KeepBases.Set(true);
    if (verb == "LOAD" || verb == "OUT" || verb == "#") return;
    const auto label = std::ranges::find(kLabels, verb);
    if (label != kLabels.end()) return RecordOutcome(board, OutcomeNamed(verb), out);
    words >> first;
    const Side side = first == "home" ? Side::Home : Side::Visitors;
    std::string rest;
    std::getline(words >> std::ws, rest);
    if (verb == "ATBAT") return PutAtBat(board, side);
    if (verb == "BATTER") return SelectRow(board, side, RowOf(side, rest));
    if (verb == "SB") {
      const std::string name = rest.empty() ? first : first + ' ' + rest;
      return RecordStolenBase(board, PieceOf(state, name).value_or(0));
    }
    if (verb == "PITCHER") {
      SelectRow(board, side, RowOf(side, rest));
      return ChangePitcher(board, side);
    }
    if (verb == "SWAP" || verb == "RUNNER") return Change(verb, side, rest);
    if (verb == "PLACE") {
      const Side atBat = SideAtBat(state).value();
      return BeginOnBase(board, atBat, RowOf(atBat, rest), Base(first), Remember(board));
    }
    if (verb == "ADVANCE") return MoveRunner(board, Base(first), Base(rest), MoveOf::ItsOwn);
    ASSERT_EQ(verb, "RUN") << line;
    if (first == "HOME") return HoldAtThird(board);
    const std::string runner =
        first == "BATTER" ? state.lbl_Selected.value() : RunnerOn(state, Base(first)).name;
    DropPiece(board, PieceOf(state, runner).value_or(0), Base(rest), MoveOf::LastPlay);
  }

  void Change(const std::string& verb, Side side, const std::string& players) {
    const std::size_t between = players.find(" | ");
    const int first = RowOf(side, players.substr(0, between));
    const std::string other = players.substr(between + 3);
    if (verb == "RUNNER") return ComeIn(board, side, first, PieceOf(state, other).value_or(0));
    const SideFields fields = SideOf(board, side);
    const int selected = fields.list.selected();
    fields.edit.Set(true);
    fields.list.Swap(first, RowOf(side, other));
    if (fields.list.HasRow(selected)) fields.list.Highlight(selected);
    fields.edit.Set(false);
  }
};

}  // namespace dtb::plays
