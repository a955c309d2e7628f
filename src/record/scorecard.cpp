#include "record/scorecard.h"

#include <algorithm>
#include <map>

#include "base/words.h"
#include "record/scorecard_boxes.h"

namespace dtb {
namespace {

int LastInning(const GameRecord& game) {
  int last = kUsualInnings;
  for (const Play& play : game.plays) last = std::max(last, play.half / 2 + 1);
  for (const SideRecord& side : game.sides) {
    for (std::size_t inning = 0; inning < side.innings.size(); ++inning) {
      if (!side.innings[inning].empty()) last = std::max(last, static_cast<int>(inning) + 1);
    }
  }
  return last;
}

// As many for each inning as its boxes take.
void MakeColumns(Scorecard& card, int innings) {
  std::map<int, int> passes;
  for (const ScoreBox& box : card.boxes) {
    passes[box.inning] = std::max(passes[box.inning], box.pass);
  }
  std::map<int, int> first;
  for (int inning = 1; inning <= innings; ++inning) {
    first[inning] = static_cast<int>(card.columns.size());
    for (int pass = 0; pass <= passes[inning]; ++pass) card.columns.push_back({inning, pass});
  }
  for (ScoreBox& box : card.boxes) box.column = first.at(box.inning) + box.pass;
}

// The runs stand in the line score; hits and runners left are those of the plays.
void AddInnings(Scorecard& card, const SideRecord& side, int innings) {
  std::vector<InningSums> all;
  for (int inning = 1; inning <= innings; ++inning) {
    const auto known = std::ranges::find(card.innings, inning, &InningSums::inning);
    InningSums sums{.inning = inning, .runs = {}, .hits = {}, .left = {}};
    if (known != card.innings.end()) sums = *known;
    const auto cell = static_cast<std::size_t>(inning - 1);
    if (cell < side.innings.size()) sums.runs = side.innings[cell];
    all.push_back(sums);
  }
  card.innings = std::move(all);
}

// Of each line, also of one who only ran. They are known where the plays have all runs.
void CountRuns(Scorecard& card, const GameRecord& game) {
  std::map<std::string, double> runs;
  double all = 0;
  for (const Play& play : game.plays) {
    if (game.BattingIn(play) != card.side) continue;
    for (const Move& move : play.moves) {
      if (move.to != kHomePlate) continue;
      ++runs[move.name];
      ++all;
    }
  }
  for (auto& lines : card.places) {
    for (ScoreLine& line : lines) line.player.figures.runs = runs[line.player.name];
  }
  card.sums.runs = all;
  card.runsKnown = !game.plays.empty() && all == game.side(card.side).runs;
}

void AddPitchers(Scorecard& card, const GameRecord& game) {
  const Side inField = Other(card.side);
  const bool known = card.runsKnown && SumOf(game.side(inField).pitchers).runs == card.sums.runs;
  for (const PitcherRecord& record : game.side(inField).pitchers) {
    ScorePitcher pitcher{.number = static_cast<int>(card.pitchers.size()) + 1, .record = record};
    pitcher.runsKnown = known;
    for (const PitcherDecision& one : game.decisions) {
      if (one.side != inField || one.pitcher != record.name) continue;
      pitcher.decision += (pitcher.decision.empty() ? "" : ", ");
      pitcher.decision += DecisionCode(one.decision);
    }
    card.pitchers.push_back(pitcher);
  }
}

bool HasFigures(const SideRecord& side) {
  const BatterFigures sums = SumOf(side.batters);
  return side.runs > 0 || sums.atBats > 0 || sums.hits() > 0 || sums.walks > 0 ||
         sums.strikeouts > 0;
}

std::string NoteOf(const GameRecord& game, Side side) {
  long long plays = 0;
  long long blind = 0;
  for (const Play& play : game.plays) {
    if (game.BattingIn(play) != side) continue;
    ++plays;
    blind += play.basesKept ? 0 : 1;
  }
  if (plays == 0) {
    return HasFigures(game.side(side)) ? "The plays of this game are not known, only their sums."
                                       : "";
  }
  if (blind == 0) return "";
  if (blind == plays) {
    return "The board did not keep the bases: who ran, scored and was put out on them is not "
           "known.";
  }
  return "In " + std::to_string(blind) + " of " + Counted(plays, "play") +
         " the board did not keep the bases: who ran in them is not known.";
}

}  // namespace

Scorecard ScorecardOf(const GameRecord& game, Side side) {
  const SideRecord& record = game.side(side);
  Scorecard card;
  card.side = side;
  card.team = record.team;
  card.other = game.side(Other(side)).team;
  card.date = game.date;
  card.park = game.park;
  for (const Side one : {Side::Visitors, Side::Home}) {
    const SideRecord& from = game.side(one);
    SideRecord& line = card.lineScore.at(one == Side::Visitors ? 0 : 1);
    line.team = from.team;
    line.innings = from.innings;
    line.runs = from.runs;
    line.hits = from.hits;
    line.errors = from.errors;
  }
  FillBoxes(game, card);
  const int innings = LastInning(game);
  MakeColumns(card, innings);
  AddInnings(card, record, innings);
  card.sums = SumOf(record.batters);
  CountRuns(card, game);
  AddPitchers(card, game);
  card.note = NoteOf(game, side);
  return card;
}

std::string SignOf(const Play& play) {
  switch (play.outcome) {
    case Outcome::Single:
    case Outcome::Double:
    case Outcome::Triple:
    case Outcome::Homer:
    case Outcome::Walk:
    case Outcome::Strikeout:
    case Outcome::Groundout:
    case Outcome::Flyout:
    case Outcome::Lineout:
    case Outcome::Popout:
    case Outcome::DoublePlay:
    case Outcome::FieldersChoice:
      return std::string(OutcomeCode(play.outcome));
    case Outcome::AtBat:
      return play.basesKept ? "E" : "AB";
    case Outcome::TakesFirst:
      return "HP";
    case Outcome::Sacrifice:
      return "SAC";
    case Outcome::PutOnBase:
      return "R";
    default:
      return "";
  }
}

std::string ScorecardInWords(const Scorecard& card) {
  std::string words;
  for (std::size_t place = 0; place < card.places.size(); ++place) {
    std::string names;
    for (const ScoreLine& line : card.places[place]) {
      names += (names.empty() ? "" : ", ") + line.player.name;
    }
    std::string boxes;
    for (const ScoreBox& box : card.boxes) {
      if (box.place != static_cast<int>(place) + 1) continue;
      boxes +=
          (boxes.empty() ? " inning " : "; inning ") + std::to_string(box.inning) + " " + box.sign;
      if (box.scored()) boxes += ", scored";
      if (box.outNumber > 0) boxes += ", out " + std::to_string(box.outNumber);
      if (box.runsBattedIn > 0) boxes += ", " + std::to_string(box.runsBattedIn) + " batted in";
    }
    if (names.empty() && boxes.empty()) continue;
    words.append(std::to_string(place + 1)).append(" ").append(names).append(":");
    words.append(boxes).append("\n");
  }
  return words + card.note;
}

}  // namespace dtb
