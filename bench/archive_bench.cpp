// A season's archive, read to line-ups and figures, beside unzipping alone. Goals: 3 times, and 30
// teams with 900 games within 2 seconds.
#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <QTemporaryDir>
#include <array>
#include <vector>

#include "archive/lineup_choice.h"
#include "archive/season_reader.h"
#include "bench/pairs.h"
#include "platform/qt/qt_text.h"
#include "platform/zip/zip_archives.h"

namespace dtb {
namespace {

constexpr double kArchiveGoal = 3;
constexpr int kTeams = 30;

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

void Pack(void* zip, const std::string& name, const std::string& text) {
  zipOpenNewFileInZip64(zip, name.c_str(), nullptr, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                        Z_DEFAULT_COMPRESSION, 0);
  zipWriteInFileInZip(zip, text.data(), static_cast<unsigned>(text.size()));
  zipCloseFileInZip(zip);
}

// The home games of four real clubs, given to thirty.
std::string WholeSeason(const QTemporaryDir& folder) {
  const std::unique_ptr<Archive> part = ZipArchives().OpenArchive(DTB_SEASON_PART, Always);
  const std::string path = FromQt(folder.filePath("season.zip"));
  void* zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
  std::vector<std::pair<std::string, std::string>> events;
  std::string bytes;
  for (std::size_t i = 0; i < part->files().size(); ++i) {
    const std::string& name = part->files()[i].name;
    part->Read(i, bytes, Always);
    if (name.find(".EV") == std::string::npos) {
      Pack(zip, name, bytes);
    } else {
      events.emplace_back(name.substr(4, 3), bytes);
    }
  }
  for (int team = 0; team < kTeams; ++team) {
    const auto& [home, games] = events[team % events.size()];
    const std::string id = "T" + std::to_string(10 + team);
    std::string text = games;
    ReplaceAll(text, "id," + home, "id," + id);
    ReplaceAll(text, "info,hometeam," + home, "info,hometeam," + id);
    Pack(zip, "2020" + id + ".EVA", text);
  }
  zipClose(zip, nullptr);
  return path;
}

void ReadOurs(const std::string& path) {
  const std::unique_ptr<Archive> archive = ZipArchives().OpenArchive(path, Always);
  const auto season = archive::ReadSeason(*archive, Always);
  if (season->games.size() != 900 || season->faultCount != 0) std::abort();
  for (int club = 0; club < static_cast<int>(season->clubs.size()); ++club) {
    benchmark::DoNotOptimize(archive::LineUpOfSeason(*season, club, archive::SeasonNine::UsedMost));
  }
}

void UnzipAlone(const std::string& path) {
  unzFile zip = unzOpen64(path.c_str());
  std::array<char, 65536> piece{};
  for (int found = unzGoToFirstFile(zip); found == UNZ_OK; found = unzGoToNextFile(zip)) {
    unzOpenCurrentFile(zip);
    while (unzReadCurrentFile(zip, piece.data(), piece.size()) > 0) {
    }
    unzCloseCurrentFile(zip);
  }
  unzClose(zip);
}

void ReadASeason(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string path = WholeSeason(folder);
  MeasurePair(state, "season archive", 900, kArchiveGoal,
              {[&] { return SecondsOf([&] { ReadOurs(path); }); },
               [&] { return SecondsOf([&] { UnzipAlone(path); }); }});
}
BENCHMARK(ReadASeason)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dtb
