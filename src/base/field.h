// A named value of the board that tells when it changes.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "base/observers.h"

namespace dtb {

// Holds one value. A write of an equal value is no change. Any other write stores the value, tells
// the observers (what shows the value on the screen) and then runs the field's change operation (a
// rule of the game), nested in the write. The observers come first, so that the screen is right
// while a message box of the change operation waits.
//
// Copies are plain values: copying a field takes its value and leaves observers and change
// operation where they are. Assigning one field to another puts a remembered value back in
// silence: observers hear of it, the change operation does not run.
template <class T>
class Field {
 public:
  Field() = default;
  explicit Field(T initial) : value_(std::move(initial)) {}
  Field(const Field& other) : value_(other.value_) {}
  ~Field() = default;

  Field& operator=(const Field& other) {
    if (this != &other && !(value_ == other.value_)) {
      value_ = other.value_;
      TellObservers();
    }
    return *this;
  }

  [[nodiscard]] const T& value() const { return value_; }

  void Set(T value) {
    if (value_ == value) return;
    value_ = std::move(value);
    TellObservers();
    if (hooks_ && hooks_->change) hooks_->change();
  }

  // The one rule that runs on every change by Set. It may write this field again.
  void SetChangeOperation(std::function<void()> operation) { MakeHooks().change.swap(operation); }

  // As Observers::Add tells.
  void Observe(std::function<void()> tell, std::function<bool()> lives = {}) {
    MakeHooks().observers.Add(std::move(tell), std::move(lives));
  }
  [[nodiscard]] std::size_t observers() const { return hooks_ ? hooks_->observers.count() : 0; }

  friend bool operator==(const Field& a, const Field& b) { return a.value_ == b.value_; }

 private:
  struct Hooks {
    std::function<void()> change;
    Observers observers;
  };

  Hooks& MakeHooks() {
    if (!hooks_) hooks_ = std::make_unique<Hooks>();
    return *hooks_;
  }

  void TellObservers() {
    if (hooks_) hooks_->observers.Tell();
  }

  T value_{};
  std::unique_ptr<Hooks> hooks_;
};

}  // namespace dtb
