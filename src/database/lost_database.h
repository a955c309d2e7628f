// What is done about a statistics database that is missing or damaged.
#pragma once

#include <string>

#include "platform/database.h"
#include "platform/platform.h"

namespace dtb {

// The file is missing, empty, foreign or damaged: nothing will make it work again.
[[nodiscard]] bool IsLost(const ProgramError& failure);

// Tells the person of it and offers the newest copy that is whole, with a word on newer ones that
// are not; an empty database only where no whole copy stands. An old database of the Jet format is
// offered to be taken over first. A file that is still there is set aside, and its new name told;
// one that came back meanwhile stays. True: a database stands in its place. Failures are told.
bool OfferAnotherDatabase(Platform& platform, const std::string& complaint,
                          const std::string& title);

}  // namespace dtb
