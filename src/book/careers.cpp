#include "book/careers.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "base/letters.h"

namespace dtb::book {
namespace {

// What a player without an id is known by: his name, and his team where that is needed.
using NameKey = std::pair<std::string, std::string>;

class Maker {
 public:
  explicit Maker(const std::vector<Chapter>& chapters) : chapters_(chapters) {
    for (const Chapter& chapter : chapters) {
      careers_.of.emplace_back(chapter.persons.size());
      for (const Person& person : chapter.persons) {
        if (person.namesake) namesakes_.insert(person.name);
        if (!person.id.empty()) idsOf_[person.name].insert(person.id);
      }
    }
  }

  Careers Make() {
    ForEachPerson([this](int chapter, int number, const Person& person) {
      if (person.id.empty()) return;
      const auto [place, fresh] = byId_.try_emplace(person.id, Size());
      if (fresh) Append(person.id);
      Add(place->second, chapter, number);
    });
    ForEachPerson([this](int chapter, int number, const Person& person) {
      if (person.id.empty()) Add(CareerOfName(chapter, person), chapter, number);
    });
    for (Career& career : careers_.all) Settle(career);
    PutInOrder();
    return std::move(careers_);
  }

 private:
  template <class Function>
  void ForEachPerson(Function take) {
    for (std::size_t chapter = 0; chapter < chapters_.size(); ++chapter) {
      const auto& persons = chapters_[chapter].persons;
      for (std::size_t person = 0; person < persons.size(); ++person) {
        take(static_cast<int>(chapter), static_cast<int>(person), persons[person]);
      }
    }
  }
  [[nodiscard]] int Size() const { return static_cast<int>(careers_.all.size()); }
  Career& Append(const std::string& id) {
    Career& career = careers_.all.emplace_back();
    career.id = id;
    return career;
  }
  [[nodiscard]] const SeasonLine& LineOf(int chapter, int line) const {
    return chapters_[chapter].lines[line];
  }

  int CareerOfName(int chapter, const Person& person) {
    const bool apart = namesakes_.contains(person.name);
    const auto ids = idsOf_.find(person.name);
    if (!apart && ids != idsOf_.end() && ids->second.size() == 1) {
      const int career = byId_.at(*ids->second.begin());
      const auto& played = careers_.all[career].chapters;
      if (std::ranges::find(played, chapter) == played.end()) return career;
    }
    const std::string team = apart ? LineOf(chapter, person.lines.front()).team : "";
    const auto [place, fresh] = byName_.try_emplace({person.name, team}, Size());
    if (fresh) Append("").apart = team;
    return place->second;
  }

  void Add(int place, int chapter, int number) {
    const Person& person = chapters_[chapter].persons[number];
    Career& career = careers_.all[place];
    career.chapters.push_back(chapter);
    if (!person.id.empty()) career.chaptersById.push_back(chapter);
    for (const int line : person.lines) career.lines.push_back({chapter, line});
    careers_.of[chapter][number] = place;
  }

  void Settle(Career& career) const {
    std::ranges::sort(career.chapters);
    career.chapters.erase(std::unique(career.chapters.begin(), career.chapters.end()),
                          career.chapters.end());
    std::ranges::stable_sort(career.lines, {}, &CareerLine::chapter);
    career.by = career.chaptersById.empty()                            ? KnownBy::Name
                : career.chaptersById.size() == career.chapters.size() ? KnownBy::Id
                                                                       : KnownBy::Both;
    std::map<int, double> games;  // by chapter
    for (const CareerLine& place : career.lines) {
      const SeasonLine& line = LineOf(place.chapter, place.line);
      if (line.batting) {
        if (!career.batting) career.batting.emplace();
        *career.batting += *line.batting;
      }
      if (line.pitching) {
        if (!career.pitching) career.pitching.emplace();
        *career.pitching += *line.pitching;
      }
      games[place.chapter] = std::max(games[place.chapter], line.teamGames);
      career.name = line.name;
    }
    for (const auto& [chapter, most] : games) career.teamGames += most;
  }

  void PutInOrder() {
    std::vector<int> order(careers_.all.size());
    std::iota(order.begin(), order.end(), 0);
    const auto of = [this](int place) -> const Career& { return careers_.all[place]; };
    std::ranges::stable_sort(order, [&of](int a, int b) {
      const int names = CompareNames(of(a).name, of(b).name);
      return names != 0 ? names < 0 : of(a).name < of(b).name;
    });
    std::vector<Career> sorted;
    std::vector<int> placeOf(order.size());
    for (const int place : order) {
      placeOf[place] = static_cast<int>(sorted.size());
      sorted.push_back(std::move(careers_.all[place]));
    }
    careers_.all = std::move(sorted);
    for (auto& persons : careers_.of) {
      for (int& place : persons) place = placeOf[place];
    }
  }

  const std::vector<Chapter>& chapters_;
  std::set<std::string> namesakes_;                     // names that a season has twice
  std::map<std::string, std::set<std::string>> idsOf_;  // of a name
  std::map<std::string, int> byId_;
  std::map<NameKey, int> byName_;
  Careers careers_;
};

}  // namespace

Careers MakeCareers(const std::vector<Chapter>& chapters) { return Maker(chapters).Make(); }

}  // namespace dtb::book
