// Who is told of a change.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace dtb {

// Functions that are called one after the other, in the order in which they came.
class Observers {
 public:
  // One whose `lives` says no is not told any more, and is taken off when the next one comes; one
  // without it must outlive what it observes.
  void Add(std::function<void()> tell, std::function<bool()> lives = {}) {
    if (telling_ == 0) std::erase_if(all_, IsDead);
    all_.push_back({std::move(tell), std::move(lives)});
  }

  void Tell() {
    const Telling telling(telling_);
    // NOLINTNEXTLINE(modernize-loop-convert): one that is told may bring another one
    for (std::size_t i = 0; i < all_.size(); ++i) {
      if (!IsDead(all_[i])) all_[i].tell();
    }
  }

  // Those that are not taken off yet.
  [[nodiscard]] std::size_t count() const { return all_.size(); }

 private:
  struct Observer {
    std::function<void()> tell;
    std::function<bool()> lives;
  };
  // Nobody is taken off the list while it is gone through.
  struct Telling {
    explicit Telling(int& count) : depth(count) { ++depth; }
    ~Telling() { --depth; }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
    int& depth;
  };

  static bool IsDead(const Observer& observer) { return observer.lives && !observer.lives(); }

  std::vector<Observer> all_;
  int telling_ = 0;
};

}  // namespace dtb
