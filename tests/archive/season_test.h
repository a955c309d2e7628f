// Archives for the tests: in memory, and the part of a season that lies beside them.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <utility>

#include "archive/season_reader.h"
#include "archive/team_text.h"
#include "game/player_name.h"
#include "platform/zip/zip_archives.h"

namespace dtb::archive {

struct TextArchive : Archive {
  TextArchive() = default;
  explicit TextArchive(const std::vector<std::pair<std::string, std::string>>& all) {
    for (const auto& [name, text] : all) Add(name, text);
  }
  void Add(const std::string& name, const std::string& text) {
    names.push_back({name, text.size()});
    texts.push_back(text);
  }
  const std::vector<ArchivedFile>& files() const override { return names; }
  bool Read(std::size_t file, std::string& bytes, const GoOn& /*goOn*/) override {
    bytes = texts.at(file);
    return true;
  }

  std::vector<ArchivedFile> names;
  std::vector<std::string> texts;
};

inline Season ReadAll(Archive& archive) { return *ReadSeason(archive, Always); }

inline std::unique_ptr<Archive> PartArchive() {
  return ZipArchives().OpenArchive(DTB_SEASON_FILES "2020-part.zip", Always);
}

// The part archive with one game alone.
inline TextArchive OneGame(const std::string& id) {
  TextArchive alone;
  const std::unique_ptr<Archive> part = PartArchive();
  std::string bytes;
  for (std::size_t i = 0; i < part->files().size(); ++i) {
    part->Read(i, bytes, Always);
    const std::string& name = part->files()[i].name;
    if (name.find(".EV") == std::string::npos) {
      alone.Add(name, bytes);
    } else if (const std::size_t start = bytes.find("id," + id); start != std::string::npos) {
      alone.Add(name, bytes.substr(start, bytes.find("\nid,", start) - start));
    }
  }
  return alone;
}

// The texts, less the names behind "=".
inline std::vector<std::string> NamesOf(const TeamText& team) {
  std::vector<std::string> names;
  for (const std::string& line : team.lines) names.push_back(PlayerNameOf(line));
  return names;
}

inline const Club& ClubNamed(const Season& season, const std::string& id) {
  for (const Club& club : season.clubs) {
    if (club.id == id) return club;
  }
  throw std::out_of_range(id);
}

inline const Player& PlayerNamed(const Season& season, const std::string& club,
                                 const std::string& id) {
  for (const Player& player : ClubNamed(season, club).players) {
    if (player.id == id) return player;
  }
  throw std::out_of_range(id);
}

}  // namespace dtb::archive
