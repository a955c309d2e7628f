#include "replay/teams_command.h"

#include <QCommandLineParser>
#include <array>
#include <cstdio>
#include <optional>

#include "archive/make_teams.h"
#include "platform/zip/zip_archives.h"

namespace dtb::replay {
namespace {

std::optional<archive::TeamsRequest> Understood(const QStringList& arguments) {
  QCommandLineParser parser;
  constexpr std::array kFiles{"game", "batting", "pitching"};
  constexpr std::array kForms{"batters", "pitchers"};
  for (const char* option : kFiles) parser.addOption({option, {}, "VALUE"});
  for (const char* option : kForms) parser.addOption({option, {}, "FORM"});
  for (const char* flag : {"usual-nine", "last-first", "replace"}) {
    parser.addOption(QCommandLineOption(flag));
  }
  if (!parser.parse(QStringList("teams") + arguments)) return std::nullopt;
  const QStringList plain = parser.positionalArguments();
  if (plain.size() != 2 || plain.contains("")) return std::nullopt;
  const auto value = [&parser](const char* option) { return parser.value(option).toStdString(); };
  for (const char* option : kFiles) {
    if (parser.isSet(option) && value(option).empty()) return std::nullopt;
  }
  if (parser.isSet("usual-nine") && parser.isSet("game")) return std::nullopt;
  archive::LineForm form;
  if (parser.isSet("batters")) form.batters = value("batters");
  if (parser.isSet("pitchers")) form.pitchers = value("pitchers");
  if (parser.isSet("last-first")) form.names = archive::NameForm::LastFirst;
  return archive::TeamsRequest{.archive = plain[0].toStdString(),
                               .folder = plain[1].toStdString(),
                               .game = value("game"),
                               .nine = parser.isSet("usual-nine") ? archive::SeasonNine::UsualNine
                                                                  : archive::SeasonNine::UsedMost,
                               .form = form,
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
