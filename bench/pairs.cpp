#include "bench/pairs.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace dtb {
namespace {

struct Result {
  std::string name;
  int games;
  const char* unit;
  double ours;
  double bare;
  double ratio;
  double goal;
  std::string fixedCost = {};
  double paid = 0;             // of `ours` for the fixed cost
  double ratioAtThatCost = 0;  // beside the bare library that pays it too
};

std::vector<Result>& Results() {
  static std::vector<Result> results;
  return results;
}

struct Time {
  std::string name;
  int games;
  double milliseconds;
  double goal;
};

std::vector<Time>& Times() {
  static std::vector<Time> times;
  return times;
}

constexpr double kMilliseconds = 1000;

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void PrintTimes() {
  if (!Times().empty()) std::puts("\nWhat a person waits for:");
  for (const Time& time : Times()) {
    std::printf("%-34s %6d games: %8.1f ms", time.name.c_str(), time.games, time.milliseconds);
    if (time.goal > 0) std::printf(" (goal %.0f)", time.goal);
    std::puts(time.goal > 0 && time.milliseconds > time.goal ? " MISSED" : "");
  }
}

}  // namespace

void MeasurePair(benchmark::State& state, const std::string& name, int games, double goal,
                 const Pair& pair) {
  std::vector<double> ours;
  std::vector<double> bare;
  std::vector<double> ratios;
  std::vector<double> paid;
  std::vector<double> ratiosAtThatCost;
  pair.ours();
  pair.bare();
  for (auto _ : state) {
    // Who comes first finds the caches colder.
    const bool oursFirst = ours.size() % 2 == 0;
    if (oursFirst) ours.push_back(pair.ours());
    bare.push_back(pair.bare());
    if (!oursFirst) ours.push_back(pair.ours());
    ratios.push_back(ours.back() / bare.back());
    if (pair.bareAtThatCost) {
      const double atThatCost = pair.bareAtThatCost();
      paid.push_back(atThatCost - bare.back());
      ratiosAtThatCost.push_back(ours.back() / atThatCost);
    }
    state.SetIterationTime(ours.back());
  }
  const double ratio = Median(ratios);
  state.counters["bare_ms"] = Median(bare) * kMilliseconds;
  state.counters["ratio"] = ratio;
  Results().push_back(
      {name, games, "ms", Median(ours) * kMilliseconds, Median(bare) * kMilliseconds, ratio, goal});
  if (paid.empty()) return;
  Results().back().fixedCost = pair.fixedCost;
  Results().back().paid = Median(paid) * kMilliseconds;
  Results().back().ratioAtThatCost = Median(ratiosAtThatCost);
}

void NoteRatio(const std::string& name, int games, double goal, double ours, double bare) {
  constexpr double kMegabyte = 1 << 20;
  Results().push_back({name, games, "MB", ours / kMegabyte, bare / kMegabyte, ours / bare, goal});
}

void NoteTime(const std::string& name, int games, double goal, const std::vector<double>& turns) {
  Times().push_back({name, games, Median(turns), goal});
}

void PrintRatios() {
  PrintTimes();
  if (Results().empty()) return;
  std::puts("\nBeside the bare library, or without what is measured:");
  for (const Result& result : Results()) {
    const std::string games =
        result.games > 0 ? std::to_string(result.games) + " games" : std::string();
    std::printf("%-34s %12s: %8.2f %s, bare %8.2f, ratio %.2f (goal %.1f)%s\n", result.name.c_str(),
                games.c_str(), result.ours, result.unit, result.bare, result.ratio, result.goal,
                result.ratio > result.goal ? " MISSED" : "");
    if (result.ratio > result.goal && !result.fixedCost.empty()) {
      std::printf("%34s %.2f ms of it to %s; beside a bare library that does so too: %.2f\n", "",
                  result.paid, result.fixedCost.c_str(), result.ratioAtThatCost);
    }
  }
  for (const Result& large : Results()) {
    const auto small = std::ranges::find_if(Results(), [&large](const Result& result) {
      return result.name == large.name && result.games * 10 == large.games && large.games == 10000;
    });
    if (small == Results().end()) continue;
    std::printf("%-34s ten times the games: %.1f times, bare %.1f times\n", large.name.c_str(),
                large.ours / small->ours, large.bare / small->bare);
  }
}

}  // namespace dtb
