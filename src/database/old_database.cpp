#include "database/old_database.h"

#include <array>
#include <new>

#include "base/words.h"
#include "database/backups.h"
#include "database/saved_games.h"
#include "platform/old_database.h"

namespace dtb {
namespace {

constexpr const char* kOldName = "DTB (Jet).mdb";

// The contents, or the reason why there are none.
struct OldReading {
  OldContents contents;
  std::string fault;
};

OldReading ReadOld(OldDatabase& old) {
  try {
    return {old.Contents(), {}};
  } catch (const ProgramError& failure) {
    return {{}, failure.what()};
  } catch (const std::bad_alloc&) {
    return {{}, "the computer is out of memory."};
  }
}

bool TakeOver(Platform& platform, const OldContents& contents, const std::string& title) {
  try {
    const std::string aside = platform.old.TakeOver(kOldName);
    platform.boxes.Show("The new database has " + WordsOf(contents) +
                            ". Counts and sums are those of the old one, "
                            "which is kept beside it as \"" +
                            aside + "\".",
                        BoxIcon::Information, title);
    return true;
  } catch (const ProgramError& failure) {
    platform.boxes.Show(
        "Nothing was changed. The old database cannot be imported: " + std::string(failure.what()),
        BoxIcon::Critical, title);
  } catch (const std::bad_alloc&) {
    platform.boxes.Show("Nothing was changed. The computer is out of memory.", BoxIcon::Critical,
                        title);
  }
  return false;
}

OldOffer Offer(Platform& platform, const std::string& complaint, const OldContents& contents,
               const std::string& title) {
  const Choice choice{
      .text = complaint + "\n\nIt holds " + WordsOf(contents) +
              ".\n\nTake it over, and all of it goes into a new database in its place. "
              "The old file stays beside it as \"" +
              kOldName + "\".",
      .title = title,
      .answers = {"Take it over", "Leave it"}};
  if (platform.boxes.Choose(choice) != 0) return OldOffer::Left;
  return TakeOver(platform, contents, title) ? OldOffer::TakenOver : OldOffer::Left;
}

}  // namespace

std::string WordsOf(const OldContents& contents) {
  constexpr std::array kTables{"batting", "pitching", "line scores", "wins and losses", "matchups"};
  std::string words = Counted(contents.games, "game") + ", in rows: ";
  for (std::size_t i = 0; i < contents.rows.size() && i < kTables.size(); ++i) {
    words += (i > 0 ? ", " : "") + std::string(kTables[i]) + ' ' + std::to_string(contents.rows[i]);
  }
  return words;
}

Aside AsideFor(Platform& platform) {
  if (platform.old.StandsInPlace()) return {kOldName, "old"};
  return {DamagedName(platform.clock.Now()), "damaged"};
}

OldOffer OfferTakingOver(Platform& platform, std::string& complaint, const std::string& title) {
  if (!platform.old.StandsInPlace()) return OldOffer::None;
  const OldReading reading = ReadOld(platform.old);
  if (reading.fault.empty()) return Offer(platform, complaint, reading.contents, title);
  complaint += "\n\nIt cannot be imported: " + reading.fault;
  return OldOffer::Unreadable;
}

void OfferTakingOverAtStart(Platform& platform) {
  if (!platform.old.StandsInPlace()) return;
  const OldReading reading = ReadOld(platform.old);
  if (!reading.fault.empty()) return;
  Offer(platform,
        "The statistics database \"DTB.mdb\" in the program's folder "
        "is an old one, in the Jet format.",
        reading.contents, "Database");
}

}  // namespace dtb
