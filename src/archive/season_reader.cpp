#include "archive/season_reader.h"

#include <algorithm>
#include <string_view>

#include "archive/season_lines.h"
#include "base/program_error.h"

namespace dtb::archive {
namespace {

enum class Kind { Clubs, Roster, Events, Other };

struct Wanted {
  Kind kind = Kind::Other;
  std::string name;  // without folders
  std::string club;  // of a roster
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

// Plays, plays that were worked out from accounts of the day, and box scores; a letter for the
// league follows.
bool IsEnding(std::string_view ending) {
  return ending == ".EV" || ending == ".ED" || ending == ".EB";
}

bool IsZip(std::string_view name) {
  constexpr std::string_view kEnding = ".zip";
  if (name.size() < kEnding.size()) return false;
  name.remove_prefix(name.size() - kEnding.size());
  return std::ranges::equal(name, kEnding,
                            [](char a, char b) { return (a | 0x20) == b || a == b; });
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
    file.club = text.substr(0, text.size() - 8);
  } else if (text.size() > 8 && IsEnding(text.substr(text.size() - 4, 3))) {
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

// Those of the kinds up to the last one.
std::vector<Wanted> WantedFiles(const Archive& archive, SeasonLines& lines, Kind last) {
  std::vector<Wanted> wanted;
  for (std::size_t i = 0; i < archive.files().size(); ++i) {
    const ArchivedFile& file = archive.files()[i];
    Wanted one = Recognised(file.name);
    if (IsZip(file.name)) {
      lines.NoteSkipped("\"" + file.name +
                        "\" is a zip inside the archive and was left out. "
                        "Unpack it and choose it by itself.");
    }
    if (one.kind > last) continue;
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

bool TakeFile(SeasonLines& lines, const Wanted& file, std::string_view bytes, const GoOn& goOn) {
  constexpr std::string_view kZipMark = "PK\x03\x04";
  if (bytes.starts_with(kZipMark)) {
    lines.NoteSkipped("\"" + file.name + "\" is a zip under another name and was left out.");
    return true;
  }
  if (file.kind == Kind::Clubs) return lines.TakeClubs(file.name, file.year, bytes, goOn);
  if (file.kind == Kind::Roster) {
    return lines.TakeRoster(file.name, file.year, file.club, bytes, goOn);
  }
  return lines.TakeGames(file.name, bytes, goOn);
}

std::optional<Season> ReadUpTo(Kind last, Archive& archive, const GoOn& goOn) {
  SeasonLines lines;
  const std::vector<Wanted> wanted = WantedFiles(archive, lines, last);
  double all = 1;
  for (const Wanted& file : wanted) all += static_cast<double>(file.bytes);
  double done = 0;
  std::string bytes;
  for (const Wanted& file : wanted) {
    const auto own = static_cast<double>(file.bytes);
    // Unpacking a file and taking its lines are half of its work each.
    const auto half = [&](double before) {
      return [&, before](double share) {
        return goOn(std::min((done + own * (before + share / 2)) / all, 1.0));
      };
    };
    if (!archive.Read(file.file, bytes, half(0))) return std::nullopt;
    if (!TakeFile(lines, file, bytes, half(0.5))) return std::nullopt;
    done += own;
  }
  Season season = lines.Take();
  if (!goOn(1)) return std::nullopt;
  return season;
}

}  // namespace

std::optional<Season> ReadRosters(Archive& archive, const GoOn& goOn) {
  return ReadUpTo(Kind::Roster, archive, goOn);
}

std::optional<Season> ReadSeason(Archive& archive, const GoOn& goOn) {
  std::optional<Season> season = ReadUpTo(Kind::Events, archive, goOn);
  if (!season) return std::nullopt;
  if (season->games.empty()) {
    const std::string why = season->skipped.empty() ? "" : season->skipped.front() + ' ';
    throw ProgramError(error_number::kFileNotFound,
                       why +
                           "There is no game of a season in it. The archive of a season has files "
                           "such as TEAM2020, NYA2020.ROS and 2020NYA.EVA.");
  }
  return season;
}

}  // namespace dtb::archive
