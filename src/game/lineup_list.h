// The line-up of one side: an ordered list of entries with at most one selected row.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/observers.h"

namespace dtb {

// Rows count from 0; a selected row of -1 stands for none. Copies take entries and selection and
// leave the listeners where they are; assignment puts a remembered line-up back in silence: the
// observers hear of it, no batter is named.
class LineupList {
 public:
  static constexpr int kNoRow = -1;

  LineupList() = default;
  LineupList(const LineupList& other) : entries_(other.entries_), selected_(other.selected_) {}
  ~LineupList() = default;
  LineupList& operator=(const LineupList& other);

  [[nodiscard]] const std::vector<std::string>& entries() const { return entries_; }
  [[nodiscard]] int size() const { return static_cast<int>(entries_.size()); }
  [[nodiscard]] bool empty() const { return entries_.empty(); }
  [[nodiscard]] bool HasRow(int row) const { return row >= 0 && row < size(); }
  [[nodiscard]] int selected() const { return selected_; }
  // "" when no row is selected.
  [[nodiscard]] const std::string& SelectedEntry() const;

  void Clear();
  void Append(std::string entry);
  // The following do nothing for a row that does not exist.
  void Replace(int row, std::string entry);
  void Swap(int row, int otherRow);
  // Takes one entry out and puts it in again so that it stands at `to`; it becomes the selection.
  void Move(int from, int to);
  // Makes the row the selected one and raises the event below, also when it was selected before.
  void Select(int row);
  // The same without the event: only the highlight moves.
  void Highlight(int row);

  // The event "a row was selected".
  void SetSelectedEvent(std::function<void()> event) { selectedEvent_ = std::move(event); }
  // Hears of every change of entries or selection; as Observers::Add tells.
  void Observe(std::function<void()> tell, std::function<bool()> lives = {}) {
    observers_.Add(std::move(tell), std::move(lives));
  }

  friend bool operator==(const LineupList& a, const LineupList& b) {
    return a.selected_ == b.selected_ && a.entries_ == b.entries_;
  }

 private:
  std::vector<std::string> entries_;
  int selected_ = kNoRow;
  std::function<void()> selectedEvent_;
  Observers observers_;
};

}  // namespace dtb
