#include "book/archive_ids.h"

#include "archive/remarks.h"
#include "archive/season_reader.h"
#include "archive/team_text.h"
#include "base/paths.h"

namespace dtb::book {

std::optional<ArchiveIds> ReadArchiveIds(const Platform& platform, const std::string& archive,
                                         const std::function<bool()>& goOn) {
  const GoOn told = [&goOn](double /*share*/) { return goOn(); };
  const auto opened = platform.archives.OpenArchive(PathOf(archive), told);
  if (!opened) return std::nullopt;
  const auto season = archive::ReadRosters(*opened, told);
  if (!season) return std::nullopt;
  ArchiveIds ids;
  for (std::size_t club = 0; club < season->clubs.size(); ++club) {
    const std::string team = archive::BoardName(archive::TeamName(*season, static_cast<int>(club)));
    for (const archive::Player& player : season->clubs[club].players) {
      for (const auto form : {archive::NameForm::FirstLast, archive::NameForm::LastFirst}) {
        const auto [place, fresh] =
            ids.try_emplace({team, archive::NameInFile(player, form)}, player.id);
        if (!fresh && place->second != player.id) place->second.clear();
      }
    }
  }
  return ids;
}

}  // namespace dtb::book
