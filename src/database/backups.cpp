#include "database/backups.h"

#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <string_view>

#include "database/lost_database.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "platform/database.h"

namespace dtb {
namespace {

constexpr std::size_t kNewestKept = 20;
constexpr std::string_view kHead = "DTB ";
constexpr std::string_view kEnd = ".mdb";
constexpr std::string_view kPattern = "0000-00-00 00-00-00";  // year first, so that names sort
constexpr std::size_t kMonthEnd = 7;                          // of the pattern
constexpr std::size_t kDayEnd = 10;

std::string Padded(int number, std::size_t digits) {
  const std::string text = std::to_string(number);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string Stamp(const LocalTime& time) {
  return Padded(time.year, 4) + "-" + Padded(time.month, 2) + "-" + Padded(time.day, 2) + " " +
         Padded(time.hour, 2) + "-" + Padded(time.minute, 2) + "-" + Padded(time.second, 2);
}

// The date and time within the name of a copy; "" for another name.
std::string_view StampIn(std::string_view name) {
  if (!name.starts_with(kHead) || !name.ends_with(kEnd)) return {};
  name.remove_prefix(kHead.size());
  if (name.size() < kPattern.size() + kEnd.size()) return {};
  const std::string_view stamp = name.substr(0, kPattern.size());
  const std::string_view rest = name.substr(stamp.size(), name.size() - stamp.size() - kEnd.size());
  if (!rest.empty() && !(rest.starts_with(" (") && rest.ends_with(")"))) return {};
  const bool fits = std::ranges::equal(stamp, kPattern, [](char letter, char pattern) {
    return pattern == '0' ? letter >= '0' && letter <= '9' : letter == pattern;
  });
  return fits ? stamp : std::string_view();
}

// What a name is sorted by: without its end, "(2)" comes behind none.
std::string_view Stem(std::string_view name) { return name.substr(0, name.size() - kEnd.size()); }

std::string FreeName(const Platform& platform, const std::vector<std::string>& taken) {
  const LocalTime now = platform.clock.Now();
  std::string name = CopyName(now);
  for (int number = 2; std::ranges::find(taken, name) != taken.end(); ++number) {
    name = CopyName(now, number);
  }
  return name;
}

// Another board may take the name in the same second; then the next one is free.
std::string MakeCopyUnderFreeName(Platform& platform, std::vector<std::string> taken) {
  for (;;) {
    std::string name = FreeName(platform, taken);
    try {
      platform.copies.MakeCopy(name);
      return name;
    } catch (const ProgramError&) {
      taken = CopiesNewestFirst(platform.copies);
      if (std::ranges::find(taken, name) == taken.end()) throw;
    }
  }
}

// The copy just made is not the newest by name where the clock was set back.
void LetOldCopiesGo(DatabaseCopies& copies, const std::string& made, const std::string& needed) {
  const auto gamesOf = [&copies](const std::string& name) {
    return GamesOfCopy(copies, name).value_or(-1);
  };
  for (const std::string& name : CopiesToRemove(CopiesNewestFirst(copies), gamesOf)) {
    if (name != needed && name != made) copies.RemoveCopy(name);
  }
}

// Runs what makes a copy. Returns what kept it from being made; "" for nothing, or for a fault that
// is passed over.
template <class Copying>
std::string FaultOf(bool (*passedOver)(const ProgramError&), Copying&& copying) {
  try {
    copying();
  } catch (const ProgramError& fault) {
    if (!passedOver(fault)) return fault.what();
  } catch (const std::bad_alloc&) {
    return "The computer is out of memory.";
  }
  return {};
}

bool NothingToLose(const ProgramError& fault) {
  return IsLost(fault) && fault.number() == error_number::kFileNotFound;
}

}  // namespace

std::string CopyName(const LocalTime& time, int number) {
  const std::string behind = number == 1 ? "" : " (" + std::to_string(number) + ")";
  return std::string(kHead) + Stamp(time) + behind + std::string(kEnd);
}

std::string DamagedName(const LocalTime& time) {
  return std::string(kHead) + "damaged " + Stamp(time) + std::string(kEnd);
}

std::optional<std::string> TimeOfCopy(const std::string& name) {
  const std::string_view stamp = StampIn(name);
  if (stamp.empty()) return std::nullopt;
  std::string text(Stem(name).substr(kHead.size()));
  std::replace(text.begin() + kDayEnd, text.end(), '-', ':');
  return text;
}

std::vector<std::string> CopiesNewestFirst(DatabaseCopies& copies) {
  std::vector<std::string> names = copies.CopyNames();
  std::erase_if(names, [](const std::string& name) { return StampIn(name).empty(); });
  std::ranges::sort(names, std::greater<>(), Stem);
  return names;
}

std::vector<std::string> CopiesToRemove(const std::vector<std::string>& newestFirst,
                                        const std::function<int(const std::string&)>& gamesOf) {
  std::map<std::string_view, std::vector<std::string>> oldOfMonth;
  for (std::size_t i = kNewestKept; i < newestFirst.size(); ++i) {
    oldOfMonth[StampIn(newestFirst[i]).substr(0, kMonthEnd)].push_back(newestFirst[i]);
  }
  std::vector<std::string> removed;
  for (auto& [month, names] : oldOfMonth) {
    if (names.size() == 1) continue;
    // Of equal ones the first, which is the newest.
    const auto fullest = std::ranges::max_element(names, {}, gamesOf);
    names.erase(fullest);
    removed.insert(removed.end(), names.begin(), names.end());
  }
  return removed;
}

std::optional<int> GamesOfCopy(DatabaseCopies& copies, const std::string& name) {
  try {
    const auto copy = copies.OpenCopy(name);
    if (copy == nullptr) return std::nullopt;
    return CountOf(*copy, {"SELECT count(DISTINCT GameID) FROM BoxScores"});
  } catch (const ProgramError&) {
    return std::nullopt;
  }
}

std::string CopyAside(Platform& platform, const std::string& needed) {
  const std::vector<std::string> names = CopiesNewestFirst(platform.copies);
  if (!names.empty() && platform.copies.EqualsCopy(names.front())) return names.front();
  std::string name = MakeCopyUnderFreeName(platform, names);
  LetOldCopiesGo(platform.copies, name, needed);
  return name;
}

std::optional<std::string> CopyBeforeLoss(Platform& platform, const std::string& title) {
  std::string name;
  const std::string fault = FaultOf(NothingToLose, [&] { name = CopyAside(platform); });
  if (!fault.empty()) {
    const bool goOn =
        platform.boxes.Ask({"No copy of the database could be made, "
                            "so what you delete now cannot be restored.\n\n" +
                                fault + "\n\nDelete it without a copy?",
                            title});
    return goOn ? std::optional(std::string()) : std::nullopt;
  }
  if (name.empty()) return std::string();
  return std::string("\n\n\"").append(kBringBack) +
         "\" on the tab \"Linescores\" brings it back from the copy of " +
         TimeOfCopy(name).value_or(name) + ".";
}

std::string CopyBeforeFirstSave(Platform& platform) {
  // A lost database is the save's own matter.
  const std::string fault = FaultOf(IsLost, [&] {
    const std::vector<std::string> names = CopiesNewestFirst(platform.copies);
    const std::string today = Stamp(platform.clock.Now()).substr(0, kDayEnd);
    const bool copied = std::ranges::any_of(
        names, [&today](const std::string& name) { return StampIn(name).starts_with(today); });
    if (!copied) CopyAside(platform);
  });
  return fault.empty() ? ""
                       : "\n\nBefore this save, no copy of the database could be made. " + fault;
}

}  // namespace dtb
