#include "base/text_cell.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace dtb {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// The longest plain form of a double has 309 digits before the point (DBL_MAX) or 324 zeros and 17
// digits behind it (the smallest denormal), plus sign and point.
using PlainDigits = std::array<char, 400>;

// Reads a number at the start of the text and says how many characters it took; 0 if there is none.
std::size_t ReadNumber(std::string_view text, double& number) {
  number = 0;
  const bool plus = !text.empty() && text.front() == '+';
  const std::string_view digits = plus ? text.substr(1) : text;
  const std::size_t first = !plus && !digits.empty() && digits.front() == '-' ? 1 : 0;
  // from_chars also reads "inf" and "nan", which are no numbers of a game.
  if (first >= digits.size()) return 0;
  const char start = digits[first];
  if ((start < '0' || start > '9') && start != '.') return 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec == std::errc::invalid_argument) return 0;
  if (result.ec != std::errc{}) number = 0;
  return static_cast<std::size_t>(result.ptr - text.data());
}

// Hand-typed figures can add up beyond all numbers; a figure is a number all the same.
double Finite(double number) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  return std::isnan(number) ? 0 : std::clamp(number, -kLargest, kLargest);
}

}  // namespace

double NumberOf(std::string_view text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return 0;
  double number = 0;
  ReadNumber(text.substr(start), number);
  return number;
}

std::optional<double> WholeNumberOf(std::string_view text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t last = text.find_last_not_of(kBlanks);
  const std::string_view trimmed = text.substr(start, last - start + 1);
  double number = 0;
  if (ReadNumber(trimmed, number) != trimmed.size()) return std::nullopt;
  return number;
}

std::string DecimalText(double number) {
  number = Finite(number);
  if (number == 0) return "0";
  PlainDigits digits;
  const auto result =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  return {digits.data(), result.ptr};
}

std::string TwoDecimals(double number) { return FixedDecimals(number, 2); }

std::string FixedDecimals(double number, int decimals) {
  number = Finite(number);
  const double units = number * std::pow(10.0, decimals);
  // A number too large to be counted in such small units has no decimals to round.
  const double rounded =
      std::isfinite(units) ? std::round(units) / std::pow(10.0, decimals) + 0.0 : number;
  PlainDigits digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), rounded,
                                    std::chars_format::fixed, decimals);
  return {digits.data(), result.ptr};
}

std::string RoundedQuotient(double part, double whole, int decimals) {
  constexpr double kLargest = 1e9;  // times the units below an integer holds it
  const auto counts = [](double number) {
    return number == std::floor(number) && number >= 0 && number <= kLargest;
  };
  if (!counts(part) || !counts(whole) || whole == 0 || decimals > 4) {
    return FixedDecimals(part / whole, decimals);
  }
  std::int64_t units = 1;
  for (int i = 0; i < decimals; ++i) units *= 10;
  const auto divisor = static_cast<std::int64_t>(whole);
  const std::int64_t rounded =
      (2 * static_cast<std::int64_t>(part) * units + divisor) / (2 * divisor);
  std::string digits = std::to_string(rounded);
  const auto places = static_cast<std::size_t>(decimals);
  if (places == 0) return digits;
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  return digits.insert(digits.size() - places, ".");
}

std::string RaisedText(std::string_view text, double by) {
  return DecimalText(NumberOf(text) + by);
}

}  // namespace dtb
