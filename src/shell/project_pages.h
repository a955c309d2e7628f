// The addresses of the project, in one place.
#pragma once

namespace dtb {

inline constexpr const char* kProjectPage = "https://kelvane-diamond-table.example";
inline constexpr const char* kDonationPage = "https://kelvane-diamond-table.example/donate";

}  // namespace dtb
