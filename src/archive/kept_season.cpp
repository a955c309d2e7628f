#include "archive/kept_season.h"

#include <algorithm>
#include <array>
#include <map>
#include <system_error>
#include <utility>

#include "archive/season_reader.h"
#include "archive/team_text.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/settings_keys.h"
#include "database/archive_games.h"
#include "database/season_shelf.h"
#include "database/team_groups.h"
#include "game/history.h"
#include "platform/trapped.h"
#include "teams/team_load.h"

namespace dtb::archive {
namespace {

constexpr const char* kLastFirst = "Last, First";
constexpr const char* kFirstLast = "First Last";
constexpr const char* kUsedMost = "used most";
constexpr const char* kUsualNine = "usual nine";

std::string Setting(const Platform& platform, const char* key, const std::string& missing = "") {
  return platform.settings.Read(settings::kLabels, key, missing);
}

void KeepSetting(const Platform& platform, const char* key, const std::string& value,
                 const std::string& usual) {
  if (Setting(platform, key, usual) == value) return;
  platform.settings.Write(settings::kLabels, key, value);
}

// "OAK 2020=Oakland 2020": how it is found again, and what it is called.
std::string ClubSetting(const Club& club) {
  return club.id + ' ' + std::to_string(club.year) + '=' + club.name;
}

int LastClub(const Season& season, const Platform& platform) {
  const std::string last = SettingOfSeason(platform, settings::kSeasonClub);
  const auto club = std::ranges::find(season.clubs, last, ClubSetting);
  if (club == season.clubs.end() || club->games.empty()) return kAllClubs;
  return static_cast<int>(club - season.clubs.begin());
}

// As the archives' letters have it. Another league is told by its letter.
std::string LeagueName(const std::string& letter) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kLeagues{
      {{"A", "American League"},
       {"N", "National League"},
       {"F", "Federal League"},
       {"U", "Union Association"},
       {"P", "Players' League"},
       {"", "Others"}}};
  const auto known = std::ranges::find(kLeagues, std::string_view(letter),
                                       &std::pair<std::string_view, std::string_view>::first);
  return known == kLeagues.end() ? "League " + letter : std::string(known->second);
}

// A single one would tell nothing.
TeamGroups LeaguesOf(const Season& season) {
  std::map<std::string, TeamGroup> leagues;
  for (std::size_t club = 0; club < season.clubs.size(); ++club) {
    const Club& one = season.clubs[club];
    if (one.games.empty() && !one.listed) continue;
    TeamGroup& league = leagues[one.league];
    league.name = LeagueName(one.league);
    league.teams.push_back(TeamName(season, static_cast<int>(club)));
  }
  TeamGroups groups;
  for (auto& [letter, league] : leagues) {
    if (leagues.size() > 1) groups.push_back(std::move(league));
  }
  return groups;
}

std::string Offer(const std::string& club) {
  return "Next game of " + (club.empty() ? std::string("the season") : club);
}

std::optional<int> NextOf(const KeptSeason& kept, const Platform& platform) {
  return NextGameOf(*kept.season, PlayedGames(*kept.season, platform), kept.club);
}

}  // namespace

LineForm KeptForm(const Platform& platform) {
  LineForm form;
  form.batters = Setting(platform, settings::kSeasonBatters, form.batters);
  form.pitchers = Setting(platform, settings::kSeasonPitchers, form.pitchers);
  if (Setting(platform, settings::kSeasonNames) == kLastFirst) form.names = NameForm::LastFirst;
  return form;
}

void KeepForm(const LineForm& form, const Platform& platform) {
  const LineForm usual;
  KeepSetting(platform, settings::kSeasonBatters, form.batters, usual.batters);
  KeepSetting(platform, settings::kSeasonPitchers, form.pitchers, usual.pitchers);
  KeepSetting(platform, settings::kSeasonNames,
              form.names == NameForm::LastFirst ? kLastFirst : kFirstLast, kFirstLast);
}

void KeepNine(SeasonNine nine, const Platform& platform) {
  KeepSetting(platform, settings::kSeasonNine,
              nine == SeasonNine::UsualNine ? kUsualNine : kUsedMost, kUsedMost);
}

bool KeepSeason(KeptSeason& kept, const std::filesystem::path& archive, const Platform& platform,
                const GoOn& goOn) {
  const std::unique_ptr<Archive> opened = platform.archives.OpenArchive(archive, goOn);
  if (!opened) return false;
  std::optional<Season> season = ReadSeason(*opened, goOn);
  if (!season) return false;
  KeepReadSeason(kept, std::make_shared<const Season>(std::move(*season)), archive, platform);
  return true;
}

void KeepReadSeason(KeptSeason& kept, std::shared_ptr<const Season> season,
                    const std::filesystem::path& archive, const Platform& platform) {
  const int club = LastClub(*season, platform);
  KeepLeagues(platform, LeaguesOf(*season));
  const bool usual = Setting(platform, settings::kSeasonNine) == kUsualNine;
  const SeasonNine last = usual ? SeasonNine::UsualNine : SeasonNine::UsedMost;
  kept = {std::move(season), TextOf(archive.filename()), club, std::nullopt,
          kept.season ? kept.nine : last};
}

void TieSeason(const std::filesystem::path& archive, const Platform& platform) {
  KeepForSeason(platform, settings::kSeasonArchive, TextOf(std::filesystem::absolute(archive)));
}

std::filesystem::path TiedArchive(const Platform& platform) {
  return PathOf(SettingOfSeason(platform, settings::kSeasonArchive));
}

std::optional<std::filesystem::path> AskForZip(const Platform& platform) {
  return platform.dialogs.OpenFile({"The archive of a season", TiedArchive(platform).parent_path(),
                                    "Zip (*.zip)|*.zip|All files (*)|*"});
}

std::optional<std::filesystem::path> AskForFolder(const Platform& platform) {
  return platform.dialogs.OpenFolder("The folder of a season", TiedArchive(platform).parent_path());
}

void KeepClub(const KeptSeason& kept, const Platform& platform) {
  if (!kept.season) return;
  const bool all = kept.club == kAllClubs;
  KeepForSeason(platform, settings::kSeasonClub,
                all ? std::string() : ClubSetting(kept.season->clubs[kept.club]));
}

std::optional<std::string> NextGameOffer(const KeptSeason& kept, const Board& board) {
  const Platform& platform = board.platform;
  if (board.state.ArchiveGame.empty()) return std::nullopt;
  try {
    if (kept.season) {
      if (!NextOf(kept, platform)) return std::nullopt;
      return Offer(kept.club == kAllClubs ? "" : TeamName(*kept.season, kept.club));
    }
  } catch (const ProgramError&) {
    return std::nullopt;  // whoever asks has just written to the database
  }
  const std::filesystem::path archive = TiedArchive(platform);
  std::error_code fault;
  if (archive.empty() || !std::filesystem::exists(archive, fault)) return std::nullopt;
  const std::string club = SettingOfSeason(platform, settings::kSeasonClub);
  return Offer(club.substr(std::min(club.find('=') + 1, club.size())));
}

bool ReadLastSeason(KeptSeason& kept, const Platform& platform, const GoOn& goOn) {
  if (kept.season) return true;
  bool read = false;
  Trapped(platform.boxes, [&] { read = KeepSeason(kept, TiedArchive(platform), platform, goOn); });
  return read;
}

bool LoadNextGame(KeptSeason& kept, Board& board, const GoOn& goOn) {
  if (!ReadLastSeason(kept, board.platform, goOn)) return false;
  bool loaded = false;
  Trapped(board.platform.boxes, [&] {
    const std::optional<int> next = NextOf(kept, board.platform);
    if (!next) {
      board.platform.boxes.Show("All games in the list are played.", BoxIcon::Information);
      return;
    }
    kept.game = next;
    loaded =
        LoadGameTeams(*kept.season, kept.season->games[*next], KeptForm(board.platform), board);
  });
  return loaded;
}

bool LoadGameTeams(const Season& season, const Game& game, const LineForm& form, Board& board) {
  const GameTeams made = MakeGameTeams(season, game, form);
  std::array<TeamLines, 2> teams;
  for (std::size_t side = 0; side < 2; ++side) {
    const TeamText& team = made.teams.at(side);
    teams.at(side) = {BoardName(team.name), team.lines, team.starter};
  }
  {
    const Gesture gesture(board, "LOAD " + game.id);
    if (!ReplaceTeams(board, teams, "LOAD " + game.id)) return false;
    NoteArchiveGame(board, game.id);
  }
  std::string told;
  for (const std::string& alike : made.alike) told += (told.empty() ? "" : "\n") + alike;
  for (const TeamText& team : made.teams) {
    for (const std::string& gap : team.gaps) {
      told += (told.empty() ? "" : "\n") + team.name + ": the archive does not say " + gap + '.';
    }
  }
  if (!told.empty()) board.platform.boxes.Show(told, BoxIcon::Information);
  return true;
}

}  // namespace dtb::archive
