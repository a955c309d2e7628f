#include "replay/teams_command.h"

#include <QCommandLineParser>
#include <cstdio>
#include <optional>

#include "archive/make_teams.h"
#include "platform/zip/zip_archives.h"

namespace dtb::replay {
namespace {

std::optional<archive::TeamsRequest> Understood(const QStringList& arguments) {
  QCommandLineParser parser;
  for (const char* option : {"game", "batting", "pitching"}) {
    parser.addOption({option, {}, "VALUE"});
  }
  parser.addOption(QCommandLineOption("replace"));
  if (!parser.parse(QStringList("teams") + arguments)) return std::nullopt;
  const QStringList plain = parser.positionalArguments();
  if (plain.size() != 2 || plain.contains("")) return std::nullopt;
  const auto value = [&parser](const char* option) { return parser.value(option).toStdString(); };
  for (const char* option : {"game", "batting", "pitching"}) {
    if (parser.isSet(option) && value(option).empty()) return std::nullopt;
  }
  return archive::TeamsRequest{.archive = plain[0].toStdString(),
                               .folder = plain[1].toStdString(),
                               .game = value("game"),
                               .batting = value("batting"),
                               .pitching = value("pitching"),
                               .replace = parser.isSet("replace")};
}

}  // namespace

int RunTeams(const QStringList& arguments) {
  const auto request = Understood(arguments);
  if (!request) {
    std::fprintf(stderr, "Usage: %s\n", kTeamsUsage);
    return 2;
  }
  ZipArchives archives;
  const archive::CommandResult result = archive::MakeTeams(archives, *request);
  std::fputs(result.output.c_str(), stdout);
  std::fputs(result.errors.c_str(), stderr);
  return result.exitCode;
}

}  // namespace dtb::replay
