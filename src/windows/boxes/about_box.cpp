#include "windows/boxes/about_box.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "aids/system_info.h"
#include "base/project_pages.h"
#include "base/version.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kPictureSize = 96;
constexpr int kTextWidth = 420;
constexpr const char* kDescription =
    "A board for everyone who plays baseball with dice, cards and charts. "
    "Load two teams, name the pitchers, roll, and click what the chart says; "
    "the paperwork is done here. Tell us what you miss.";
constexpr const char* kDisclaimer =
    "This program comes without any warranty. "
    "Team names, players and charts that you add are your own responsibility; "
    "those included are invented.";

QLabel* AddText(const char* name, const QString& text, double size, bool bold, QVBoxLayout* column,
                double scale, QWidget* parent) {
  QLabel* label = MakeCaption(text, parent, Qt::AlignLeft | Qt::AlignTop);
  Name(label, name, text);
  label->setFont(Font(size * scale, bold));
  label->setWordWrap(true);
  label->setFixedWidth(qRound(kTextWidth * scale));
  column->addWidget(label);
  return label;
}

}  // namespace

AboutBox::AboutBox(Platform& platform, QWidget* board)
    : QDialog(board), platform_(platform), scale_(TypeScale(board)) {
  setFont(Font(kBody * scale_));
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("About ") + QLatin1String(kProgramTitle));
  auto* picture = new PictureBox(PictureBox::Fit::Whole, this);
  Name(picture, "Image1", QStringLiteral("Emblem of the program"));
  picture->SetImage(QImage(QStringLiteral(":/icons/kelvane-diamond-table-256.png")));
  picture->setFixedSize(Units(kPictureSize), Units(kPictureSize));
  auto* row = new QHBoxLayout;
  row->setSpacing(Units(16));
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addWidget(BuildTexts());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(Units(24), Units(24), Units(24), Units(24));
  column->setSpacing(Units(16));
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addLayout(row);
  column->addWidget(BuildButtons());
}

QWidget* AboutBox::BuildTexts() {
  auto* texts = new QWidget(this);
  auto* column = new QVBoxLayout(texts);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Units(8));
  AddText("lblTitle", QLatin1String(kProgramTitle), kHuge, true, column, scale_, texts);
  AddText("lblVersion", ToQt(VersionText()), kBody, false, column, scale_, texts);
  auto* description =
      AddText("lblDescription", QLatin1String(kDescription), kBody, false, column, scale_, texts);
  // Blue cannot be read on slate, so the note lies on a light plate.
  description->setAutoFillBackground(true);
  description->setMargin(Units(12));
  QPalette palette = description->palette();
  palette.setColor(QPalette::Window, QColor(250, 246, 235));
  palette.setColor(QPalette::WindowText, QColor(0, 0, 255));
  description->setPalette(palette);
  column->addWidget(BuildLink(), 0, Qt::AlignLeft);
  AddText("lblDisclaimer", QLatin1String(kDisclaimer), kSmall, false, column, scale_, texts);
  return texts;
}

QWidget* AboutBox::BuildLink() {
  auto* link =
      new ClickLabel(QLatin1String(kProjectPage), {kSlateRaised, kSlateHover, kAccent}, this);
  Name(link, "Label1", QStringLiteral("Open the project's page"));
  link->setFont(Font(kBody * scale_, true));
  link->setToolTip(QStringLiteral("Opens the project's page in your browser"));
  link->setFixedSize(Units(kTextWidth), Units(32));
  connect(link, &QAbstractButton::clicked, this, [this] {
    platform_.pages.Open(kProjectPage);
    accept();
  });
  return link;
}

QWidget* AboutBox::BuildButtons() {
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(Units(8));
  row->addStretch();
  const auto add = [&](const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, buttons);
    Name(button, name, QString(caption).remove(QLatin1Char('&')));
    button->setMinimumSize(Units(120), Units(36));
    row->addWidget(button);
    return button;
  };
  auto* information = add("cmdSysInfo", QStringLiteral("&System Info..."));
  information->setAutoDefault(false);
  information->setToolTip(QStringLiteral("Opens your system's own information tool"));
  connect(information, &QPushButton::clicked, this, [this] { StartSysInfo(platform_); });
  auto* ok = add("cmdOK", QStringLiteral("OK"));
  ok->setDefault(true);
  ok->setToolTip(QStringLiteral("Closes this box"));
  ok->setFocus();
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  return buttons;
}

void AboutBox::Run(Platform& platform, QWidget* board) {
  AboutBox box(platform, board);
  box.adjustSize();
  CenterForm(&box, board);
  box.exec();
}

}  // namespace dtb
