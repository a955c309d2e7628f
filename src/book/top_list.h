// The best of many that come one by one.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace dtb::book {

inline constexpr std::size_t kShownTop = 10;  // of a list
inline constexpr std::size_t kMostTied = 40;  // where more than ten share the first place

// Keeps the highest values; of equal ones those that came first. An entry has a member `value`.
template <class Entry>
class TopList {
 public:
  void Add(Entry entry) {
    const double value = entry.value;
    Offer(value, [&entry] { return std::move(entry); });
  }
  // The same; the entry is made only if it is kept.
  template <class Make>
  void Offer(double value, Make make) {
    if (kept_.size() == kMostTied && value <= kept_.back().value) {
      alsoLast_ += value == kept_.back().value ? 1 : 0;
      return;
    }
    Entry entry = make();
    entry.value = value;
    const auto place = std::ranges::upper_bound(kept_, entry.value, std::greater{}, &Entry::value);
    kept_.insert(place, std::move(entry));
    if (kept_.size() <= kMostTied) return;
    const double dropped = kept_.back().value;
    kept_.pop_back();
    alsoLast_ = dropped == kept_.back().value ? alsoLast_ + 1 : 0;
  }
  // What a later list has.
  void Add(const TopList& later) {
    for (const Entry& entry : later.kept_) Add(entry);
    if (later.alsoLast_ > 0 && kept_.back().value == later.kept_.back().value) {
      alsoLast_ += later.alsoLast_;
    }
  }

  // The best ten, and all who share the first place, as far as they are kept.
  [[nodiscard]] std::vector<Entry> first() const {
    return {kept_.begin(), kept_.begin() + shown()};
  }
  // So many more have the value of the last of them.
  [[nodiscard]] int alsoLast() const {
    if (kept_.empty()) return 0;
    const double last = kept_[static_cast<std::size_t>(shown()) - 1].value;
    const auto more = std::count_if(kept_.begin() + shown(), kept_.end(),
                                    [last](const Entry& entry) { return entry.value == last; });
    return static_cast<int>(more) + (kept_.back().value == last ? alsoLast_ : 0);
  }
  // All that are kept, to be changed where they stand; not in their values.
  [[nodiscard]] std::vector<Entry>& kept() { return kept_; }

 private:
  [[nodiscard]] std::ptrdiff_t shown() const {
    std::size_t tied = 0;
    while (tied < kept_.size() && kept_[tied].value == kept_.front().value) ++tied;
    return static_cast<std::ptrdiff_t>(std::min(kept_.size(), std::max(kShownTop, tied)));
  }

  std::vector<Entry> kept_;
  int alsoLast_ = 0;
};

}  // namespace dtb::book
