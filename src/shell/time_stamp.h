// Date and time as parts of names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace dtb {

// "MMDDYYHHmmss", of 24 hours: the month leads.
[[nodiscard]] std::string MakeStamp(const LocalTime& time);

// The time of such a stamp, in the years 2000 to 2099; nothing for a text that is none.
[[nodiscard]] std::optional<LocalTime> TimeOfStamp(std::string_view stamp);

// A second later, over the end of a day, month or year as well.
[[nodiscard]] LocalTime NextSecond(LocalTime time);

// A date and time in the form of the person's system, with what file names do not take left out and
// blanks as "_": "11/24/2026 8:05:31 PM" gives "11242026_80531_PM".
[[nodiscard]] std::string ReadableStamp(std::string_view text);

}  // namespace dtb
