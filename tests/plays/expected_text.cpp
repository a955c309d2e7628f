#include <algorithm>
#include <cmath>

#include "base/text_cell.h"
#include "plays/season_scripts.h"

namespace dtb::plays {
namespace {

// A half-inning in progress without a run is as empty as one that was not played.
std::string Innings(const GameScript& script, int side, int& runs) {
  std::array<int, 2> played{};
  for (const auto& [figure, value] : script.board) {
    if (figure.kind == "LINE") ++played.at(figure.side);
  }
  std::string text;
  for (int inning = 1; inning <= std::max(played[0], played[1]); ++inning) {
    const int value = ValueOf(script.board, {side, "LINE", InningName(inning), ""});
    const bool going = inning == played.at(side) && !script.finished.at(side);
    const bool empty = inning > played.at(side) || (going && value == 0);
    text += ' ' + (empty ? "-" : std::to_string(value));
    runs += value;
  }
  return text;
}

// "AB=4 RBI=1": what is not 0.
template <class Columns>
std::string Counters(const GameScript& script, Figure figure, const Columns& columns) {
  std::string text;
  for (const char* column : columns) {
    figure.what = column;
    const int value = ValueOf(script.board, figure);
    if (value != 0) text += ' ' + figure.what + '=' + std::to_string(value);
  }
  return text;
}

std::string Pitchers(const GameScript& script, int side) {
  constexpr std::array kColumns{"K", "BB", "H", "HR", "ER", "R"};
  std::string text;
  int outs = 0;
  double credited = 0;
  for (const std::string& name : script.pitchers.at(side)) {
    const Figure pitcher{side, "PITCHING", name, "IP"};
    // The board gives each what is left of the side's innings, in hundredths.
    outs += ValueOf(script.board, pitcher);
    const std::string innings = TwoDecimals(std::round(outs / 3.0 * 100) / 100 - credited);
    credited += NumberOf(innings);
    text += "PITCHING " + script.teams.at(side) + " | " + name + " |" +
            Counters(script, pitcher, kColumns) + " IP=" + innings + '\n';
  }
  return text;
}

}  // namespace

std::string ExpectedText(const GameScript& script) {
  constexpr std::array kColumns{"AB", "1B", "2B", "3B", "HR", "BB", "K", "SB", "RBI", "R"};
  std::string text;
  for (int side = 0; side < 2; ++side) {
    const std::string& team = script.teams.at(side);
    std::string players;
    int hits = 0;
    for (const std::string& name : PlayersIn(script.teamFiles.at(side))) {
      const Figure player{side, "BATTING", name, ""};
      const std::string counters = Counters(script, player, kColumns);
      if (!counters.empty()) players += "BATTING " + team + " | " + name + " |" + counters + '\n';
      for (const char* hit : {"1B", "2B", "3B", "HR"}) {
        hits += ValueOf(script.board, {side, "BATTING", name, hit});
      }
    }
    int runs = 0;
    text += "LINE " + team + " |" + Innings(script, side, runs);
    text += " | R " + std::to_string(runs) + " H " + std::to_string(hits) + "\nLEFT " + team +
            " | " + std::to_string(ValueOf(script.board, {side, "LEFT", "", ""})) + '\n';
    text += players + Pitchers(script, side);
  }
  return text;
}

}  // namespace dtb::plays
