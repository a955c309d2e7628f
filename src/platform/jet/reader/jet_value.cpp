// The values of a file of the Jet format as texts: numbers in plain decimals, letters in UTF-8.
#include <array>
#include <charconv>
#include <cmath>
#include <memory>
#include <type_traits>

#include "base/letters.h"
#include "platform/jet/reader/jet_file.h"

namespace dtb::jet {
namespace {

struct Freed {
  void operator()(char* text) const { g_free(text); }
};
using GlibText = std::unique_ptr<char, Freed>;

// The shortest decimals that give the number again: 0.33, also where four bytes held it.
template <class Number>
Value NumberValue(Number number) {
  if (!std::isfinite(static_cast<double>(number))) throw Fault("is not a number.");
  std::array<char, 400> digits{};
  std::to_chars_result end{};
  if constexpr (std::is_integral_v<Number>) {
    end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  } else {
    end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                        std::chars_format::fixed);
  }
  return {{digits.data(), end.ptr}, static_cast<double>(number)};
}

// The number that a text is as a whole, blanks around it aside; 0 for any other text.
double NumberOfText(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return 0;
  text = text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
  if (text.front() == '+') text.remove_prefix(1);
  if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return 0;
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() ? number : 0;
}

Value TextValue(std::string text) {
  if (text.find('\0') != std::string::npos) throw Fault("is damaged.");
  const double number = NumberOfText(text);
  return {std::move(text), number};
}

// Text of 1997 has the code page of the database. That of later years is UTF-16, in which runs of
// plain letters may have lost every second byte: FF FE stands before all, a zero between two runs.
std::string Utf16(std::string_view bytes) {
  if (!bytes.starts_with("\xFF\xFE")) return std::string(bytes);
  std::string whole;
  bool shortened = true;
  for (std::size_t i = 2; i < bytes.size(); ++i) {
    if (bytes[i] == '\0') {
      shortened = !shortened;
    } else if (shortened) {
      whole += bytes[i];
      whole += '\0';
    } else {
      whole += bytes.substr(i, 2);
      ++i;
    }
  }
  return whole;
}

std::string Letters(const MdbHandle& mdb, std::string_view bytes) {
  const bool ofOneByte = mdb.f->jet_version == MDB_VER_JET3;
  const std::string plain = ofOneByte ? std::string(bytes) : Utf16(bytes);
  constexpr int kUsual = 1252;
  const std::string encoding =
      ofOneByte ? "CP" + std::to_string(mdb.f->code_page == 0 ? kUsual : mdb.f->code_page)
                : "UTF-16LE";
  const auto text = FromEncoding(plain, encoding.c_str());
  if (!text) throw Fault("has text that cannot be decoded.");
  return *text;
}

// A long text stands on pages of its own.
std::string LongLetters(MdbHandle& mdb, const MdbField& field) {
  const GlibText text(mdb_col_to_string(&mdb, mdb.pg_buf, field.start, MDB_MEMO, field.siz));
  const bool empty =
      field.siz < MDB_MEMO_OVERHEAD || (mdb_get_int32(mdb.pg_buf, field.start) & 0x00FFFFFF) == 0;
  if (!text || (*text == '\0' && !empty)) throw Fault("is damaged.");
  return text.get();
}

// What libmdb has made a text of.
Value DecimalValue(char* made) {
  const GlibText text(made);
  if (!text) throw Fault("is damaged.");
  return TextValue(text.get());
}

void RequireSize(const MdbField& field, int size) {
  if (field.siz != size) throw Fault("is damaged.");
}

}  // namespace

Value ValueOf(MdbHandle& mdb, const MdbColumn& column, const MdbField& field) {
  unsigned char* page = mdb.pg_buf;
  switch (column.col_type) {
    case MDB_BOOL:
      return NumberValue(field.is_null != 0 ? 0 : 1);
    case MDB_BYTE:
      RequireSize(field, 1);
      return NumberValue(int{mdb_get_byte(page, field.start)});
    case MDB_INT:
      RequireSize(field, 2);
      return NumberValue(static_cast<std::int16_t>(mdb_get_int16(page, field.start)));
    case MDB_LONGINT:
      RequireSize(field, 4);
      return NumberValue(mdb_get_int32(page, field.start));
    case MDB_FLOAT:
      RequireSize(field, 4);
      return NumberValue(mdb_get_single(page, field.start));
    case MDB_DOUBLE:
      RequireSize(field, 8);
      return NumberValue(mdb_get_double(page, field.start));
    case MDB_MONEY:
      RequireSize(field, 8);
      return DecimalValue(mdb_money_to_string(&mdb, field.start));
    case MDB_NUMERIC:
      RequireSize(field, 17);
      return DecimalValue(
          mdb_numeric_to_string(&mdb, field.start, column.col_scale, column.col_prec));
    case MDB_TEXT: {
      const auto* bytes = reinterpret_cast<const char*>(page + field.start);
      return TextValue(Letters(mdb, {bytes, static_cast<std::size_t>(field.siz)}));
    }
    case MDB_MEMO:
      return TextValue(LongLetters(mdb, field));
    default:
      throw Fault("holds neither numbers nor letters.");
  }
}

}  // namespace dtb::jet
