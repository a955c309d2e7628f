// The way back through the gestures of a game, and forward again.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "game/board.h"

namespace dtb {

// The fields that a step back restores, as one text: equal texts are equal games.
[[nodiscard]] std::string GameText(const Board& board);

// States of a game, newest on top. Each below the top is kept as what differs from the one above
// it, so hundreds take little.
class SnapshotStack {
 public:
  void Push(std::string snapshot);
  // The newest; the stack must not be empty.
  [[nodiscard]] std::string Pop();
  [[nodiscard]] const std::string& newest() const { return *newest_; }
  [[nodiscard]] std::size_t BytesTaken() const;

 private:
  // Where an older snapshot is the same as the newer one at both ends, and its own middle.
  struct Older {
    std::size_t start = 0;
    std::size_t end = 0;
    std::string middle;
  };
  std::optional<std::string> newest_;  // none: the stack is empty
  std::vector<Older> older_;
};

// One gesture is one step, whatever it changes. The event log is never cut.
class History {
 public:
  // The number of steps that can be taken back.
  [[nodiscard]] std::size_t steps() const { return done_.steps.size(); }
  [[nodiscard]] bool CanUndo() const { return !done_.steps.empty(); }
  [[nodiscard]] bool CanRedo() const { return !undone_.steps.empty(); }
  // Names of the steps, "1B, Tony Kubek"; "" where there is none.
  [[nodiscard]] std::string UndoName() const;
  [[nodiscard]] std::string RedoName() const;

  // The game as it was when the newest step began, as GameText writes it; there must be a step.
  [[nodiscard]] const std::string& GameBefore() const { return done_.snapshots.newest(); }

  // How many steps lead back to where the game had so many plays; nothing where it never had as far
  // as the steps reach, as before a game was taken up again.
  [[nodiscard]] std::optional<std::size_t> StepsBackTo(std::size_t plays, const Board& board) const;

  // Goes back a step or several, or forward again: the fields are put back in silence, and the log
  // gets the line of each step with " [UNDONE]" or " [REDONE]" behind it. Without a step, and in
  // the middle of a gesture, nothing happens. Observers hear of several as of one.
  void Undo(Board& board, std::size_t steps = 1);
  void Redo(Board& board);

  // Nothing that was done up to now can be taken back any more, the gesture in progress included.
  void Clear();

  // Ends the merging of gestures of one kind, see Gesture. In the middle of a gesture, while one of
  // its boxes waits, nothing happens.
  void Seal() {
    if (depth_ == 0) mergeKey_.clear();
  }

  // The newest step is still open for gestures with this merge key.
  [[nodiscard]] bool Merges(std::string_view key) const { return !key.empty() && mergeKey_ == key; }

  // The newest gesture went on with the one before it.
  [[nodiscard]] bool merged() const { return merged_; }

  // What observers hear of now is a step back or forward.
  [[nodiscard]] bool stepped() const { return stepped_; }

  // Hears of each gesture that changed something, of each step back or forward, and of Clear.
  // As Observers::Add tells.
  void Observe(std::function<void()> tell, std::function<bool()> lives = {}) {
    observers_.Add(std::move(tell), std::move(lives));
  }

  // Bytes of store that all steps take.
  [[nodiscard]] std::size_t BytesTaken() const;

 private:
  friend class Gesture;

  struct Step {
    std::string name;
    std::string line;  // first line that the gesture put into the log; else its name
    std::size_t playsBefore = 0;
  };
  struct Steps {
    std::vector<Step> steps;
    SnapshotStack snapshots;  // the game before a step done, or after a step undone
  };

  // As it was when a gesture began.
  struct Before {
    std::string game;
    std::size_t logSize = 0;
    std::size_t plays = 0;
  };

  void Finish(Board& board, Before before, std::string name, std::string mergeKey);
  void Go(Board& board, Steps& from, Steps& to, std::size_t steps, std::string_view mark);
  Steps done_;
  Steps undone_;
  std::string mergeKey_;  // of the newest step
  int depth_ = 0;         // gestures in progress, one inside the other
  bool merged_ = false;
  bool stepped_ = false;
  bool walled_ = false;  // the gesture in progress cannot be taken back
  Observers observers_;
};

// Gestures of one kind that follow do not merge with those before.
inline void SealGesture(const Board& board) {
  if (board.history != nullptr) board.history->Seal();
}

// A gesture of the person, for as long as it lives. Everything that it changes is one step of the
// board's history; a gesture inside another belongs to it. One that changes nothing leaves no
// trace. Without a history nothing happens.
class Gesture {
 public:
  // Gestures in a row with the same merge key are one step: the letters of a text, the moves of a
  // drag.
  Gesture(Board& board, std::string name, std::string mergeKey = {});
  ~Gesture();
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;

  // For a gesture whose name shows only afterwards.
  void SetName(std::string name) { name_ = std::move(name); }

 private:
  Board& board_;
  std::string name_;
  std::string mergeKey_;
  History::Before before_;
};

}  // namespace dtb
