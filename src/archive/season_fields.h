// The fields of an archive's lines.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dtb::archive {

// The next field of a line, without the quotation marks around it.
std::string_view TakeField(std::string_view& line);

[[nodiscard]] std::optional<int> Number(std::string_view text);

// "0" for the visitors, "1" for the home team.
[[nodiscard]] std::optional<int> SideNumber(std::string_view text);

// Text that the person will read: one line of UTF-8, without blanks around it.
[[nodiscard]] std::string Readable(std::string_view bytes);

// A text that can name a club or a player: of letters and digits, and some signs between them.
[[nodiscard]] bool IsId(std::string_view text);

}  // namespace dtb::archive
