#include "windows/shared/outcome_table.h"

#include <algorithm>

#include "windows/shared/look.h"

namespace dtb {

const OutcomeEntry* OutcomeOfKey(int key) {
  const int meant = key == Qt::Key_B ? int{Qt::Key_W} : key;
  const auto* found = std::ranges::find(kOutcomes, meant, &OutcomeEntry::key);
  return found == kOutcomes.end() ? nullptr : found;
}

ClickLabel::Shades ShadesOf(OutcomeFamily family) {
  switch (family) {
    case OutcomeFamily::Out:
      return {QColor(255, 255, 0), QColor(0, 255, 255), look::kInk};
    case OutcomeFamily::AtBat:
      return {QColor(255, 128, 128), QColor(255, 192, 192), look::kInk};
    case OutcomeFamily::Plain:
      break;
  }
  return {look::kButtonGrey, QColor(0, 255, 0), look::kInk};
}

}  // namespace dtb
