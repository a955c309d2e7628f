// Measures a piece of the program beside the least that could do its work, turn by turn, and prints
// the ratios together at the end.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace dtb {

// Each returns the seconds that one turn took.
struct Pair {
  std::function<double()> ours;
  std::function<double()> bare;
  // The bare library with what ours pays however small the work is, and what that is; it explains a
  // goal that is missed.
  std::function<double()> bareAtThatCost = {};
  std::string fixedCost = {};
};

// The seconds that a function takes.
template <class Function>
double SecondsOf(Function&& function) {
  const auto start = std::chrono::steady_clock::now();
  function();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Name and size together stand for the pair; the medians count. The first turn is for the caches.
void MeasurePair(benchmark::State& state, const std::string& name, int games, double goal,
                 const Pair& pair);

// A ratio that is no matter of time.
void NoteRatio(const std::string& name, int games, double goal, double ours, double bare);

// What a person waits for, in milliseconds of each turn; a goal of 0 is none. The median counts.
void NoteTime(const std::string& name, int games, double goal, const std::vector<double>& turns);

// All that were measured, and how they grew from 1,000 to 10,000 games.
void PrintRatios();

}  // namespace dtb
