// dtb_season_scripts ARCHIVE FOLDER [all|unless-on-error|by-outs]: a folder with a table script for
// each game of an archive; the last word is the board's rule for earned runs.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

#include "archive/season_reader.h"
#include "platform/zip/zip_archives.h"
#include "plays/season_scripts.h"

namespace {

using dtb::plays::Difference;
using dtb::plays::GameScript;

void Put(const std::filesystem::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

void WriteGame(const std::filesystem::path& folder, const GameScript& script) {
  std::filesystem::create_directories(folder);
  for (int side = 0; side < 2; ++side) {
    Put(folder / (script.teams.at(side) + ".txt"), script.teamFiles.at(side));
  }
  Put(folder / "clicks.txt", Lines(script.gestures));
  Put(folder / "expected.txt", ExpectedText(script));
}

std::string LineOf(const GameScript& script, const Difference& one) {
  return script.id + " | " + script.teams.at(one.figure.side) + " | " + one.figure.who + " | " +
         one.figure.kind + ' ' + one.figure.what + (one.delta > 0 ? " +" : " ") +
         std::to_string(one.delta) + " | " + one.play + " | " + one.why + '\n';
}

int Run(const std::filesystem::path& file, const std::filesystem::path& folder,
        dtb::plays::Earned earned) {
  const auto archive = dtb::ZipArchives().OpenArchive(file, dtb::Always);
  const dtb::archive::Season season = *dtb::archive::ReadSeason(*archive, dtb::Always);
  std::string table = "GAME | TEAM | PLAYER | FIGURE, HOW MUCH MORE THE BOARD HAS | PLAY | WHY\n";
  std::map<std::string, int> counts;
  std::map<std::string, int> whys;
  for (const dtb::plays::GameEvents& game : dtb::plays::ReadGames(*archive)) {
    ++counts["games"];
    GameScript script;
    try {
      script = MakeScript(season, game, earned);
    } catch (const std::exception& error) {
      ++counts["games that need a hand"];
      table += game.id + " | needs a hand | " + error.what() + '\n';
      std::cout << error.what() << '\n';
      continue;
    }
    WriteGame(folder / script.id, script);
    counts["plays"] += script.plays;
    for (const std::string& gesture : script.gestures) {
      for (const char* verb : {"RUN ", "ADVANCE ", "OUT ", "RUN HOME ", "PLACE "}) {
        if (gesture.starts_with(verb)) ++counts["gestures " + std::string(verb)];
      }
    }
    for (const Difference& one : script.differences) {
      ++whys[one.figure.kind + ' ' + one.figure.what + ": " + one.why];
      table += LineOf(script, one);
    }
  }
  Put(folder / "differences.txt", table);
  std::cout << counts["gestures RUN "] / std::max(1, counts["games"]) << " RUN a game\n";
  for (const auto& [what, count] : counts) std::cout << count << ' ' << what << '\n';
  for (const auto& [why, count] : whys) std::cout << count << " differences, " << why << '\n';
  return counts["games that need a hand"] == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) try {
  using dtb::plays::Earned;
  const std::map<std::string, Earned> rules{{"all", Earned::All},
                                            {"unless-on-error", Earned::UnlessOnError},
                                            {"by-outs", Earned::ByOuts}};
  const auto rule = rules.find(argc == 4 ? argv[3] : "by-outs");
  if (argc < 3 || argc > 4 || rule == rules.end()) {
    std::cerr << "dtb_season_scripts ARCHIVE FOLDER [all|unless-on-error|by-outs]\n";
    return 2;
  }
  return Run(argv[1], argv[2], rule->second);
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
