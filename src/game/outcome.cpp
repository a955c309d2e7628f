#include "game/outcome.h"

namespace dtb {

std::string_view LogSuffix(Outcome outcome) {
  switch (outcome) {
    case Outcome::Single:
      return "_____1B";
    case Outcome::Double:
      return "_____2B";
    case Outcome::Triple:
      return "_____3B";
    case Outcome::Homer:
      return "_____HR";
    case Outcome::Walk:
      return "_____BB";
    case Outcome::Strikeout:
      return "_____K";
    case Outcome::Groundout:
      return "_____GO";
    case Outcome::Flyout:
      return "_____FO";
    case Outcome::Lineout:
      return "_____LO";
    case Outcome::Popout:
      return "_____PO";
    case Outcome::DoublePlay:
      return "_____DP";
    case Outcome::FieldersChoice:
      return "_____FC";
    case Outcome::ThrownOut:
      return "_____TO";
    case Outcome::AtBat:
      return "_____AB [ERR]";
    case Outcome::RunBattedIn:
      return "_____RBI";
    case Outcome::StolenBase:
      return "_____SB";
    case Outcome::TakesFirst:
      return "_____1ST [NO AB]";
    case Outcome::Sacrifice:
      return "_____SAC [NO AB]";
    case Outcome::Advance:
      return "_____ADV";
    case Outcome::PutOnBase:
      return "_____ON";
  }
  return "";
}

std::string_view OutcomeCode(Outcome outcome) {
  const std::string_view suffix = LogSuffix(outcome);
  const std::string_view code = suffix.substr(suffix.find_first_not_of('_'));
  return code.substr(0, code.find(' '));
}

}  // namespace dtb
