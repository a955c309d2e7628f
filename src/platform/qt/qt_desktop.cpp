#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <array>

#include "base/paths.h"
#include "platform/qt/file_dialog.h"
#include "platform/qt/opens_workbooks.h"
#include "platform/qt/qt_text.h"

namespace dtb {

QString ToolkitFilter(const std::string& filter) {
  const QStringList fields = ToQt(filter).split(QLatin1Char('|'));
  static const QRegularExpression inBrackets(QStringLiteral(R"(\s*\([^)]*\)\s*$)"));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
    QString patterns = fields[i + 1];
    patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
    filters << QString(fields[i]).remove(inBrackets) + QStringLiteral(" (%1)").arg(patterns);
  }
  return filters.join(QStringLiteral(";;"));
}

namespace {

// What the person chose in a dialog, or nothing if he cancelled.
std::optional<std::filesystem::path> ChoiceIn(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return PathOf(FromQt(QDir::toNativeSeparators(dialog.selectedFiles().constFirst())));
}

}  // namespace

std::optional<std::filesystem::path> QtFileDialogs::OpenFile(const OpenFileRequest& request) {
  QFileDialog dialog(QApplication::activeWindow(), ToQt(request.title),
                     ToQt(TextOf(request.folder)), ToolkitFilter(request.filter));
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (request.pictures) AddPicturePreview(dialog);
  DressFileDialog(dialog);
  return ChoiceIn(dialog);
}

std::optional<std::filesystem::path> QtFileDialogs::SaveFile(const SaveFileRequest& request) {
  QFileDialog dialog(QApplication::activeWindow(), QString(), ToQt(TextOf(request.folder)),
                     ToolkitFilter(request.filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);  // asks before it names a file that is there
  dialog.setDefaultSuffix(ToQt(request.defaultExtension));
  // The dialog adds no suffix to a name with a dot in it, as "St. Louis" has.
  dialog.selectFile(ToQt(request.fileName + '.' + request.defaultExtension));
  DressFileDialog(dialog);
  return ChoiceIn(dialog);
}

std::optional<std::filesystem::path> QtFileDialogs::OpenFolder(
    const std::string& title, const std::filesystem::path& startAt) {
  QFileDialog dialog(QApplication::activeWindow(), ToQt(title), ToQt(TextOf(startAt)));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  DressFileDialog(dialog);
  return ChoiceIn(dialog);
}

void QtPages::Open(const std::string& addressOrFile) {
  const QString text = ToQt(addressOrFile);
  QDesktopServices::openUrl(QFileInfo::exists(text) ? QUrl::fromLocalFile(text)
                                                    : QUrl::fromUserInput(text));
}

bool QtPages::OpenSystemInformation() {
  // The tools of the usual desktops; the first that is installed.
  static const std::array<QStringList, 7> tools{{{"kinfocenter"},
                                                 {"gnome-control-center", "info-overview"},
                                                 {"cinnamon-settings", "info"},
                                                 {"hardinfo2"},
                                                 {"hardinfo"},
                                                 {"lshw-gtk"},
                                                 {"msinfo32"}}};
  return std::any_of(tools.begin(), tools.end(), [](const QStringList& tool) {
    const QString program = QStandardPaths::findExecutable(tool.first());
    return !program.isEmpty() && QProcess::startDetached(program, tool.mid(1));
  });
}

void QtClipboard::SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(ToQt(text));
}

bool QtSpreadsheetProgram::Installed() { return OpensWorkbooks(); }

bool QtSpreadsheetProgram::OpenWorkbook(const std::filesystem::path& file) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(TextOf(file))));
}

LocalTime QtClock::Now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

QString StandardText(const QDateTime& time, const QLocale& locale) {
  QString date = locale.dateFormat(QLocale::ShortFormat);
  if (!date.contains(QLatin1String("yyyy"))) {
    date.replace(QLatin1String("yy"), QLatin1String("yyyy"));
  }
  // The zone, the letter t, belongs to the long form of a clock only.
  QString clock = locale.timeFormat(QLocale::LongFormat).remove(QLatin1Char('t')).trimmed();
  return locale.toString(time, date + QLatin1Char(' ') + clock);
}

std::string QtClock::NowText() {
  return FromQt(StandardText(QDateTime::currentDateTime(), QLocale::system()));
}

}  // namespace dtb
