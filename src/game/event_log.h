// The event log: one line for each event of the game, in order.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/observers.h"

namespace dtb {

// The text that the window "Event Log" shows. It only grows while the program runs. Copies take
// the text and leave the observers where they are; assignment puts a remembered text back.
class EventLog {
 public:
  EventLog() = default;
  // A log that goes on from a remembered text.
  explicit EventLog(std::string text) : text_(std::move(text)) {}
  EventLog(const EventLog& other) : text_(other.text_) {}
  ~EventLog() = default;
  EventLog& operator=(const EventLog& other) {
    if (this != &other && text_ != other.text_) {
      text_ = other.text_;
      observers_.Tell();
    }
    return *this;
  }

  // Adds the line and CR LF.
  void Append(std::string_view line) {
    text_.append(line).append("\r\n");
    observers_.Tell();
  }

  [[nodiscard]] const std::string& text() const { return text_; }

  // The observer reads text(); as Observers::Add tells.
  void Observe(std::function<void()> tell, std::function<bool()> lives = {}) {
    observers_.Add(std::move(tell), std::move(lives));
  }

  friend bool operator==(const EventLog& a, const EventLog& b) { return a.text_ == b.text_; }

 private:
  std::string text_;
  Observers observers_;
};

}  // namespace dtb
