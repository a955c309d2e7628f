#include "record/box_drawing.h"

#include <algorithm>
#include <array>

namespace dtb {
namespace {

constexpr double kSignSize = 9;
constexpr double kSmallSize = 6.5;
constexpr double kInset = 3;
constexpr double kPath = 1.6;
constexpr double kBar = 2.2;
constexpr double kOutRadius = 4.8;

struct Diamond {
  DrawnPoint middle;
  double radius = 0;

  // The plate is 0 and 4.
  [[nodiscard]] DrawnPoint Base(int base) const {
    constexpr std::array<DrawnPoint, 4> kWays{{{0, 1}, {1, 0}, {0, -1}, {-1, 0}}};
    const DrawnPoint way = kWays.at(static_cast<std::size_t>(base % 4));
    return {middle.x + way.x * radius, middle.y + way.y * radius};
  }
  [[nodiscard]] std::vector<DrawnPoint> corners() const {
    return {Base(0), Base(1), Base(2), Base(3)};
  }
};

Diamond DiamondOf(const BoxPlace& place) {
  constexpr double kAcross = 0.30;
  constexpr double kUp = 0.40;
  constexpr double kMiddle = 0.61;
  return {{place.left + place.width * kMiddle, place.top + place.height / 2},
          std::min(place.width * kAcross, place.height * kUp)};
}

DrawnPoint Between(const DrawnPoint& from, const DrawnPoint& to, double share) {
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

// Half of the way to the base that he did not reach, and a bar across it.
void DrawOutOnBases(Drawing& drawing, const Diamond& diamond, int base) {
  const DrawnPoint from = diamond.Base(base - 1);
  const DrawnPoint to = diamond.Base(base);
  const DrawnPoint end = Between(from, to, 0.5);
  const double half = diamond.radius * 0.22;
  const DrawnPoint across{(to.y - from.y) / diamond.radius * half,
                          -(to.x - from.x) / diamond.radius * half};
  drawing.shapes.emplace_back(DrawnLine{from, end, kPath, Ink::Path});
  drawing.shapes.emplace_back(DrawnLine{{end.x - across.x, end.y - across.y},
                                        {end.x + across.x, end.y + across.y},
                                        kPath,
                                        Ink::Path});
}

void DrawWay(Drawing& drawing, const Diamond& diamond, const ScoreBox& box) {
  if (box.scored()) {
    drawing.shapes.emplace_back(DrawnPolygon{diamond.corners(), Ink::Run, Ink::Path, kPath});
    return;
  }
  drawing.shapes.emplace_back(DrawnPolygon{diamond.corners(), {}, Ink::Grid, 0.5});
  for (int base = box.start; base < box.reached; ++base) {
    drawing.shapes.emplace_back(
        DrawnLine{diamond.Base(base), diamond.Base(base + 1), kPath, Ink::Path});
  }
  if (box.outBefore > 0) DrawOutOnBases(drawing, diamond, box.outBefore);
}

// He came on without a time at bat: a bag lies where he did.
void DrawStart(Drawing& drawing, const Diamond& diamond, int base) {
  const double half = std::max(1.6, diamond.radius * 0.14);
  const auto [x, y] = diamond.Base(base);
  drawing.shapes.emplace_back(DrawnPolygon{
      {{x, y - half}, {x + half, y}, {x, y + half}, {x - half, y}}, Ink::Path, Ink::Path, 0.5});
}

void DrawSteals(Drawing& drawing, const BoxPlace& place, const ScoreBox& box) {
  const double right = place.left + place.width - 2;
  const double left = place.left + kInset;
  const auto put = [&](double x, double y, TextAlign align) {
    DrawText(drawing, {{x, y}, "SB", kSmallSize, false, align, Ink::Text}, place.width);
  };
  if (box.stolen.at(kSecondBase)) put(right, place.top + 13.5, TextAlign::Right);
  if (box.stolen.at(kThirdBase)) put(left, place.top + place.height * 0.62, TextAlign::Left);
  if (box.stolen.at(kHomePlate)) put(left, place.top + place.height - kInset, TextAlign::Left);
}

void DrawOutNumber(Drawing& drawing, const BoxPlace& place, int number) {
  const DrawnPoint middle{place.left + kInset + kOutRadius,
                          place.top + place.height - kInset - kOutRadius};
  drawing.shapes.emplace_back(DrawnCircle{middle, kOutRadius, {}, Ink::Text, 0.8});
  constexpr double kSize = 7.5;
  DrawText(drawing,
           {{middle.x, middle.y + kSize * 0.32},
            std::to_string(number),
            kSize,
            true,
            TextAlign::Middle,
            Ink::Text},
           2 * kOutRadius);
}

void DrawRunsBattedIn(Drawing& drawing, const BoxPlace& place, int runs) {
  constexpr double kRadius = 1.5;
  constexpr double kStep = 4.2;
  constexpr int kMost = 4;
  // Two by two, so that they keep clear of the diamond in a narrow column.
  for (int run = 0; run < std::min(runs, kMost); ++run) {
    const int across = run % 2;
    const int down = run / 2;
    const DrawnPoint middle{place.left + kInset + kRadius + across * kStep,
                            place.top + kInset + kSignSize + 2.6 + down * kStep};
    drawing.shapes.emplace_back(DrawnCircle{middle, kRadius, Ink::Mark, {}, 0.5});
  }
}

void DrawChanges(Drawing& drawing, const BoxPlace& place, const ScoreBox& box) {
  const double right = place.left + place.width;
  if (box.newPitcher > 0) {
    drawing.shapes.emplace_back(
        DrawnLine{{place.left, place.top}, {right, place.top}, kBar, Ink::Mark});
    DrawText(drawing,
             {{right - 2, place.top + 7.5},
              "P" + std::to_string(box.newPitcher),
              kSmallSize,
              true,
              TextAlign::Right,
              Ink::Mark},
             place.width);
  }
  if (box.substitute) {
    drawing.shapes.emplace_back(DrawnLine{
        {place.left, place.top + 1}, {place.left, place.top + place.height - 1}, kBar, Ink::Mark});
  }
  if (box.ranFor) {
    DrawText(drawing,
             {{right - 2, place.top + place.height - kInset},
              "PR",
              kSmallSize,
              false,
              TextAlign::Right,
              Ink::Text},
             place.width);
  }
}

}  // namespace

void DrawText(Drawing& drawing, DrawnText text, double room) {
  text.text = CutText(text.text, text.size, text.bold, room);
  if (text.text.empty()) return;
  text.wide = TextWidth(text.text, text.size, text.bold);
  drawing.shapes.emplace_back(std::move(text));
}

void DrawEmptyDiamond(Drawing& drawing, const BoxPlace& place) {
  drawing.shapes.emplace_back(DrawnPolygon{DiamondOf(place).corners(), {}, Ink::Grid, 0.5});
}

void DrawBox(Drawing& drawing, const BoxPlace& place, const ScoreBox& box) {
  const Diamond diamond = DiamondOf(place);
  DrawWay(drawing, diamond, box);
  if (box.start > 0) DrawStart(drawing, diamond, box.start);
  DrawText(drawing,
           {{place.left + kInset, place.top + kInset + kSignSize * 0.72},
            box.sign,
            kSignSize,
            true,
            TextAlign::Left,
            Ink::Text},
           place.width);
  DrawRunsBattedIn(drawing, place, box.runsBattedIn);
  if (box.outNumber > 0) DrawOutNumber(drawing, place, box.outNumber);
  DrawSteals(drawing, place, box);
  DrawChanges(drawing, place, box);
  if (box.endsHalf) {
    constexpr double kSlash = 8;
    const double right = place.left + place.width;
    const double bottom = place.top + place.height;
    drawing.shapes.emplace_back(
        DrawnLine{{right - kSlash, bottom}, {right, bottom - kSlash}, kPath, Ink::Path});
  }
}

}  // namespace dtb
