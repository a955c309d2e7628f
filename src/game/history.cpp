#include "game/history.h"

#include <algorithm>
#include <new>
#include <utility>

#include "game/constant_update.h"
#include "game/field_text.h"
#include "game/game_fields.h"
#include "game/memento.h"

namespace dtb {
namespace {

const auto kLeaveAlone = [](const auto&...) {};

void PutBack(Board& board, std::string_view game) {
  GameMemento memento = Remember(board);
  FieldReader reader(game);
  VisitFields(memento.state, memento.sheet, reader, kLeaveAlone);
  Restore(board, memento);
}

// The sheet's line score is a copy, with the names that the load gave it.
void RenewLineScore(Board& board) {
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    board.sheet.grd_BoxScore.SetText(fields.boxScoreRow, 0, fields.sheetTeam.value());
  }
  CopyLineScore(board);
}

// The line at a place of the log, without its end.
std::string LineAt(const std::string& log, std::size_t place) {
  return log.substr(place, log.find('\r', place) - place);
}

}  // namespace

std::string GameText(const Board& board) {
  constexpr std::size_t kUsualSize = 1U << 14U;
  std::string text;
  text.reserve(kUsualSize);
  FieldWriter writer(text);
  VisitFields(std::as_const(board.state), std::as_const(board.sheet), writer, kLeaveAlone);
  return text;
}

void SnapshotStack::Push(std::string snapshot) {
  if (newest_) {
    const std::string& older = *newest_;
    const auto start =
        static_cast<std::size_t>(std::ranges::mismatch(older, snapshot).in1 - older.begin());
    const std::size_t shorter = std::min(older.size(), snapshot.size());
    std::size_t end = 0;
    while (end < shorter - start &&
           older[older.size() - 1 - end] == snapshot[snapshot.size() - 1 - end]) {
      ++end;
    }
    older_.push_back({start, end, older.substr(start, older.size() - start - end)});
  }
  newest_ = std::move(snapshot);
}

std::string SnapshotStack::Pop() {
  std::string popped = std::move(*newest_);
  newest_.reset();
  if (older_.empty()) return popped;
  const Older& next = older_.back();
  newest_ = popped.substr(0, next.start) + next.middle + popped.substr(popped.size() - next.end);
  older_.pop_back();
  return popped;
}

std::size_t SnapshotStack::BytesTaken() const {
  std::size_t bytes = (newest_ ? newest_->capacity() : 0) + older_.capacity() * sizeof(Older);
  for (const Older& older : older_) bytes += older.middle.capacity();
  return bytes;
}

std::string History::UndoName() const { return CanUndo() ? done_.steps.back().name : ""; }

std::string History::RedoName() const { return CanRedo() ? undone_.steps.back().name : ""; }

std::optional<std::size_t> History::StepsBackTo(std::size_t plays, const Board& board) const {
  if (board.state.plays.size() == plays) return 0;
  const auto step =
      std::ranges::find(done_.steps.rbegin(), done_.steps.rend(), plays, &Step::playsBefore);
  if (step == done_.steps.rend()) return std::nullopt;
  return step - done_.steps.rbegin() + 1;
}

void History::Undo(Board& board, std::size_t steps) {
  Go(board, done_, undone_, steps, " [UNDONE]");
}

void History::Redo(Board& board) { Go(board, undone_, done_, 1, " [REDONE]"); }

void History::Go(Board& board, Steps& from, Steps& to, std::size_t steps, std::string_view mark) {
  if (depth_ > 0 || from.steps.empty() || steps == 0) return;
  std::string game = GameText(board);
  for (; steps > 0 && !from.steps.empty(); --steps) {
    to.snapshots.Push(std::move(game));
    game = from.snapshots.Pop();
    board.log.Append(std::string(from.steps.back().line).append(mark));
    to.steps.push_back(std::move(from.steps.back()));
    from.steps.pop_back();
  }
  PutBack(board, game);
  RenewLineScore(board);
  merged_ = false;
  Seal();
  stepped_ = true;
  observers_.Tell();
  stepped_ = false;
}

void History::Clear() {
  done_ = {};
  undone_ = {};
  Seal();
  walled_ = depth_ > 0;
  observers_.Tell();
}

std::size_t History::BytesTaken() const {
  std::size_t bytes = done_.snapshots.BytesTaken() + undone_.snapshots.BytesTaken();
  for (const Steps* steps : {&done_, &undone_}) {
    bytes += steps->steps.capacity() * sizeof(Step);
    for (const Step& step : steps->steps) bytes += step.name.capacity() + step.line.capacity();
  }
  return bytes;
}

void History::Finish(Board& board, Before before, std::string name, std::string mergeKey) {
  merged_ = false;
  if (std::exchange(walled_, false)) return observers_.Tell();
  const bool logged = board.log.text().size() > before.logSize;
  if (!logged && GameText(board) == before.game) return;
  const bool merges = !mergeKey.empty() && mergeKey == mergeKey_ && CanUndo();
  merged_ = merges;
  if (merges) {
    done_.steps.back().name = std::move(name);
  } else {
    std::string line = logged ? LineAt(board.log.text(), before.logSize) : name;
    done_.steps.push_back({std::move(name), std::move(line), before.plays});
    done_.snapshots.Push(std::move(before.game));
  }
  undone_ = {};
  mergeKey_ = std::move(mergeKey);
  observers_.Tell();
}

Gesture::Gesture(Board& board, std::string name, std::string mergeKey)
    : board_(board), name_(std::move(name)), mergeKey_(std::move(mergeKey)) {
  if (board.history == nullptr || board.history->depth_++ > 0) return;
  before_ = {GameText(board), board.log.text().size(), board.state.plays.size()};
}

Gesture::~Gesture() {
  if (board_.history == nullptr || --board_.history->depth_ > 0) return;
  try {
    board_.history->Finish(board_, std::move(before_), std::move(name_), std::move(mergeKey_));
  } catch (const std::bad_alloc&) {
    // The game goes on; what lies behind is out of reach.
    board_.history->Clear();
  }
}

}  // namespace dtb
