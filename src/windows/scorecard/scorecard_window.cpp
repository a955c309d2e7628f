#include "windows/scorecard/scorecard_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <array>

#include "base/file_names.h"
#include "base/whole_file.h"
#include "game/history.h"
#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "record/drawing_svg.h"
#include "record/line_up_card.h"
#include "sheet/report_files.h"
#include "windows/boxes/busy.h"
#include "windows/scorecard/paint_drawing.h"
#include "windows/scorecard/print_pages.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/kept_place.h"
#include "windows/shared/look.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

constexpr QSize kUsualSize(1240, 900);  // layout units
constexpr std::array kSides{Side::Visitors, Side::Home};

QString TitleOf(const GameRecord& game) {
  return QStringLiteral("Scorecard, %1 at %2")
      .arg(ToQt(game.side(Side::Visitors).team), ToQt(game.side(Side::Home).team));
}

}  // namespace

ScorecardWindow::ScorecardWindow(Platform& platform, QWidget* parent)
    : QDialog(parent),
      platform_(platform),
      title_(MakeCaption(QStringLiteral("SCORECARD"), this, Qt::AlignCenter)),
      sides_(new QTabBar(this)),
      paper_(new QCheckBox(QStringLiteral("Black on white"), this)),
      view_(new CardView(this)) {
  setObjectName(QStringLiteral("Scorecard"));
  setWindowTitle(QStringLiteral("Scorecard"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(look::kSpace);
  BuildHead(*column);
  column->addWidget(view_, 1);
  BuildButtons(*column);
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, &ScorecardWindow::Update);
}

void ScorecardWindow::BuildHead(QBoxLayout& column) {
  Name(sides_, "tab_Sides", QStringLiteral("Side"));
  sides_->setExpanding(false);
  sides_->setDrawBase(false);
  for (const char* key : {"V", "H"}) {
    const int tab = sides_->addTab(QString());
    sides_->setTabToolTip(
        tab, TipWithKey(QStringLiteral("The page of this side's batters"), QLatin1String(key)));
  }
  Name(paper_, "chk_Paper", paper_->text());
  paper_->setToolTip(
      TipWithKey(QStringLiteral("Shows and saves the card as it is printed"), QStringLiteral("B")));
  auto* row = new QHBoxLayout;
  row->setSpacing(look::kSpace);
  row->addWidget(sides_);
  row->addWidget(title_, 1);
  row->addWidget(paper_);
  column.addLayout(row);
  connect(sides_, &QTabBar::currentChanged, this, &ScorecardWindow::ShowCard);
  connect(paper_, &QCheckBox::toggled, this, &ScorecardWindow::ShowCard);
}

void ScorecardWindow::BuildButtons(QBoxLayout& column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(look::kSpace);
  lineUps_ =
      AddButton("cmd_LineUps", QStringLiteral("Print line-up card..."),
                QStringLiteral("Prints an empty card with both line-ups, to fill in by pencil"));
  QPushButton* svg =
      AddButton("cmd_Svg", QStringLiteral("Save as SVG..."),
                QStringLiteral("Writes the page that is shown as a picture of lines"));
  QPushButton* pdf = AddButton("cmd_Pdf", QStringLiteral("Save as PDF..."),
                               QStringLiteral("Writes the pages of both sides"));
  QPushButton* print = AddButton(
      "cmd_Print", QStringLiteral("Print..."),
      TipWithKey(QStringLiteral("Prints the pages of both sides"), QStringLiteral("Ctrl + P")));
  QPushButton* close =
      AddButton("cmd_Close", QStringLiteral("Close"), QStringLiteral("Closes the window"));
  print->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
  row->addWidget(lineUps_);
  row->addStretch();
  for (QPushButton* button : {svg, pdf, print, close}) row->addWidget(button);
  column.addLayout(row);
  lineUps_->hide();
  connect(svg, &QPushButton::clicked, this, &ScorecardWindow::SaveAsSvg);
  connect(pdf, &QPushButton::clicked, this, &ScorecardWindow::SaveAsPdf);
  connect(print, &QPushButton::clicked, this, &ScorecardWindow::Print);
  connect(lineUps_, &QPushButton::clicked, this, [this] { PrintLineUpCard(*board_, this); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

QPushButton* ScorecardWindow::AddButton(const char* name, const QString& caption,
                                        const QString& tip) {
  QPushButton* button = MakeButton(name, caption, tip, this);
  button->setFocusPolicy(Qt::TabFocus);  // Space after a click prints nothing again
  buttons_.push_back(button);
  return button;
}

void ScorecardWindow::FollowBoard(Board& board) {
  board_ = &board;
  lineUps_->show();
  const auto changed = [this] {
    if (isVisible()) later_.start(0);
  };
  if (board.history != nullptr) board.history->Observe(changed, WhileItLives(this));
  ShowSide(SideAtBat(board.state).value_or(Side::Visitors));
  Update();
}

void ScorecardWindow::ShowRecord(const GameRecord& record) {
  board_ = nullptr;
  lineUps_->hide();
  game_ = record;
  Update();
}

Side ScorecardWindow::side() const { return kSides.at(sides_->currentIndex() == 1 ? 1 : 0); }

void ScorecardWindow::ShowSide(Side side) { sides_->setCurrentIndex(side == Side::Home ? 1 : 0); }

Dress ScorecardWindow::dress() const { return paper_->isChecked() ? Dress::Paper : Dress::Look; }

void ScorecardWindow::Update() {
  if (board_ != nullptr) game_ = RecordWithLineups(*board_);
  for (const Side side : kSides) {
    QString team = ToQt(game_.side(side).team);
    constexpr qsizetype kLongest = 24;
    if (team.size() > kLongest) team = team.left(kLongest) + QChar(0x2026);
    // An ampersand would underline the letter behind it.
    sides_->setTabText(side == Side::Visitors ? 0 : 1, team.replace('&', QStringLiteral("&&")));
  }
  ShowCard();
}

void ScorecardWindow::ShowCard() {
  const Scorecard card = ScorecardOf(game_, side());
  view_->Show(DrawScorecard(card, UsualPage()), dress(), ToQt(ScorecardInWords(card)));
}

std::vector<Drawing> ScorecardWindow::BothSides(PageSize page) const {
  std::vector<Drawing> pages;
  for (const Side side : kSides) {
    for (Drawing& drawing : DrawScorecard(ScorecardOf(game_, side), page)) {
      pages.push_back(std::move(drawing));
    }
  }
  return pages;
}

void ScorecardWindow::Save(const QString& sides, const char* filter, const char* extension,
                           const char* told, const std::function<std::string()>& bytes) {
  Trapped(platform_.boxes, [&] {
    const std::string name =
        "Scorecard_" + SafeNamePart(FromQt(sides)) + (game_.date.empty() ? "" : "_" + game_.date);
    const auto file =
        platform_.dialogs.SaveFile({ReportsFolder(platform_), name, filter, extension});
    if (!file) return;
    {
      const BusyPointer busy;
      WriteWholeFile(*file, bytes(), "scorecard");
    }
    TellWhereItLies(platform_, told, *file, "Scorecard");
  });
}

void ScorecardWindow::SaveAsSvg() {
  Save(ToQt(game_.side(side()).team), "Pictures of lines (*.svg)|*.svg", "svg",
       "The scorecard is written.",
       [this] { return SvgFile(DrawScorecard(ScorecardOf(game_, side()), UsualPage()), dress()); });
}

void ScorecardWindow::SaveAsPdf() {
  const QString teams =
      ToQt(game_.side(Side::Visitors).team + "_at_" + game_.side(Side::Home).team);
  Save(teams, "PDF (*.pdf)|*.pdf", "pdf", "The scorecard of both sides is written.",
       [this] { return PdfOf(BothSides(UsualPage()), dress(), TitleOf(game_)).toStdString(); });
}

void ScorecardWindow::Print() {
  PrintPages(platform_, this, TitleOf(game_), [this](PageSize page) { return BothSides(page); });
}

void ScorecardWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    const double scale = TakeTypeOfBoard(*this, buttons_, title_);
    sides_->setFont(font());
    if (!TakeUpPlace(*this, platform_.settings)) PlaceOverBoard(*this, kUsualSize, scale);
    placed_ = geometry();
    view_->setFocus(Qt::OtherFocusReason);
    if (board_ != nullptr) Update();
  }
  QDialog::showEvent(event);
}

void ScorecardWindow::hideEvent(QHideEvent* event) {
  if (!event->spontaneous()) KeepPlaceIfMoved(*this, placed_, platform_.settings);
  QDialog::hideEvent(event);
}

void ScorecardWindow::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
  switch (plain ? event->key() : 0) {
    case Qt::Key_V:
      return ShowSide(Side::Visitors);
    case Qt::Key_H:
      return ShowSide(Side::Home);
    case Qt::Key_B:
      return paper_->toggle();
    case Qt::Key_Plus:
      return view_->Zoom(1);
    case Qt::Key_Minus:
      return view_->Zoom(-1);
    case Qt::Key_0:
      return view_->Zoom(0);
    default:
      QDialog::keyPressEvent(event);
  }
}

void PrintLineUpCard(Board& board, QWidget* over) {
  PrintPages(board.platform, over, QStringLiteral("Line-up card"), [&board](PageSize page) {
    std::vector<Drawing> pages;
    for (const Side side : kSides) {
      for (Drawing& drawing : DrawScorecard(EmptyScorecard(board, side), page)) {
        pages.push_back(std::move(drawing));
      }
    }
    return pages;
  });
}

}  // namespace dtb
