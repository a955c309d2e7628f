// Which players of the line-ups are used more on the board than they really were.
#pragma once

#include <QString>
#include <optional>

#include "archive/kept_season.h"
#include "game/board.h"
#include "real/use.h"

namespace dtb {

// Knows it as soon as the program has read the archive of the season in use.
class UseTips {
 public:
  UseTips(Board& board, const archive::KeptSeason& kept) : board_(board), kept_(kept) {}

  // "Real use: 45 of 40 PA, over"; "" for a player without a mark. Reads the saved games when they
  // may have changed since it was last asked.
  [[nodiscard]] QString Of(Side side, const QString& player);
  // Games may have come or gone.
  void Forget() { known_.reset(); }

 private:
  struct Known {
    std::shared_ptr<const archive::Season> season;
    std::string inUse;  // the season of the shelf
    bool unsaved;       // the game on the board
    real::UseMarks marks;
  };

  Board& board_;
  const archive::KeptSeason& kept_;
  std::optional<Known> known_;
};

}  // namespace dtb
