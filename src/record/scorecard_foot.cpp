#include "record/scorecard_foot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/text_cell.h"
#include "base/words.h"
#include "record/box_drawing.h"
#include "record/box_score.h"

namespace dtb {
namespace {

constexpr double kHeading = 13;
constexpr double kRow = 10.6;
constexpr double kNote = 11;
constexpr double kSize = 8;
constexpr double kSmall = 7;
constexpr double kGap = 18;
// The pitchers, as many beside each other as have room.
constexpr std::array kPitcherFigures{"IP", "H", "R", "ER", "BB", "K"};
constexpr double kPitcherFigure = 21;
constexpr double kName = 128;
constexpr double kPitchers = kName + kPitcherFigure * kPitcherFigures.size();
constexpr std::size_t kFewestRows = 4;
constexpr std::size_t kMostRows = 12;
constexpr std::size_t kRowsToFill = 6;
// The line score.
constexpr double kTeam = 84;
constexpr double kTotal = 16;
constexpr double kBenchWidth = 250;

int Innings(const Scorecard& card) {
  return std::max(kUsualInnings, static_cast<int>(card.innings.size()));
}
double InningWidth(const Scorecard& card) { return Innings(card) > kUsualInnings ? 9.5 : 12; }
double LineScoreWidth(const Scorecard& card) {
  if (card.toFillIn) return kBenchWidth;
  return kTeam + InningWidth(card) * static_cast<double>(Innings(card)) + 3 * kTotal + 4;
}

struct Rows {
  std::size_t blocks = 1;
  std::size_t rows = kFewestRows;
};
Rows RowsOf(const Scorecard& card, const FootPlace& place) {
  if (card.toFillIn) return {1, kRowsToFill};
  const double room = place.width - LineScoreWidth(card);
  const double fit = std::max(1.0, std::floor(room / (kPitchers + kGap)));
  const std::size_t wanted = (card.pitchers.size() + kFewestRows - 1) / kFewestRows;
  const auto blocks = std::clamp<std::size_t>(wanted, 1, static_cast<std::size_t>(fit));
  const std::size_t rows = (card.pitchers.size() + blocks - 1) / blocks;
  return {blocks, std::clamp(rows, kFewestRows, kMostRows)};
}

class Foot {
 public:
  Foot(Drawing& drawing, const Scorecard& card, const FootPlace& place)
      : drawing_(drawing), card_(card), place_(place), rows_(RowsOf(card, place)) {
    top_ = place.bottom - FootHeight(card, place);
  }

  void Draw() {
    for (std::size_t block = 0; block < rows_.blocks; ++block) DrawPitchers(block);
    if (card_.toFillIn) {
      DrawBench();
    } else {
      DrawLineScore();
    }
    Text(place_.left, place_.bottom - 1, card_.note, kSize, false, TextAlign::Left, Ink::Dim,
         place_.width);
  }

 private:
  void Text(double x, double y, const std::string& text, double size, bool bold, TextAlign align,
            Ink ink, double room) {
    DrawText(drawing_, {{x, y}, text, size, bold, align, ink}, room);
  }
  void Line(double x1, double x2, double y, Ink ink) {
    drawing_.shapes.emplace_back(DrawnLine{{x1, y}, {x2, y}, 0.5, ink});
  }
  [[nodiscard]] double Base(std::size_t row) const {
    return top_ + kHeading + kRow * (static_cast<double>(row) + 1) - 3;
  }

  void DrawPitchers(std::size_t block) {
    const double left = place_.left + static_cast<double>(block) * (kPitchers + kGap);
    const double end = left + kPitchers;
    const std::string heading = "Pitchers" + (card_.other.empty() ? "" : " of " + card_.other);
    if (block == 0) {
      Text(left, top_ + 9, heading, kSmall, false, TextAlign::Left, Ink::Dim, kName - 8);
    }
    for (std::size_t figure = 0; figure < kPitcherFigures.size(); ++figure) {
      Text(FigureEnd(left, figure), top_ + 9, kPitcherFigures.at(figure), kSmall, false,
           TextAlign::Right, Ink::Dim, kPitcherFigure);
    }
    Line(left, end, top_ + kHeading - 1, Ink::Frame);
    for (std::size_t row = 0; row < rows_.rows; ++row) {
      const std::size_t place = block * rows_.rows + row;
      const bool last = block + 1 == rows_.blocks && row + 1 == rows_.rows;
      if (last && place + 1 < card_.pitchers.size()) {
        const auto more = static_cast<long long>(card_.pitchers.size() - place);
        Text(left, Base(row), "and " + Counted(more, "more pitcher"), kSize, false, TextAlign::Left,
             Ink::Dim, kPitchers);
      } else if (place < card_.pitchers.size()) {
        DrawPitcher(card_.pitchers[place], left, Base(row));
      }
      if (card_.toFillIn) Line(left, end, Base(row) + 3, Ink::Grid);
    }
  }

  static double FigureEnd(double left, std::size_t figure) {
    return left + kName + kPitcherFigure * (static_cast<double>(figure) + 1) - 3;
  }

  void DrawPitcher(const ScorePitcher& pitcher, double left, double base) {
    constexpr double kNumber = 10;
    Text(left, base, std::to_string(pitcher.number), kSmall, false, TextAlign::Left, Ink::Dim,
         kNumber);
    const std::string decision = pitcher.decision.empty() ? "" : " (" + pitcher.decision + ")";
    const double taken = TextWidth(decision, kSize, true);
    const std::string name =
        FittedName(pitcher.record.name, kSize, true, kName - kNumber - taken - 4);
    Text(left + kNumber, base, name + decision, kSize, true, TextAlign::Left, Ink::Text, kName);
    if (card_.toFillIn) return;
    const PitcherFigures& figures = pitcher.record.figures;
    const std::array<std::string, kPitcherFigures.size()> texts{
        InningsAndThirds(figures.outs),
        DecimalText(figures.hits),
        pitcher.runsKnown ? DecimalText(figures.runs) : "\u2013",
        DecimalText(figures.earnedRuns),
        DecimalText(figures.walks),
        DecimalText(figures.strikeouts)};
    for (std::size_t figure = 0; figure < texts.size(); ++figure) {
      Text(FigureEnd(left, figure), base, texts.at(figure), kSize, false, TextAlign::Right,
           Ink::Text, kPitcherFigure - 2);
    }
  }

  void DrawLineScore() {
    const double end = place_.left + place_.width;
    const double left = end - LineScoreWidth(card_);
    const double step = InningWidth(card_);
    const auto innings = static_cast<std::size_t>(Innings(card_));
    const double size = Innings(card_) > kUsualInnings ? 6.5 : kSmall;
    const auto middle = [&](std::size_t inning) {
      return left + kTeam + step * (static_cast<double>(inning) + 0.5);
    };
    const auto total = [&](int place) { return end - kTotal * (2 - place) - kTotal / 2; };
    const std::array totals{"R", "H", "E"};
    for (std::size_t inning = 0; inning < innings; ++inning) {
      Text(middle(inning), top_ + 9, std::to_string(inning + 1), size, false, TextAlign::Middle,
           Ink::Dim, step);
    }
    for (int place = 0; place < 3; ++place) {
      Text(total(place), top_ + 9, totals.at(static_cast<std::size_t>(place)), kSmall, false,
           TextAlign::Middle, Ink::Dim, kTotal);
    }
    Line(left, end, top_ + kHeading - 1, Ink::Frame);
    for (std::size_t side = 0; side < card_.lineScore.size(); ++side) {
      const SideRecord& record = card_.lineScore.at(side);
      const double base = Base(side);
      Text(left, base, record.team, kSize, true, TextAlign::Left, Ink::Text, kTeam - 4);
      for (std::size_t inning = 0; inning < innings && inning < record.innings.size(); ++inning) {
        Text(middle(inning), base, record.innings[inning], size + 0.5, false, TextAlign::Middle,
             Ink::Text, step);
      }
      const std::array values{record.runs, record.hits, record.errors};
      for (int place = 0; place < 3; ++place) {
        Text(total(place), base, DecimalText(values.at(static_cast<std::size_t>(place))), kSize,
             true, TextAlign::Middle, Ink::Text, kTotal);
      }
    }
  }

  // In two columns, as far as they have room.
  void DrawBench() {
    const double left = place_.left + place_.width - kBenchWidth;
    Text(left, top_ + 9, "Bench", kSmall, false, TextAlign::Left, Ink::Dim, kBenchWidth);
    Line(left, left + kBenchWidth, top_ + kHeading - 1, Ink::Frame);
    const double wide = kBenchWidth / 2;
    for (std::size_t i = 0; i < card_.bench.size() && i < 2 * rows_.rows; ++i) {
      const BatterRecord& player = card_.bench[i];
      const double x = left + (i < rows_.rows ? 0 : wide);
      const double base = Base(i % rows_.rows);
      constexpr double kBenchPosition = 20;
      const double room = wide - kBenchPosition - 8;
      Text(x, base, FittedName(player.name, kSize, false, room), kSize, false, TextAlign::Left,
           Ink::Text, room);
      Text(x + wide - 10, base, player.position, kSmall, false, TextAlign::Right, Ink::Dim,
           kBenchPosition);
    }
  }

  Drawing& drawing_;
  const Scorecard& card_;
  const FootPlace& place_;
  Rows rows_;
  double top_ = 0;
};

}  // namespace

double FootHeight(const Scorecard& card, const FootPlace& place) {
  return kHeading + kRow * static_cast<double>(RowsOf(card, place).rows) +
         (card.note.empty() ? 0 : kNote);
}

void DrawFoot(Drawing& drawing, const Scorecard& card, const FootPlace& place) {
  Foot(drawing, card, place).Draw();
}

}  // namespace dtb
