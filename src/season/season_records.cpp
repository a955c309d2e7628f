#include "season/season_records.h"

#include <algorithm>

#include "database/kept_record.h"

namespace dtb {

SeasonRecords::Key SeasonRecords::KeyOf(int game) const {
  const SeasonGame& one = season_.games[game];
  return {one.id, season_.teams[one.sides[0].team].name, season_.teams[one.sides[1].team].name};
}

void SeasonRecords::Read(int first) {
  constexpr int kAtATime = 250;
  end_ = std::min(first + kAtATime, static_cast<int>(season_.games.size()));
  std::vector<std::string> ids;
  for (int game = first; game < end_; ++game) ids.push_back(season_.games[game].id);
  std::ranges::sort(ids);
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  read_.clear();
  for (GameRecord& game : ReadRecords(database_, ids)) {
    const Key key{game.id, game.sides[0].team, game.sides[1].team};
    read_.emplace(key, std::move(game));
  }
}

const GameRecord* SeasonRecords::Next(int game) {
  if (game >= end_) Read(game);
  const auto found = read_.find(KeyOf(game));
  if (found == read_.end()) return nullptr;
  toDate_.Add(found->second);
  return &found->second;
}

}  // namespace dtb
