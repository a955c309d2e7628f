// Games of which no plays are known: each player's figures, and the runs by innings.
#include <algorithm>
#include <array>

#include "archive/day_figures.h"
#include "archive/season_fields.h"
#include "archive/season_lines.h"

namespace dtb::archive {
namespace {

constexpr int kMostCounted = 99;  // of any figure of a player in a game

// The next fields; what is not known, as a rule -1, counts nothing and is negative here.
template <std::size_t count>
std::array<int, count> TakeNumbers(std::string_view line) {
  std::array<int, count> numbers{};
  for (int& number : numbers) {
    number = std::min(Number(TakeField(line)).value_or(-1), kMostCounted);
  }
  return numbers;
}

int Known(int number) { return std::max(number, 0); }

// The bits of the figures that are not known.
template <class Figures>
std::uint32_t Untold(std::initializer_list<std::pair<int, int Figures::*>> numbers) {
  std::uint32_t bits = 0;
  for (const auto& [number, figure] : numbers) bits |= number < 0 ? UntoldBit(figure) : 0;
  return bits;
}

}  // namespace

// "bline": who batted; "pline": who pitched; "dline": where a player stood; "phline" and "prline":
// who came to bat or to run for another.
void SeasonLines::TakeFigures(std::string_view line) {
  if (!OpenGame() || scorer_.HasPlays()) return;
  const std::string_view kind = TakeField(line);
  const bool batted = kind == "bline";
  const bool pitched = kind == "pline";
  const bool stood = kind == "dline";
  const bool came = kind == "phline" || kind == "prline";
  if (!batted && !pitched && !stood && !came) return;
  const std::string_view id = TakeField(line);
  if (came) TakeField(line);  // the inning
  const auto side = SideNumber(TakeField(line));
  if (id.empty() || !side) return Note("a line of figures without a player");
  const int player = PlayerOf(game_.sides.at(*side).club, id, {});
  if (player == kNobody) return;
  const char* fault = nullptr;
  if (batted) fault = TakeBattingLine(*side, player, line);
  if (pitched) fault = TakePitchingLine(*side, player, line);
  if (came) {
    fault = scorer_.NotePosition(*side, player, kind[1] == 'h' ? kPinchHitter : kPinchRunner);
  }
  if (stood) {
    TakeField(line);  // his how many-th position
    const int position = Number(TakeField(line)).value_or(0);
    if (position < 1 || position > kOrder) return Note("a position without a player");
    fault = scorer_.NotePosition(*side, player, position);
  }
  if (fault != nullptr) Note(fault);
}

// Place in the order and in it, then ab, r, h, 2b, 3b, hr, rbi, sh, sf, hbp, bb, ibb, k, sb, cs,
// gdp.
const char* SeasonLines::TakeBattingLine(int side, int player, std::string_view line) {
  const auto all = TakeNumbers<18>(line);
  const auto& [place, turn, atBats, runs, hits, doubles, triples, homeRuns, battedIn, bunts, flies,
               hit, walks, intentional, strikeouts, steals, caught, doublePlays] = all;
  Batting figures;
  figures.walks = Known(walks);
  figures.strikeouts = Known(strikeouts);
  figures.hitByPitch = Known(hit);
  figures.stolenBases = Known(steals);
  figures.sacrificeHits = Known(bunts);
  figures.sacrificeFlies = Known(flies);
  figures.runs = Known(runs);
  figures.runsBattedIn = Known(battedIn);
  figures.intoDoublePlays = Known(doublePlays);
  const int extra = Known(doubles) + Known(triples) + Known(homeRuns);
  const bool agree = atBats >= hits && Known(hits) >= extra;
  // An average needs both at-bats and hits.
  if (agree && atBats >= 0 && hits >= 0) {
    figures.atBats = atBats;
    figures.hits = hits;
    figures.doubles = Known(doubles);
    figures.triples = Known(triples);
    figures.homeRuns = Known(homeRuns);
  } else {
    scorer_.NoteUntold(side, UntoldBit(&Batting::atBats) | UntoldBit(&Batting::hits));
  }
  scorer_.NoteUntold(side, Untold<Batting>({{homeRuns, &Batting::homeRuns},
                                            {runs, &Batting::runs},
                                            {battedIn, &Batting::runsBattedIn},
                                            {walks, &Batting::walks},
                                            {steals, &Batting::stolenBases},
                                            {doublePlays, &Batting::intoDoublePlays},
                                            {-1, &Batting::leftOnBase}}));
  const char* fault = scorer_.AddBatting(side, player, figures);
  return !agree && atBats >= 0 ? "more hits than a player can have" : fault;
}

// His turn, then outs, batters that he did not put out, batters faced, h, 2b, 3b, hr, r, er, bb,
// ibb, k.
const char* SeasonLines::TakePitchingLine(int side, int player, std::string_view line) {
  const auto all = TakeNumbers<13>(line);
  const auto& [turn, outs, batters, faced, hits, doubles, triples, homeRuns, runs, earned, walks,
               intentional, strikeouts] = all;
  Pitching figures;
  figures.outs = Known(outs);
  figures.hits = Known(hits);
  figures.homeRuns = Known(homeRuns);
  figures.walks = Known(walks);
  figures.strikeouts = Known(strikeouts);
  figures.runs = Known(runs);
  figures.earnedRuns = Known(earned);
  if (earned < 0) figures.outsUncharged = figures.outs;
  scorer_.NoteUntold(side, Untold<Pitching>({{outs, &Pitching::outs},
                                             {strikeouts, &Pitching::strikeouts},
                                             {runs, &Pitching::runs}}));
  return scorer_.AddPitching(side, player, figures, turn == 1);
}

void SeasonLines::TakeLineScore(std::string_view line) {
  if (!OpenGame() || scorer_.HasPlays()) return;
  const auto side = SideNumber(TakeField(line));
  if (!side) return Note("no line score");
  constexpr int kMostInnings = 50;
  int runs = 0;
  for (int inning = 0; inning < kMostInnings && !line.empty(); ++inning) {
    runs += std::clamp(Number(TakeField(line)).value_or(0), 0, kMostCounted);
  }
  scorer_.SetRuns(*side, runs);
}

}  // namespace dtb::archive
