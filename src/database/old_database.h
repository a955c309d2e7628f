// A statistics database of the years before this program, where ours belongs.
#pragma once

#include <string>

#include "platform/platform.h"

namespace dtb {

struct OldContents;

// "3 games, in rows: batting 42, pitching 20, line scores 6, wins and losses 6, matchups 3".
[[nodiscard]] std::string WordsOf(const OldContents& contents);

// What becomes of a file that makes room for another database.
struct Aside {
  std::string name;  // "DTB (Jet).mdb", or that of a damaged one
  std::string what;  // "old", "damaged"
};
[[nodiscard]] Aside AsideFor(Platform& platform);

enum class OldOffer {
  None,       // no old database stands there
  TakenOver,  // and ours stands in its place
  Left,       // the person leaves it, or has been told why it stays
  Unreadable  // it cannot be taken over; the complaint has the reason now
};

// Tells the person what stands there, with its games and rows, and offers to take it over.
OldOffer OfferTakingOver(Platform& platform, std::string& complaint, const std::string& title);

// The same when the program starts; one that cannot be taken over waits until it is needed.
void OfferTakingOverAtStart(Platform& platform);

}  // namespace dtb
