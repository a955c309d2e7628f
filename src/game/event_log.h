// The event log: one line for each event of the game, in order.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace dtb {

// The text that the window "Event Log" shows. It only grows while the program runs. Copies take
// the text and leave the observer where it is; assignment puts a remembered text back.
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
      if (observer_) observer_();
    }
    return *this;
  }

  // Adds the line and CR LF.
  void Append(std::string_view line) {
    text_.append(line).append("\r\n");
    if (observer_) observer_();
  }

  [[nodiscard]] const std::string& text() const { return text_; }

  // The observer reads text(); there is one at most.
  void Observe(std::function<void()> observer) { observer_ = std::move(observer); }

  friend bool operator==(const EventLog& a, const EventLog& b) { return a.text_ == b.text_; }

 private:
  std::string text_;
  std::function<void()> observer_;
};

}  // namespace dtb
