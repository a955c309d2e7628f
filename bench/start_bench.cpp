// Times two programs in turn and prints the ratios of time and memory, pair by pair.
// Goals: the board starts in at most 1.5 times the time and the memory of the bare window.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

struct Run {
  double milliseconds = 0;
  double megabytes = 0;
};

Run RunOnce(const char* program) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    execl(program, program, nullptr);
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

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s PROGRAM BARE-PROGRAM\n", argv[0]);
    return 2;
  }
  constexpr int kPairs = 15;
  std::vector<double> times;
  std::vector<double> memories;
  std::vector<double> times1;
  std::vector<double> times2;
  for (int pair = -1; pair < kPairs; ++pair) {
    const Run program = RunOnce(argv[1]);
    const Run bare = RunOnce(argv[2]);
    if (pair < 0) continue;  // the first pair only warms the caches
    times.push_back(program.milliseconds / bare.milliseconds);
    memories.push_back(program.megabytes / bare.megabytes);
    times1.push_back(program.milliseconds);
    times2.push_back(bare.milliseconds);
  }
  std::printf("start to first paint: %.0f ms, bare window %.0f ms, ratio %.2f (goal 1.5)\n",
              Median(times1), Median(times2), Median(times));
  std::printf("memory: ratio %.2f (goal 1.5)\n", Median(memories));
  return 0;
}
