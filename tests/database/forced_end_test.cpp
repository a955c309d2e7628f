// A program that is ended by force, in whatever way a system has for it, while it saves.
#include <thread>

#include "base/child_process.h"
#include "database_test.h"

namespace dtb {
namespace {

TEST_F(DatabaseTest, IsSoundAfterASaveThatWasEndedByForce) {
  constexpr int kPatience = 600'000;  // milliseconds
  int games = 0;
  for (int end = 0; end < 12; ++end) {
    std::string told;
    {
      system::ChildProcess saver(DTB_SAVER, file);
      while (told.size() < 2 && saver.Hear(told, kPatience) == system::ChildProcess::Heard::Bytes) {
      }
      std::this_thread::sleep_for(std::chrono::microseconds(700 * end));
    }
    EXPECT_GE(told.size(), 2U);
    const int now = std::stoi(Count("Matchups"));
    EXPECT_GE(now, games + static_cast<int>(told.size())) << "a game that was told of is lost";
    games = now;
    CheckFile(games);
  }
}

}  // namespace
}  // namespace dtb
