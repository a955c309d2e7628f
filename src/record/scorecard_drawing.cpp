#include "record/scorecard_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "base/text_cell.h"
#include "record/box_drawing.h"
#include "record/scorecard_foot.h"

namespace dtb {
namespace {

constexpr double kMargin = 28;
constexpr double kTitle = 30;
constexpr double kHeader = 14;
constexpr double kSumRow = 12;
constexpr double kNames = 132;
constexpr double kFigure = 20;
constexpr std::array kFigures{"AB", "R", "H", "RBI", "BB", "K"};
constexpr double kTotals = kFigure * kFigures.size();
constexpr double kNarrowest = 40;
constexpr double kLine = 8.8;  // of a name in its place
constexpr double kNameSize = 8;
constexpr double kSlotSize = 6.5;

constexpr double kPlaceNumber = 12;
constexpr double kPosition = 20;
constexpr double kInning = 16;

using Figures = std::array<std::string, kFigures.size()>;

Figures FiguresOf(const BatterFigures& figures, bool runsKnown) {
  return {DecimalText(figures.atBats), runsKnown ? DecimalText(figures.runs) : "\u2013",
          DecimalText(figures.hits()), DecimalText(figures.runsBattedIn),
          DecimalText(figures.walks),  DecimalText(figures.strikeouts)};
}

// Columns first to last of the card stand on a page.
struct Span {
  std::size_t first = 0;
  std::size_t last = 0;  // behind it
  [[nodiscard]] std::size_t size() const { return last - first; }
};

// An inning is not torn apart as long as it has room on a page.
std::vector<Span> PagesOf(const std::vector<ScoreColumn>& columns, std::size_t most) {
  std::vector<Span> pages{{}};
  for (std::size_t column = 0; column < columns.size(); ++column) {
    std::size_t end = column + 1;
    while (end < columns.size() && columns[end].pass > 0) ++end;
    const bool begins = columns[column].pass == 0;
    Span& page = pages.back();
    const bool tooWide = begins && page.size() > 0 && end - page.first > most;
    if (tooWide || page.size() == most) pages.push_back({column, column});
    pages.back().last = column + 1;
  }
  return pages;
}

class Page {
 public:
  Page(const Scorecard& card, PageSize size, Span span, double columnWidth)
      : card_(card), size_(size), span_(span), columnWidth_(columnWidth) {
    drawing_.width = size.width;
    drawing_.height = size.height;
    drawing_.title = "Scorecard of " + card.team;
  }

  Drawing Draw(std::size_t number, std::size_t pages) {
    DrawTitle(number, pages);
    const FootPlace foot{kMargin, size_.width - 2 * kMargin, size_.height - kMargin};
    const double footTop = size_.height - kMargin - FootHeight(card_, foot);
    constexpr double kGap = 10;
    FindRows(footTop - kGap - 3 * kSumRow);
    DrawGrid();
    DrawHeader();
    for (std::size_t place = 0; place < card_.places.size(); ++place) DrawPlace(place);
    for (const ScoreBox& box : card_.boxes) {
      const auto column = static_cast<std::size_t>(box.column);
      if (column < span_.first || column >= span_.last) continue;
      DrawBox(drawing_, PlaceOfBox(static_cast<std::size_t>(box.place - 1), column), box);
    }
    DrawSums();
    DrawFoot(drawing_, card_, foot);
    return std::move(drawing_);
  }

 private:
  [[nodiscard]] double columnsLeft() const { return kMargin + kNames; }
  [[nodiscard]] double columnsRight() const {
    return columnsLeft() + columnWidth_ * static_cast<double>(span_.size());
  }
  [[nodiscard]] double right() const { return columnsRight() + kTotals; }
  [[nodiscard]] double gridTop() const { return kMargin + kTitle; }
  [[nodiscard]] double ColumnLeft(std::size_t column) const {
    return columnsLeft() + columnWidth_ * static_cast<double>(column - span_.first);
  }
  [[nodiscard]] BoxPlace PlaceOfBox(std::size_t place, std::size_t column) const {
    return {ColumnLeft(column), tops_.at(place), columnWidth_, tops_.at(place + 1) - tops_[place]};
  }

  void Line(double x1, double y1, double x2, double y2, Ink ink, double width = 0.5) {
    drawing_.shapes.emplace_back(DrawnLine{{x1, y1}, {x2, y2}, width, ink});
  }
  void Text(double x, double y, const std::string& text, double size, bool bold, TextAlign align,
            Ink ink, double room) {
    DrawText(drawing_, {{x, y}, text, size, bold, align, ink}, room);
  }

  void DrawTitle(std::size_t number, std::size_t pages) {
    constexpr double kTeamSize = 17;
    constexpr double kWordsSize = 10;
    const double base = kMargin + 15;
    const double wide = size_.width - 2 * kMargin;
    const std::string team = CutText(card_.team, kTeamSize, true, wide * 0.4);
    Text(kMargin, base, team, kTeamSize, true, TextAlign::Left, Ink::Text, wide);
    const double after = kMargin + TextWidth(team, kTeamSize, true) + 8;
    if (!card_.other.empty()) {
      Text(after, base, (card_.side == Side::Visitors ? "at " : "against ") + card_.other,
           kWordsSize, false, TextAlign::Left, Ink::Dim, kMargin + wide * 0.68 - after);
    }
    if (card_.toFillIn) return DrawFieldsToFill(base);
    std::string words = card_.date;
    if (!card_.park.empty()) words += (words.empty() ? "" : ", ") + card_.park;
    if (pages > 1) {
      words += (words.empty() ? "Page " : ", page ") + std::to_string(number) + " of " +
               std::to_string(pages);
    }
    Text(kMargin + wide, base, words, kWordsSize, false, TextAlign::Right, Ink::Dim, wide * 0.3);
  }

  void DrawFieldsToFill(double base) {
    constexpr double kField = 90;
    double end = size_.width - kMargin;
    for (const char* word : {"Park", "Date"}) {
      Line(end - kField, base + 1, end, base + 1, Ink::Frame);
      Text(end - kField - 4, base, word, 8, false, TextAlign::Right, Ink::Dim, 40);
      end -= kField + 34;
    }
  }

  // Rows are equally high, but for those with more names than have room.
  void FindRows(double bottom) {
    const double room = bottom - gridTop() - kHeader;
    std::vector<double> heights(card_.places.size(), 0);
    std::vector<double> needed;
    for (const auto& lines : card_.places) {
      needed.push_back(4 + kLine * static_cast<double>(std::max<std::size_t>(lines.size(), 2)));
    }
    double free = room;
    auto equal = static_cast<double>(heights.size());
    for (bool changed = true; changed;) {
      changed = false;
      for (std::size_t row = 0; row < heights.size(); ++row) {
        if (heights[row] > 0 || needed[row] <= free / equal) continue;
        heights[row] = needed[row];
        free -= needed[row];
        equal -= 1;
        changed = equal >= 1;
        if (!changed) break;
      }
    }
    tops_ = {gridTop() + kHeader};
    // Where there are more names than the page is high, all rows share it.
    const double all = std::accumulate(heights.begin(), heights.end(), 0.0);
    const double shrink = equal < 1 ? room / all : 1;
    for (const double height : heights) {
      tops_.push_back(tops_.back() + (height > 0 ? height * shrink : free / equal));
    }
  }

  void DrawGrid() {
    const double bottom = tops_.back();
    for (std::size_t row = 1; row + 1 < tops_.size(); ++row) {
      Line(kMargin, tops_[row], right(), tops_[row], Ink::Grid);
    }
    for (std::size_t column = span_.first + 1; column < span_.last; ++column) {
      const double top = card_.columns[column].pass > 0 ? tops_.front() : gridTop();
      Line(ColumnLeft(column), top, ColumnLeft(column), bottom, Ink::Grid);
    }
    for (std::size_t figure = 1; figure < kFigures.size(); ++figure) {
      const double x = columnsRight() + kFigure * static_cast<double>(figure);
      Line(x, gridTop(), x, bottom + kSumRow, Ink::Grid);
    }
    for (int row = 1; row < 3; ++row) {
      Line(kMargin, bottom + row * kSumRow, right(), bottom + row * kSumRow, Ink::Grid);
    }
    const double foot = bottom + 3 * kSumRow;
    for (std::size_t column = span_.first + 1; column < span_.last; ++column) {
      if (card_.columns[column].pass > 0) continue;
      Line(ColumnLeft(column), bottom, ColumnLeft(column), foot, Ink::Grid);
    }
    for (const double y : {gridTop(), tops_.front(), bottom, foot}) {
      Line(kMargin, y, right(), y, Ink::Frame, 0.8);
    }
    for (const double x : {kMargin, columnsLeft(), columnsRight(), right()}) {
      Line(x, gridTop(), x, foot, Ink::Frame, 0.8);
    }
    if (!card_.toFillIn) return;
    for (std::size_t place = 0; place < card_.places.size(); ++place) {
      for (std::size_t column = span_.first; column < span_.last; ++column) {
        DrawEmptyDiamond(drawing_, PlaceOfBox(place, column));
      }
    }
  }

  void DrawHeader() {
    const double base = gridTop() + kHeader - 4;
    const double names = kMargin + kNames;
    Text(kMargin + kPlaceNumber, base, "Batter", 7, false, TextAlign::Left, Ink::Dim, 60);
    Text(names - kInning - kPosition / 2, base, "Pos", 7, false, TextAlign::Middle, Ink::Dim,
         kPosition);
    Text(names - kInning / 2, base, "Inn", 7, false, TextAlign::Middle, Ink::Dim, kInning);
    for (std::size_t column = span_.first; column < span_.last;) {
      std::size_t end = column + 1;
      while (end < span_.last && card_.columns[end].pass > 0) ++end;
      const double middle = (ColumnLeft(column) + ColumnLeft(end)) / 2;
      Text(middle, base + 0.5, std::to_string(card_.columns[column].inning), 9, true,
           TextAlign::Middle, Ink::Text, columnWidth_);
      column = end;
    }
    for (std::size_t figure = 0; figure < kFigures.size(); ++figure) {
      Text(FigureMiddle(figure), base, kFigures.at(figure), 7, false, TextAlign::Middle, Ink::Dim,
           kFigure);
    }
  }

  [[nodiscard]] double FigureMiddle(std::size_t figure) const {
    return columnsRight() + kFigure * (static_cast<double>(figure) + 0.5);
  }

  void DrawFigures(const Figures& figures, double base, bool bold, Ink ink) {
    for (std::size_t figure = 0; figure < kFigures.size(); ++figure) {
      Text(FigureMiddle(figure), base, figures.at(figure), kNameSize, bold, TextAlign::Middle, ink,
           kFigure - 2);
    }
  }

  void DrawPlace(std::size_t place) {
    const double top = tops_.at(place);
    const double height = tops_.at(place + 1) - top;
    const auto& lines = card_.places[place];
    const double step =
        std::min(kLine, (height - 3) / static_cast<double>(std::max<std::size_t>(lines.size(), 1)));
    if (place < kLineupSlots) {
      Text(kMargin + kPlaceNumber - 3, top + kLine, std::to_string(place + 1), kSlotSize, false,
           TextAlign::Right, Ink::Dim, kPlaceNumber);
    }
    double base = top + kLine;
    for (const ScoreLine& line : lines) {
      DrawBatter(line, base);
      if (!card_.toFillIn) {
        DrawFigures(FiguresOf(line.player.figures, card_.runsKnown), base, false, Ink::Text);
      }
      base += step;
    }
    if (!card_.toFillIn) return;
    // Rules for those who come in.
    constexpr double kRule = 12;
    const double first = base - kLine + kRule + 2;
    const int rules = static_cast<int>(std::ceil((top + height - 4 - first) / kRule));
    for (int rule = 0; rule < rules; ++rule) {
      const double y = first + rule * kRule;
      Line(kMargin + kPlaceNumber, y, kMargin + kNames - 4, y, Ink::Grid, 0.4);
    }
  }

  void DrawBatter(const ScoreLine& line, double base) {
    const bool later = line.player.substitute;
    const double left = kMargin + kPlaceNumber + (later ? 5 : 0);
    const double names = kMargin + kNames;
    const double room = names - kInning - kPosition - left - 1;
    const double size = later ? 7.5 : kNameSize;
    Text(left, base, FittedName(line.player.name, size, !later, room), size, !later,
         TextAlign::Left, Ink::Text, room);
    const std::string position =
        line.player.position.empty() && line.asRunner ? "PR" : line.player.position;
    Text(names - kInning - kPosition / 2, base, position, 7, false, TextAlign::Middle, Ink::Dim,
         kPosition);
    if (line.inning == 0) return;
    Text(names - kInning / 2, base, std::to_string(line.inning), 7, false, TextAlign::Middle,
         Ink::Dim, kInning);
  }

  void DrawSums() {
    const double top = tops_.back();
    const std::array labels{"Runs", "Hits", "Left on base"};
    for (std::size_t row = 0; row < labels.size(); ++row) {
      const double base = top + kSumRow * static_cast<double>(row) + 9;
      Text(kMargin + kPlaceNumber, base, labels.at(row), 7, false, TextAlign::Left, Ink::Dim,
           kNames);
    }
    if (card_.toFillIn) return;
    for (std::size_t column = span_.first; column < span_.last;) {
      std::size_t end = column + 1;
      while (end < span_.last && card_.columns[end].pass > 0) ++end;
      const auto inning = static_cast<std::size_t>(card_.columns[column].inning - 1);
      const InningSums& sums = card_.innings.at(inning);
      const double middle = (ColumnLeft(column) + ColumnLeft(end)) / 2;
      const std::array texts{sums.runs, sums.hits, sums.left};
      for (std::size_t row = 0; row < texts.size(); ++row) {
        Text(middle, top + kSumRow * static_cast<double>(row) + 9, texts.at(row), kNameSize,
             row == 0, TextAlign::Middle, row == 0 ? Ink::Text : Ink::Dim, columnWidth_);
      }
      column = end;
    }
    DrawFigures(FiguresOf(card_.sums, card_.runsKnown), top + 9, true, Ink::Text);
    const SideRecord& own = card_.lineScore.at(card_.side == Side::Visitors ? 0 : 1);
    DrawTotal("Errors", DecimalText(own.errors), top + kSumRow + 9);
    DrawTotal("Left on base", card_.left, top + 2 * kSumRow + 9);
  }

  void DrawTotal(const char* word, const std::string& value, double base) {
    if (value.empty()) return;
    const double end = right() - kFigure / 2 - 2;
    Text(end, base, value, kNameSize, true, TextAlign::Right, Ink::Text, kFigure);
    Text(end - kFigure, base, word, 7, false, TextAlign::Right, Ink::Dim, kTotals - 2 * kFigure);
  }

  const Scorecard& card_;
  PageSize size_;
  Span span_;
  double columnWidth_;
  std::vector<double> tops_;  // of the places, and the end of the last one
  Drawing drawing_;
};

}  // namespace

std::vector<Drawing> DrawScorecard(const Scorecard& card, PageSize page) {
  const double room = page.width - 2 * kMargin - kNames - kTotals;
  const auto most = static_cast<std::size_t>(std::max(1.0, std::floor(room / kNarrowest)));
  const std::vector<Span> spans = PagesOf(card.columns, most);
  std::size_t widest = 1;
  for (const Span& span : spans) widest = std::max(widest, span.size());
  std::vector<Drawing> pages;
  pages.reserve(spans.size());
  for (const Span& span : spans) {
    pages.push_back(Page(card, page, span, room / static_cast<double>(widest))
                        .Draw(pages.size() + 1, spans.size()));
  }
  return pages;
}

}  // namespace dtb
