#include "game/lineup_list.h"

#include <algorithm>
#include <utility>

namespace dtb {

LineupList& LineupList::operator=(const LineupList& other) {
  if (this != &other && !(*this == other)) {
    entries_ = other.entries_;
    selected_ = other.selected_;
    observers_.Tell();
  }
  return *this;
}

const std::string& LineupList::SelectedEntry() const {
  static const std::string none;
  return HasRow(selected_) ? entries_[static_cast<std::size_t>(selected_)] : none;
}

void LineupList::Clear() {
  entries_.clear();
  selected_ = kNoRow;
  observers_.Tell();
}

void LineupList::Append(std::string entry) {
  entries_.push_back(std::move(entry));
  observers_.Tell();
}

void LineupList::Replace(int row, std::string entry) {
  if (!HasRow(row)) return;
  entries_[static_cast<std::size_t>(row)] = std::move(entry);
  observers_.Tell();
}

void LineupList::Swap(int row, int otherRow) {
  if (!HasRow(row) || !HasRow(otherRow) || row == otherRow) return;
  std::swap(entries_[static_cast<std::size_t>(row)], entries_[static_cast<std::size_t>(otherRow)]);
  observers_.Tell();
}

void LineupList::Move(int from, int to) {
  if (!HasRow(from) || !HasRow(to)) return;
  const auto first = entries_.begin();
  if (from < to) {
    std::rotate(first + from, first + from + 1, first + to + 1);
  } else {
    std::rotate(first + to, first + from, first + from + 1);
  }
  Select(to);
}

void LineupList::Select(int row) {
  if (!HasRow(row)) return;
  Highlight(row);
  if (selectedEvent_) selectedEvent_();
}

void LineupList::Highlight(int row) {
  if (!HasRow(row)) return;
  selected_ = row;
  observers_.Tell();
}

}  // namespace dtb
