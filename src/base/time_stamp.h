// Date and time as parts of names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dtb {

// Date and time where the computer stands.
struct LocalTime {
  int year = 0;
  int month = 1;  // 1 to 12
  int day = 1;
  int hour = 0;  // 0 to 23
  int minute = 0;
  int second = 0;

  [[nodiscard]] int secondsSinceMidnight() const { return (hour * 60 + minute) * 60 + second; }
};

// "MMDDYYHHmmss", of 24 hours: the month leads.
[[nodiscard]] std::string MakeStamp(const LocalTime& time);

// The time of such a stamp, in the years 2000 to 2099; nothing for a text that is none.
[[nodiscard]] std::optional<LocalTime> TimeOfStamp(std::string_view stamp);

// The day as "2026-11-18".
[[nodiscard]] std::string DateText(const LocalTime& time);

// The day of such a text; nothing for one that is none.
[[nodiscard]] std::optional<LocalTime> DateIn(std::string_view text);

// "Apr 2026", and "12 Apr 2026".
[[nodiscard]] std::string PlainMonth(const LocalTime& time);
[[nodiscard]] std::string PlainDay(const LocalTime& time);

// A second later, over the end of a day, month or year as well.
[[nodiscard]] LocalTime NextSecond(LocalTime time);

// A date and time in the form of the person's system, with what file names do not take left out and
// blanks as "_": "11/24/2026 8:05:31 PM" gives "11242026_80531_PM".
[[nodiscard]] std::string ReadableStamp(std::string_view text);

}  // namespace dtb
