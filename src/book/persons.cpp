#include "book/persons.h"

#include <algorithm>

#include "season/season_figures.h"

namespace dtb::book {
namespace {

std::string IdOf(const SeasonLine& line, const ArchiveIds& ids) {
  const auto found = ids.find({line.team, line.name});
  return found == ids.end() ? std::string() : found->second;
}

// He may have gone from one team to the other.
bool FollowEachOther(const std::vector<Presence>& presences, std::vector<int> lines) {
  const auto of = [&presences](int line) { return presences[line]; };
  std::ranges::sort(lines, [&](int a, int b) { return IsEarlier(of(a).first, of(b).first); });
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const Presence before = of(lines[i - 1]);
    const Presence after = of(lines[i]);
    if (!before.last || !IsEarlier(before.last, after.first)) return false;
  }
  return true;
}

}  // namespace

void FindPersons(Chapter& chapter, const std::vector<Presence>& presences, const ArchiveIds& ids) {
  std::map<std::string, std::vector<int>> byId;
  std::map<std::string, std::vector<int>> byName;
  for (std::size_t i = 0; i < chapter.lines.size(); ++i) {
    const std::string id = IdOf(chapter.lines[i], ids);
    (id.empty() ? byName[chapter.lines[i].name] : byId[id]).push_back(static_cast<int>(i));
  }
  const auto add = [&chapter](const std::string& id, const std::vector<int>& lines) {
    for (const int line : lines) {
      chapter.lines[line].person = static_cast<int>(chapter.persons.size());
    }
    const std::string& name = chapter.lines[lines.front()].name;
    chapter.persons.push_back({.name = name, .id = id, .lines = lines});
  };
  for (const auto& [id, lines] : byId) add(id, lines);
  for (const auto& [name, lines] : byName) {
    if (FollowEachOther(presences, lines)) {
      add("", lines);
    } else {
      for (const int line : lines) add("", {line});
    }
  }
  std::map<std::string, int> bearers;
  for (const Person& person : chapter.persons) ++bearers[person.name];
  for (Person& person : chapter.persons) person.namesake = bearers[person.name] > 1;
}

}  // namespace dtb::book
