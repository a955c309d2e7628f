#include "windows/board/archive_ahead.h"

#include <exception>

#include "archive/season_reader.h"
#include "base/program_error.h"

namespace dtb {
namespace {

constexpr int kAfterPaint = 100;  // milliseconds
// Unpacked. Ten seasons fit; who has all of them in one file waits until a window needs it.
constexpr std::uint64_t kMostBytes = std::uint64_t{192} * 1024 * 1024;

// Nothing where there is no such archive, and where reading was ended.
std::shared_ptr<const archive::Season> ReadQuietly(Archives& archives,
                                                   const std::filesystem::path& archive,
                                                   const GoOn& goOn) {
  try {
    const std::unique_ptr<Archive> opened = archives.OpenArchive(archive, goOn);
    if (!opened) return nullptr;
    std::uint64_t bytes = 0;
    for (const ArchivedFile& file : opened->files()) bytes += file.bytes;
    if (bytes > kMostBytes) return nullptr;
    std::optional<archive::Season> season = archive::ReadSeason(*opened, goOn);
    if (season) return std::make_shared<const archive::Season>(std::move(*season));
  } catch (const std::exception&) {
    // Whoever needs the archive is told.
  }
  return nullptr;
}

}  // namespace

ArchiveAhead::ArchiveAhead(const Platform& platform, archive::KeptSeason& kept)
    : platform_(platform), kept_(kept) {
  soon_.setSingleShot(true);
  soon_.setInterval(kAfterPaint);
  connect(&soon_, &QTimer::timeout, this, &ArchiveAhead::Read);
}

void ArchiveAhead::Begin() { soon_.start(); }

void ArchiveAhead::End() {
  soon_.stop();
  ++reading_;
  reader_ = {};
}

void ArchiveAhead::Read() {
  if (kept_.season) return emit known();
  const std::filesystem::path archive = archive::TiedArchive(platform_);
  if (archive.empty()) return;
  End();
  reader_ = std::jthread([this, number = reading_, archive](const std::stop_token& stop) {
    auto season = ReadQuietly(platform_.archives, archive,
                              [&stop](double /*share*/) { return !stop.stop_requested(); });
    if (!season) return;
    handOver_.Give(
        [this, number, archive, season = std::move(season)] { Keep(number, archive, season); });
  });
}

void ArchiveAhead::Keep(int reading, const std::filesystem::path& archive,
                        std::shared_ptr<const archive::Season> season) {
  if (reading != reading_ || kept_.season) return;
  try {
    archive::KeepReadSeason(kept_, std::move(season), archive, platform_);
  } catch (const ProgramError&) {
    // The settings cannot be written; that is told to whoever changes one.
  }
  if (kept_.season) emit known();
}

}  // namespace dtb
