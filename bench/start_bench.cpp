// Times two programs in turn and prints the ratios of time and memory, pair by pair.
// Goals: the board starts in at most 1.3 times the time and 1.2 times the memory of the bare
// window; behind a launcher, such as Wine, in at most twice the time.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr double kMemoryGoal = 1.2;
constexpr double kLaunchedGoal = 2;

struct Run {
  double milliseconds = 0;
  double megabytes = 0;
};

const char* launcher = nullptr;  // runs the programs; nullptr: they run by themselves

Run RunOnce(const char* program, const char* first = nullptr, const char* second = nullptr) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    // Wine takes the variables for Qt away.
    if (launcher != nullptr) {
      execl(launcher, launcher, program, "-platform", "offscreen", first, second, nullptr);
    }
    execl(program, program, first, second, nullptr);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) < 0 || status != 0) {
    std::fprintf(stderr, "%s did not run to its end\n", program);
    std::exit(1);
  }
  const auto time = std::chrono::steady_clock::now() - start;
  return {std::chrono::duration<double, std::milli>(time).count(),
          static_cast<double>(usage.ru_maxrss) / 1024};
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

struct Bare {
  const char* program;
  const char* word = nullptr;  // how it reads its picture
};

// Runs the program, with a file if one is given, and the bare one in turn. A goal of 0 is none.
void Compare(const char* what, double goal, const char* program, const char* file,
             const Bare& bare) {
  constexpr int kPairs = 15;
  std::vector<double> times;
  std::vector<double> memories;
  std::vector<double> times1;
  std::vector<double> times2;
  for (int pair = -1; pair < kPairs; ++pair) {
    const Run run = RunOnce(program, file);
    const Run bareRun = RunOnce(bare.program, bare.word);
    if (pair < 0) continue;  // the first pair only warms the caches
    times.push_back(run.milliseconds / bareRun.milliseconds);
    memories.push_back(run.megabytes / bareRun.megabytes);
    times1.push_back(run.milliseconds);
    times2.push_back(bareRun.milliseconds);
  }
  const double time = Median(times);
  const double memory = Median(memories);
  std::printf("%s: %.0f ms, bare window %.0f ms, ratio %.2f", what, Median(times1), Median(times2),
              time);
  if (goal > 0) std::printf(" (goal %.1f)%s", goal, time > goal ? " MISSED" : "");
  std::printf("; memory: ratio %.2f", memory);
  if (goal > 0) std::printf(" (goal %.1f)%s", kMemoryGoal, memory > kMemoryGoal ? " MISSED" : "");
  std::puts("");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::fprintf(stderr, "usage: %s PROGRAM BARE-PROGRAM [LAUNCHER]\n", argv[0]);
    return 2;
  }
  if (argc == 4) {
    launcher = argv[3];
    Compare("start to first paint", kLaunchedGoal, argv[1], nullptr, {argv[2]});
    return 0;
  }
  const std::string game = std::string(argv[1]) + ".game";
  Compare("start to first paint", 1.3, argv[1], nullptr, {argv[2]});
  Compare("the same, beside one that halves its picture too", 0, argv[1], nullptr,
          {argv[2], "halved"});
  std::puts(
      "  What remains is the board itself: by a profile a quarter of its work makes and places "
      "its\n"
      "  controls, paints them and takes them down again; the park is decoded beside that.");
  RunOnce(argv[1], "make", game.c_str());
  // With a question on the screen, its answer, and a second painting.
  Compare("start with a game to take up", 2.5, argv[1], game.c_str(), {argv[2]});
  std::remove(game.c_str());
  return 0;
}
