// Any bytes as the zip of a season: the directory, the sizes and the bytes inside its files. What
// is not as it was packed is refused, and never taken for whole.
#include <minizip/zip.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "archive/season_reader.h"
#include "base/program_error.h"
#include "fuzz.h"
#include "platform/zip/zip_archives.h"

using namespace dtb;

namespace {

using Files = std::vector<std::pair<std::string, std::string>>;

const Files& Packed() {
  static const Files files{
      {"TEAM2020", "AAA,A,Aston,As\nBBB,A,Bexley,Bs\n"},
      {"AAA2020.ROS", "h1,One,Hal,R,R,AAA,C\nh2,Two,Hew,L,R,AAA,P\n"},
      {"2020AAA.EVA",
       "id,AAA202004010\ninfo,visteam,BBB\ninfo,hometeam,AAA\nstart,v1,\"Val\",0,1,2\n"
       "start,h1,\"Hal\",1,1,2\nstart,h2,\"Hew\",1,0,1\nplay,1,0,v1,,,HR/F7\nplay,1,0,v1,,,K\n"}};
  return files;
}

std::string GoodZip() {
  const std::filesystem::path file = fuzz::Folder() / "good.zip";
  void* zip = zipOpen64(file.c_str(), APPEND_STATUS_CREATE);
  int level = 0;  // the first is stored, the others are packed
  for (const auto& [name, text] : Packed()) {
    zipOpenNewFileInZip64(zip, name.c_str(), nullptr, nullptr, 0, nullptr, 0, nullptr,
                          level == 0 ? 0 : Z_DEFLATED, level, 0);
    zipWriteInFileInZip(zip, text.data(), static_cast<unsigned>(text.size()));
    zipCloseFileInZip(zip);
    level = Z_BEST_COMPRESSION;
  }
  zipClose(zip, nullptr);
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The texts of all files; nothing after a refusal.
bool ReadAll(const std::filesystem::path& file, std::vector<std::string>& texts) {
  try {
    const std::unique_ptr<Archive> archive = ZipArchives().OpenArchive(file, Always);
    for (std::size_t i = 0; i < archive->files().size(); ++i) {
      fuzz::Require(archive->Read(i, texts.emplace_back(), Always), "nobody stops it");
      fuzz::Require(texts.back().size() == archive->files()[i].bytes, "as long as is told");
    }
    return true;
  } catch (const ProgramError&) {
    return false;
  }
}

void ReadSeasonOf(const std::filesystem::path& file) {
  try {
    const std::unique_ptr<Archive> archive = ZipArchives().OpenArchive(file, Always);
    static_cast<void>(archive::ReadSeason(*archive, Always));
  } catch (const ProgramError&) {
    return;
  }
}

// A few bytes that are others, the length as it was.
void ChangeInPlace(const std::string& good, std::string_view bytes) {
  fuzz::Input input(bytes);
  std::string changed = good;
  const std::size_t place = input.Below(good.size());
  const std::string_view put = input.Bytes(std::min<std::size_t>(4, good.size() - place));
  changed.replace(place, put.size(), put);
  std::vector<std::string> texts;
  if (!ReadAll(fuzz::WriteInput("any.zip", changed), texts)) return;
  // A name is not guarded: one that ends in "/" is a folder's.
  fuzz::Require(texts.size() + 1 >= Packed().size(), "no file is missing");
  for (const std::string& text : texts) {
    fuzz::Require(
        std::ranges::any_of(Packed(), [&](const auto& one) { return one.second == text; }),
        "what is read is what was packed");
  }
}

}  // namespace

// An odd first byte: a small change; else any.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string good = GoodZip();
  const std::string_view bytes = fuzz::BytesOf(data, size);
  if (bytes.empty()) return 0;
  if (bytes.front() % 2 == 1) {
    ChangeInPlace(good, bytes.substr(1));
  } else {
    const auto file = fuzz::WriteInput("any.zip", fuzz::Edited(good, bytes.substr(1)));
    std::vector<std::string> texts;
    static_cast<void>(ReadAll(file, texts));
    ReadSeasonOf(file);
  }
  return 0;
}
