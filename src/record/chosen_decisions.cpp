#include "record/chosen_decisions.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "game/history.h"
#include "game/new_game.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// A line of the sheet's field: the kind, the side, and the pitcher, "" for nobody.
struct Line {
  std::string_view kind;
  std::string_view side;
  std::string_view pitcher;
};

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    std::array<std::string_view, 2> words;
    for (std::string_view& word : words) {
      word = line.substr(0, line.find(' '));
      line.remove_prefix(std::min(word.size() + 1, line.size()));
    }
    lines.push_back({words[0], words[1], line});
  }
  return lines;
}

std::string TextOf(const Line& line) {
  std::string text(line.kind);
  return text.append(" ").append(line.side).append(" ").append(line.pitcher).append("\n");
}

bool Pitched(const GameRecord& game, const PitcherDecision& decision) {
  return std::ranges::any_of(game.side(decision.side).pitchers, [&decision](const auto& pitcher) {
    return pitcher.name == decision.pitcher;
  });
}

void Change(Board& board, const std::string& step, const std::string& text) {
  if (RefusesAfterSave(board)) return;
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, step);
    board.sheet.ChosenDecisions.Set(text);
  });
}

}  // namespace

std::vector<PitcherDecision> DecisionsOnSheet(const StatSheet& sheet, const GameRecord& game) {
  const std::vector<PitcherDecision> proposed = ProposedDecisions(game);
  const std::vector<Line> lines = LinesOf(sheet.ChosenDecisions.value());
  std::vector<PitcherDecision> decisions;
  for (const Decision kind : kAllDecisions) {
    const std::string_view code = DecisionCode(kind);
    if (std::ranges::find(lines, code, &Line::kind) == lines.end()) {
      std::ranges::copy_if(proposed, std::back_inserter(decisions),
                           [kind](const auto& one) { return one.decision == kind; });
      continue;
    }
    for (const Line& line : lines) {
      const PitcherDecision chosen{line.side == "V" ? Side::Visitors : Side::Home,
                                   std::string(line.pitcher), kind};
      if (line.kind == code && Pitched(game, chosen)) decisions.push_back(chosen);
    }
  }
  return decisions;
}

void ChooseDecision(Board& board, Decision kind, const std::vector<PitcherDecision>& chosen) {
  const std::string_view code = DecisionCode(kind);
  std::string text;
  for (const Line& line : LinesOf(board.sheet.ChosenDecisions.value())) {
    if (line.kind != code) text += TextOf(line);
  }
  for (const PitcherDecision& one : chosen) {
    text += TextOf({code, one.side == Side::Visitors ? "V" : "H", one.pitcher});
  }
  if (chosen.empty()) text += TextOf({code, "", ""});
  Change(board, std::string("decision ").append(code), text);
}

void ProposeDecisionsAgain(Board& board) { Change(board, "decisions", ""); }

}  // namespace dtb
