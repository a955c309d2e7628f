// Which players of the line-ups are used more on the board than they really were.
#pragma once

#include <QString>
#include <atomic>
#include <memory>
#include <optional>
#include <thread>

#include "archive/kept_season.h"
#include "game/board.h"
#include "real/use.h"

namespace dtb {

// Knows it once the program has read the archive of the season in use. All operations belong to the
// thread of the windows; another one reads the saved games.
class UseTips {
 public:
  UseTips(Board& board, const archive::KeptSeason& kept) : board_(board), kept_(kept) {}

  // "Real use: 45 of 40 PA, over"; "" for a player without a mark, and for all until the saved
  // games are read.
  [[nodiscard]] QString Of(Side side, const QString& player);
  // Lets a thread read the saved games if they may have changed since.
  void Read();
  // Games may have come or gone, or will. Ends reading.
  void Forget();

 private:
  struct Known {
    std::shared_ptr<const archive::Season> season;
    std::string inUse;  // the season of the shelf
    bool unsaved;       // the game on the board
  };
  struct Reading {
    std::atomic<bool> done = false;
    real::UseMarks marks;  // good once it is done
  };

  Board& board_;
  const archive::KeptSeason& kept_;
  std::optional<Known> known_;
  std::shared_ptr<Reading> reading_;
  std::jthread reader_;  // the last member
};

}  // namespace dtb
