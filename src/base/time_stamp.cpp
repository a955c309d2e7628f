#include "base/time_stamp.h"

#include <algorithm>
#include <array>

#include "base/words.h"

namespace dtb {

std::string MakeStamp(const LocalTime& time) {
  std::string stamp;
  for (const int part : {time.month, time.day, time.year, time.hour, time.minute, time.second}) {
    stamp += TwoDigits(part);
  }
  return stamp;
}

std::optional<LocalTime> TimeOfStamp(std::string_view stamp) {
  constexpr std::size_t kParts = 6;
  constexpr int kCentury = 2000;
  if (stamp.size() != 2 * kParts) return std::nullopt;
  std::array<int, kParts> parts{};
  for (std::size_t i = 0; i < stamp.size(); ++i) {
    if (stamp[i] < '0' || stamp[i] > '9') return std::nullopt;
    parts.at(i / 2) = 10 * parts.at(i / 2) + (stamp[i] - '0');
  }
  const auto [month, day, year, hour, minute, second] = parts;
  const bool real =
      month >= 1 && month <= 12 && day >= 1 && day <= 31 && hour < 24 && minute < 60 && second < 60;
  if (!real) return std::nullopt;
  return LocalTime{kCentury + year, month, day, hour, minute, second};
}

std::string DateText(const LocalTime& time) {
  constexpr int kCentury = 100;
  return TwoDigits(time.year / kCentury) + TwoDigits(time.year) + "-" + TwoDigits(time.month) +
         "-" + TwoDigits(time.day);
}

std::optional<LocalTime> DateIn(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00";
  if (text.size() != kForm.size()) return std::nullopt;
  std::array<int, 3> parts{};
  std::size_t part = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kForm[i] == '-') {
      if (text[i] != '-') return std::nullopt;
      ++part;
      continue;
    }
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
    parts.at(part) = 10 * parts.at(part) + (text[i] - '0');
  }
  const auto [year, month, day] = parts;
  if (month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  return LocalTime{.year = year, .month = month, .day = day};
}

std::string PlainMonth(const LocalTime& time) {
  constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  return std::string(kMonths.at(static_cast<std::size_t>(time.month) - 1)) + ' ' +
         std::to_string(time.year);
}

std::string PlainDay(const LocalTime& time) {
  return std::to_string(time.day) + ' ' + PlainMonth(time);
}

LocalTime NextSecond(LocalTime time) {
  const bool leap = time.year % 4 == 0 && (time.year % 100 != 0 || time.year % 400 == 0);
  const std::array<int, 12> days{31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const auto carry = [](int& part, int& next, int first, int last) {
    if (part <= last) return;
    part = first;
    ++next;
  };
  ++time.second;
  carry(time.second, time.minute, 0, 59);
  carry(time.minute, time.hour, 0, 59);
  carry(time.hour, time.day, 0, 23);
  carry(time.day, time.month, 1, days.at(static_cast<std::size_t>(time.month) - 1));
  carry(time.month, time.year, 1, 12);
  return time;
}

std::string ReadableStamp(std::string_view text) {
  // Blanks that do not break a line stand before AM and PM in some systems.
  constexpr std::array<std::string_view, 5> kBlanks{" ", "\t", "\xC2\xA0", "\xE2\x80\xAF",
                                                    "\xE2\x80\x89"};
  constexpr std::string_view kNotInFileNames = R"(:/\*?"<>|)";
  std::string stamp;
  while (!text.empty()) {
    const auto* blank = std::ranges::find_if(
        kBlanks, [&](std::string_view candidate) { return text.starts_with(candidate); });
    if (blank != kBlanks.end()) {
      stamp += '_';
      text.remove_prefix(blank->size());
      continue;
    }
    const char letter = text.front();
    const bool control = static_cast<unsigned char>(letter) < ' ';
    if (!control && kNotInFileNames.find(letter) == std::string_view::npos) stamp += letter;
    text.remove_prefix(1);
  }
  return stamp;
}

}  // namespace dtb
