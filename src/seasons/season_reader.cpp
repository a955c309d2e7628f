#include "seasons/season_reader.h"

#include <algorithm>
#include <string_view>

#include "seasons/season_lines.h"
#include "shell/program_error.h"

namespace dtb::seasons {
namespace {

enum class Kind { Clubs, Roster, Events, Other };

struct Wanted {
  Kind kind = Kind::Other;
  std::string name;  // without folders
  int year = 0;
  std::size_t file = 0;
  std::uint64_t bytes = 0;
};

int YearAt(std::string_view text) {
  int year = 0;
  for (const char c : text.substr(0, 4)) {
    if (c < '0' || c > '9') return 0;
    year = year * 10 + (c - '0');
  }
  return text.size() < 4 ? 0 : year;
}

// What the file is by its name alone: "TEAM2020", "NYA2020.ROS", "2020NYA.EVA".
Wanted Recognised(std::string_view path) {
  const std::string_view base = path.substr(path.find_last_of("/\\") + 1);
  Wanted file;
  file.name = std::string(base);
  std::string name(base);
  for (char& c : name) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  const std::string_view text = name;
  if (text.starts_with("TEAM") && text.size() == 8) {
    file.kind = Kind::Clubs;
    file.year = YearAt(text.substr(4));
  } else if (text.ends_with(".ROS") && text.size() > 8) {
    file.kind = Kind::Roster;
    file.year = YearAt(text.substr(text.size() - 8));
  } else if (text.size() > 8 && (text.substr(text.size() - 4, 3) == ".EV" ||
                                 text.substr(text.size() - 4, 3) == ".ED")) {
    file.kind = Kind::Events;
    file.year = YearAt(text);
  }
  if (file.year == 0) file.kind = Kind::Other;
  return file;
}

bool LeavesArchive(std::string_view path) {
  if (path.starts_with('/') || path.starts_with('\\')) return true;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find_first_of("/\\", start), path.size());
    if (path.substr(start, end - start) == "..") return true;
    start = end + 1;
  }
  return false;
}

std::vector<Wanted> WantedFiles(const Archive& archive, SeasonLines& lines) {
  std::vector<Wanted> wanted;
  for (std::size_t i = 0; i < archive.files().size(); ++i) {
    const ArchivedFile& file = archive.files()[i];
    Wanted one = Recognised(file.name);
    if (one.kind == Kind::Other) continue;
    if (LeavesArchive(file.name)) {
      lines.NoteSkipped("\"" + file.name + "\" would lie outside the archive and was left out.");
      continue;
    }
    one.file = i;
    one.bytes = file.bytes;
    wanted.push_back(std::move(one));
  }
  std::ranges::stable_sort(wanted, [](const Wanted& a, const Wanted& b) {
    return std::tie(a.kind, a.name) < std::tie(b.kind, b.name);
  });
  return wanted;
}

}  // namespace

std::optional<Season> ReadSeason(Archive& archive, const std::function<bool(double)>& goOn) {
  SeasonLines lines;
  const std::vector<Wanted> wanted = WantedFiles(archive, lines);
  double all = 1;
  for (const Wanted& file : wanted) all += static_cast<double>(file.bytes);
  double done = 0;
  std::string bytes;
  for (const Wanted& file : wanted) {
    if (!goOn(std::min(done / all, 1.0))) return std::nullopt;
    archive.Read(file.file, bytes);
    if (file.kind == Kind::Clubs) lines.TakeClubs(file.name, file.year, bytes);
    if (file.kind == Kind::Roster) lines.TakeRoster(file.name, file.year, bytes);
    if (file.kind == Kind::Events) lines.TakeGames(file.name, bytes);
    done += static_cast<double>(file.bytes);
  }
  Season season = lines.Take();
  if (season.games.empty()) {
    const std::string why = season.skipped.empty() ? "" : season.skipped.front() + ' ';
    throw ProgramError(error_number::kFileNotFound,
                       why +
                           "There is no game of a season in it. The archive of a season has files "
                           "such as TEAM2020, NYA2020.ROS and 2020NYA.EVA.");
  }
  return season;
}

}  // namespace dtb::seasons
