#include "database/lost_database.h"

#include <optional>
#include <vector>

#include "base/words.h"
#include "database/backups.h"
#include "database/old_database.h"
#include "database/saved_games.h"

namespace dtb {
namespace {

struct ReadableCopy {
  std::string name;
  std::string words;  // "the copy of 2026-11-18 10:44:13, with 34 games"
};

// The newest copy that is whole, and what is wrong with newer ones.
std::optional<ReadableCopy> NewestWholeCopy(DatabaseCopies& copies, std::string& passedOver) {
  for (const std::string& name : CopiesNewestFirst(copies)) {
    const std::string time = TimeOfCopy(name).value_or(name);
    const std::string fault = copies.FaultOfCopy(name);
    const auto games = GamesOfCopy(copies, name);
    if (fault.empty() && games) {
      return ReadableCopy{name, "the copy of " + time + ", with " + Counted(*games, "game")};
    }
    passedOver.append("\n\nSkipped: the copy of ").append(time).append(". ").append(fault);
  }
  return std::nullopt;
}

}  // namespace

bool IsLost(const ProgramError& failure) {
  return dynamic_cast<const DatabaseOutOfReach*>(&failure) != nullptr &&
         (failure.number() == error_number::kFileNotFound ||
          failure.number() == error_number::kInvalidFileFormat);
}

bool OfferAnotherDatabase(Platform& platform, const std::string& complaint,
                          const std::string& title) {
  std::string words = complaint;
  const OldOffer offer = OfferTakingOver(platform, words, title);
  if (offer == OldOffer::TakenOver || offer == OldOffer::Left) return offer == OldOffer::TakenOver;
  const Aside asideFor = AsideFor(platform);
  std::string passedOver;
  const auto copy = NewestWholeCopy(platform.copies, passedOver);
  Choice choice{.text = words, .title = title};
  if (copy) {
    choice.text += "\n\nThe newest undamaged copy is " + copy->words + "." + passedOver;
    choice.answers.emplace_back("Restore this copy");
  } else {
    choice.text += passedOver.empty() ? "\n\nThere is no copy of it."
                                      : "\n\nThere is no undamaged copy of it." + passedOver;
    choice.answers.emplace_back("Make an empty one");
  }
  choice.answers.emplace_back("Leave it");
  const std::string& answer = choice.answers.at(platform.boxes.Choose(choice));
  if (answer == "Leave it") return false;
  const bool empty = answer == "Make an empty one";
  try {
    // It may have come back while the box waited.
    if (platform.copies.Examine() == DatabaseHealth::Sound) {
      platform.boxes.Show("The database is back and undamaged. Nothing was replaced.",
                          BoxIcon::Information, title);
      return true;
    }
    const std::string aside =
        platform.copies.Renew(empty ? std::nullopt : std::optional(copy->name), asideFor.name);
    const std::string done =
        empty ? "An empty database is in place." : "The database is now " + copy->words + ".";
    platform.boxes.Show(
        done + (aside.empty()
                    ? ""
                    : "\n\nThe " + asideFor.what + " file is kept beside it as \"" + aside + "\"."),
        BoxIcon::Information, title);
    return true;
  } catch (const ProgramError& failure) {
    platform.boxes.Show("Nothing was replaced. " + std::string(failure.what()), BoxIcon::Critical,
                        title);
    return false;
  }
}

}  // namespace dtb
