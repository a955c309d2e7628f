// The addresses of the project, in one place.
#pragma once

namespace dtb {

inline constexpr const char* kProjectPage = "https://kelvane-diamond-table.example";
inline constexpr const char* kDonationPage = "https://kelvane-diamond-table.example/donate";
inline constexpr const char* kSupportAddress = "support@kelvane-diamond-table.example";

}  // namespace dtb
