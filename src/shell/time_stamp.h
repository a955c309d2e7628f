// Date and time as parts of names.
#pragma once

#include <string>

#include "platform/platform.h"

namespace dtb {

// "MMDDYYHHmmss", of 24 hours: the month leads.
[[nodiscard]] std::string MakeStamp(const LocalTime& time);

// "11/24/2026 8:05:31 PM", as people of this field are used to it, with what file names do not take
// left out and blanks as "_": "11242026_80531_PM".
[[nodiscard]] std::string ReadableStamp(const LocalTime& time);

}  // namespace dtb
