#include "book/book.h"

#include <algorithm>
#include <memory>

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "database/season_shelf.h"
#include "platform/database.h"

namespace dtb::book {
namespace {

// Ids of the archive to which the season is tied; none, and why, where it cannot be read.
std::optional<ArchiveIds> IdsOf(const Platform& platform, const std::string& season,
                                std::string& fault, const std::function<bool()>& goOn) {
  const std::string archive = SettingOfSeason(platform, settings::kSeasonArchive, season);
  if (archive.empty()) return ArchiveIds();
  try {
    return ReadArchiveIds(platform, archive, goOn);
  } catch (const ProgramError& failure) {
    fault = failure.what();
    return ArchiveIds();
  }
}

std::string Sentences(const std::vector<std::string>& lacking) {
  std::string text;
  for (const std::string& sentence : lacking) text += (text.empty() ? "" : " ") + sentence;
  return text;
}

// False: the person has enough of it.
bool AddSeason(Book& book, Platform& platform, const std::string& name,
               const std::function<bool()>& goOn) {
  const std::string shown = ShownSeason(name);
  try {
    if (!platform.seasons.Stands(name)) {
      book.leftOut.push_back({shown, "There is no database."});
      return goOn();
    }
    const std::unique_ptr<Database> database = platform.seasons.OpenSeason(name);
    const std::string lacks = Sentences(database->WhatItLacks());
    if (!lacks.empty()) {
      book.leftOut.push_back({shown, lacks});
      return goOn();
    }
    std::string fault;
    const auto ids = IdsOf(platform, name, fault, goOn);
    if (!ids) return false;
    auto chapter =
        ReadChapter(*database, shown, *ids, GroupsOfSeason(platform, name, *database), goOn);
    if (!chapter) return false;
    chapter->archiveFault = fault;
    if (chapter->games == 0) {
      book.empty.push_back(shown);
    } else {
      book.chapters.push_back(std::move(*chapter));
    }
  } catch (const ProgramError& failure) {
    book.leftOut.push_back({shown, failure.what()});
  }
  return goOn();
}

// The feats learn whose they are once the chapters stand in their order.
void NumberFeats(Chapter& chapter, int number) {
  const auto mark = [number](std::vector<Feat>& feats) {
    for (Feat& feat : feats) feat.chapter = number;
  };
  for (auto& best : chapter.bestGames) mark(best.kept());
  for (auto* list : {&chapter.teamRuns, &chapter.teamHits, &chapter.hitting, &chapter.winning}) {
    mark(list->kept());
  }
  mark(chapter.noHitters);
  mark(chapter.cycles);
}

}  // namespace

std::optional<Book> ReadBook(Platform& platform, const ExportProgress& progress) {
  Book book;
  const std::vector<std::string> names = SeasonNames(platform.seasons);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const double share = double(i) / double(names.size());
    if (!AddSeason(book, platform, names[i], [&] { return progress(share); })) return std::nullopt;
  }
  std::ranges::stable_sort(book.chapters, [](const Chapter& a, const Chapter& b) {
    return IsEarlier(a.first, b.first);
  });
  for (std::size_t i = 0; i < book.chapters.size(); ++i) {
    NumberFeats(book.chapters[i], static_cast<int>(i));
  }
  book.careers = MakeCareers(book.chapters);
  return book;
}

}  // namespace dtb::book
