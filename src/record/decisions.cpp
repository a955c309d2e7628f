#include "record/decisions.h"

#include "record/game_record.h"

namespace dtb {

const char* DecisionCode(Decision decision) {
  switch (decision) {
    case Decision::Win:
      return "W";
    case Decision::Loss:
      return "L";
    case Decision::Save:
      return "S";
    case Decision::Hold:
      return "H";
    case Decision::BlownSave:
      return "BS";
  }
  return "";
}

}  // namespace dtb
