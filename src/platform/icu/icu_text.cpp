#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>

#include "base/letters.h"

namespace dtb {
namespace {

constexpr std::size_t kAsciiCharacters = 128;

icu::StringPiece PieceOf(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

// ICU's order of names, and the places of the plain characters in it: most names differ in
// one of those, and are compared without ICU.
class NameOrder {
 public:
  NameOrder() {
    UErrorCode status = U_ZERO_ERROR;
    collator_.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status) != 0) throw std::bad_alloc();
    collator_->setStrength(icu::Collator::PRIMARY);
    std::array<char, kAsciiCharacters> ordered{};
    for (std::size_t i = 0; i < ordered.size(); ++i) ordered[i] = static_cast<char>(i);
    const auto before = [this](char a, char b) { return Slowly({&a, 1}, {&b, 1}) < 0; };
    std::ranges::sort(ordered, before);
    // What ICU looks through, such as control codes, keeps place 0.
    for (std::size_t i = 1; i < ordered.size(); ++i) {
      const auto index = [](char letter) { return static_cast<unsigned char>(letter); };
      const std::uint8_t last = place_[index(ordered[i - 1])];
      place_[index(ordered[i])] =
          static_cast<std::uint8_t>(last + (before(ordered[i - 1], ordered[i]) ? 1 : 0));
    }
  }

  [[nodiscard]] int Compare(std::string_view first, std::string_view second) const {
    const std::size_t shorter = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < shorter; ++i) {
      const int a = PlaceOf(first[i]);
      const int b = PlaceOf(second[i]);
      if (a == 0 || b == 0) return Slowly(first, second);
      if (a != b) return a - b;
    }
    const std::string_view rest = (first.size() > shorter ? first : second).substr(shorter);
    if (!rest.empty() && PlaceOf(rest.front()) == 0) return Slowly(first, second);
    return static_cast<int>(first.size() > shorter) - static_cast<int>(second.size() > shorter);
  }

 private:
  // 0: ICU knows.
  [[nodiscard]] int PlaceOf(char character) const {
    const auto byte = static_cast<unsigned char>(character);
    return byte < kAsciiCharacters ? place_[byte] : 0;
  }

  [[nodiscard]] int Slowly(std::string_view first, std::string_view second) const {
    UErrorCode status = U_ZERO_ERROR;
    return collator_->compareUTF8(PieceOf(first), PieceOf(second), status);
  }

  std::unique_ptr<icu::Collator> collator_;
  std::array<std::uint8_t, kAsciiCharacters> place_{};
};

std::string Decoded(std::string_view bytes, const char* encoding) {
  const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()), encoding);
  // Only for want of memory: the encodings are parts of ICU.
  if (text.isBogus() != 0) throw std::bad_alloc();
  std::string decoded;
  return text.toUTF8String(decoded);
}

}  // namespace

char32_t FoldedLetter(char32_t letter) {
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(letter), U_FOLD_CASE_DEFAULT));
}

char32_t PlainLetter(char32_t letter) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
  icu::UnicodeString parts;
  const bool found = U_SUCCESS(status) != 0 &&
                     decomposing->getDecomposition(static_cast<UChar32>(letter), parts) != 0;
  return found ? static_cast<char32_t>(parts.char32At(0)) : letter;
}

int CompareNames(std::string_view first, std::string_view second) {
  // Made when names are first put in order, which is long after the start.
  static const NameOrder order;
  return order.Compare(first, second);
}

std::optional<std::string> FromEncoding(std::string_view bytes, const char* encoding) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(encoding, &status),
                                                                     &ucnv_close);
  if (U_FAILURE(status) != 0) return std::nullopt;
  // Without this, what makes no sense is exchanged for another letter.
  ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                converter.get(), status);
  if (U_FAILURE(status) != 0 || text.isBogus() != 0) return std::nullopt;
  std::string decoded;
  return text.toUTF8String(decoded);
}

std::string FromWindows1252(std::string_view bytes) { return Decoded(bytes, "windows-1252"); }

std::string FromUtf16(std::string_view bytes, ByteOrder order) {
  return Decoded(bytes.substr(0, bytes.size() / 2 * 2),
                 order == ByteOrder::BigEndian ? "UTF-16BE" : "UTF-16LE");
}

}  // namespace dtb
