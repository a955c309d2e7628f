#include "shell/time_stamp.h"

namespace dtb {
namespace {

// The last two digits.
std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

std::string MakeStamp(const LocalTime& time) {
  std::string stamp;
  for (const int part : {time.month, time.day, time.year, time.hour, time.minute, time.second}) {
    stamp += TwoDigits(part);
  }
  return stamp;
}

std::string ReadableStamp(const LocalTime& time) {
  constexpr int kNoon = 12;
  const int hour = time.hour % kNoon == 0 ? kNoon : time.hour % kNoon;
  return std::to_string(time.month) + std::to_string(time.day) + std::to_string(time.year) + '_' +
         std::to_string(hour) + TwoDigits(time.minute) + TwoDigits(time.second) +
         (time.hour < kNoon ? "_AM" : "_PM");
}

}  // namespace dtb
