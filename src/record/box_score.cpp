#include "record/box_score.h"

#include <algorithm>
#include <cmath>

#include "base/text_cell.h"
#include "base/time_stamp.h"
#include "base/words.h"
#include "record/batting_places.h"
#include "record/box_notes.h"
#include "record/short_names.h"

namespace dtb {
namespace {

constexpr const char* kNotKnown = "-";

std::string Average(const BatterFigures& season) {
  if (season.atBats <= 0) return kNotKnown;
  const std::string average = RoundedQuotient(season.hits(), season.atBats, 3);
  return average.starts_with("0") ? average.substr(1) : average;
}

std::string EarnedRunAverage(const PitcherFigures& season) {
  constexpr double kNineInnings = 27;  // in outs
  if (season.outs <= 0) return kNotKnown;
  return RoundedQuotient(kNineInnings * season.earnedRuns, season.outs, 2);
}

std::string Runs(double runs, bool known) { return known ? DecimalText(runs) : kNotKnown; }

std::vector<std::string> CellsOf(const BatterFigures& figures, bool runsKnown) {
  return {DecimalText(figures.atBats), Runs(figures.runs, runsKnown),
          DecimalText(figures.hits()), DecimalText(figures.runsBattedIn),
          DecimalText(figures.walks),  DecimalText(figures.strikeouts)};
}

std::vector<std::string> CellsOf(const PitcherFigures& figures, bool runsKnown) {
  return {InningsAndThirds(figures.outs), DecimalText(figures.hits),
          Runs(figures.runs, runsKnown),  DecimalText(figures.earnedRuns),
          DecimalText(figures.walks),     DecimalText(figures.strikeouts)};
}

std::string LowerCase(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return text;
}

class Maker {
 public:
  Maker(const GameRecord& game, const SeasonToDate& season)
      : game_(game), season_(season), names_(game) {}

  BoxScore Make() {
    BoxScore box{.headline = BoxHeadline(game_), .when = When(), .decisions = Decided()};
    const BoxSubstitutes substitutes = SubstitutesOf(game_, names_);
    for (const Side side : {Side::Visitors, Side::Home}) {
      const std::size_t place = side == Side::Visitors ? 0 : 1;
      BoxSide& own = box.sides.at(place);
      own.substitutes = substitutes.notes.at(place);
      own.batting = Batting(game_.side(side), substitutes);
      own.pitching = Pitching(side);
      box.line.at(place) = Line(game_.side(side));
    }
    // The home team needs no last half-inning where it is ahead.
    if (game_.over && box.line[1].innings.size() + 1 == box.line[0].innings.size() &&
        game_.sides[1].runs > game_.sides[0].runs) {
      box.line[1].innings.emplace_back("x");
    }
    box.notes = NotesOf(game_, season_, names_);
    box.scoring = ScoringOf(game_);
    box.remark = RemarkOf(game_);
    return box;
  }

 private:
  [[nodiscard]] std::string When() const {
    const std::string date = PlainDate(game_.date);
    return date + (date.empty() || game_.park.empty() ? "" : ", ") + game_.park;
  }

  // "W, 3-1", "S, 4", "BS, 1"; "" for none. He may hold the lead of one and lose it for another.
  [[nodiscard]] std::string DecisionOf(Side side, const std::string& pitcher) const {
    const PlayerToDate season = season_.Get(game_.side(side).team, pitcher);
    std::string text;
    for (const PitcherDecision& one : game_.decisions) {
      if (one.side != side || one.pitcher != pitcher) continue;
      text.append(text.empty() ? "" : "; ").append(DecisionCode(one.decision)).append(", ");
      text += one.decision == Decision::Win || one.decision == Decision::Loss
                  ? std::to_string(season.count(Decision::Win)) + '-' +
                        std::to_string(season.count(Decision::Loss))
                  : std::to_string(season.count(one.decision));
    }
    return text;
  }

  [[nodiscard]] std::string Decided() const {
    std::string text;
    for (const PitcherDecision& one : game_.decisions) {
      if (one.decision > Decision::Save) continue;
      const PlayerToDate season = season_.Get(game_.side(one.side).team, one.pitcher);
      const std::string record = one.decision == Decision::Save
                                     ? std::to_string(season.count(Decision::Save))
                                     : std::to_string(season.count(Decision::Win)) + '-' +
                                           std::to_string(season.count(Decision::Loss));
      text.append(text.empty() ? "" : ", ").append(DecisionCode(one.decision)).append(": ");
      text.append(names_.Of(one.pitcher)).append(" (").append(record).append(")");
    }
    return text;
  }

  BoxTable Batting(const SideRecord& side, const BoxSubstitutes& substitutes) const {
    BoxTable table{.title = side.team, .headers = {"AB", "R", "H", "BI", "BB", "K", "AVG"}};
    for (const BatterRecord& batter : side.batters) {
      const auto mark = substitutes.marks.find({side.team, batter.name});
      BoxRow row{.name = mark == substitutes.marks.end() ? "" : mark->second + '-',
                 .indented = batter.substitute,
                 .cells = CellsOf(batter.figures, side.runsKnown)};
      row.name += names_.Of(batter.name);
      if (!batter.position.empty()) row.name += ' ' + LowerCase(batter.position);
      row.cells.push_back(Average(season_.Get(side.team, batter.name).batting));
      table.rows.push_back(std::move(row));
    }
    table.totals = CellsOf(SumOf(side.batters), side.runsKnown);
    table.totals.emplace_back();
    return table;
  }

  [[nodiscard]] BoxTable Pitching(Side side) const {
    const SideRecord& own = game_.side(side);
    const bool runsKnown = game_.side(Other(side)).runsKnown;
    BoxTable table{.title = own.team, .headers = {"IP", "H", "R", "ER", "BB", "K", "ERA"}};
    for (const PitcherRecord& pitcher : own.pitchers) {
      const std::string decision = DecisionOf(side, pitcher.name);
      BoxRow row{.name = names_.Of(pitcher.name) + (decision.empty() ? "" : " (" + decision + ")"),
                 .cells = CellsOf(pitcher.figures, runsKnown)};
      row.cells.push_back(EarnedRunAverage(season_.Get(own.team, pitcher.name).pitching));
      table.rows.push_back(std::move(row));
    }
    return table;
  }

  static BoxLine Line(const SideRecord& side) {
    return {side.team, side.innings, DecimalText(side.runs), DecimalText(side.hits),
            DecimalText(side.errors)};
  }

  const GameRecord& game_;
  const SeasonToDate& season_;
  ShortNames names_;
};

}  // namespace

BoxScore BoxScoreOf(const GameRecord& game, const SeasonToDate& season) {
  return Maker(game, season).Make();
}

std::string BoxHeadline(const GameRecord& game) {
  const bool visitorsFirst = game.sides[0].runs > game.sides[1].runs;
  const SideRecord& first = game.sides.at(visitorsFirst ? 0 : 1);
  const SideRecord& second = game.sides.at(visitorsFirst ? 1 : 0);
  return first.team + ' ' + DecimalText(first.runs) + ", " + second.team + ' ' +
         DecimalText(second.runs);
}

std::string InningsAndThirds(double outs) {
  const double innings = std::floor(outs / kOutsOfHalf);
  return DecimalText(innings) + '.' + DecimalText(outs - kOutsOfHalf * innings);
}

std::string PlainDate(const std::string& date) {
  const auto day = DateIn(date);
  return day ? PlainDay(*day) : date;
}

}  // namespace dtb
