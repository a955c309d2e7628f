// Counters that are held as decimal text, as a person may type them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/field.h"

namespace dtb {

// The number that a text begins with, after blanks: "12", "-3", "2.33x" and "1e2" count 12, -3,
// 2.33 and 100. "", text with no number in front and numbers too large for a double count 0.
// Never depends on the locale.
[[nodiscard]] double NumberOf(std::string_view text);

// The number that a whole text is, blanks around it allowed; nothing if it is not one.
[[nodiscard]] std::optional<double> WholeNumberOf(std::string_view text);

// A number as plain decimal text: no leading blank, no exponent, "." as the decimal point and no
// more digits than the number needs ("3", "2.5").
[[nodiscard]] std::string DecimalText(double number);

// A number with exactly two decimals ("2.33", "4.00", never "-0.00").
[[nodiscard]] std::string TwoDecimals(double number);

// A number with exactly so many decimals, rounded half away from zero (".000" of -0.0001 is
// "0.000").
[[nodiscard]] std::string FixedDecimals(double number, int decimals);

// The quotient of two counts with so many decimals, rounded half up once. It is worked out in whole
// numbers where both are such, so that 4.725 is "4.73" although no double is 4.725.
[[nodiscard]] std::string RoundedQuotient(double part, double whole, int decimals);

// The text of a counter after it went up: NumberOf(text) + by.
[[nodiscard]] std::string RaisedText(std::string_view text, double by = 1);

// A field that holds a counter as decimal text.
class TextCell : public Field<std::string> {
 public:
  using Field::Field;
  [[nodiscard]] double number() const { return NumberOf(value()); }
  void Raise(double by = 1) { Set(RaisedText(value(), by)); }
};

}  // namespace dtb
