#include "windows/sheet/sheet_window.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>

#include "aids/ballparks.h"
#include "database/save_game.h"
#include "game/constant_update.h"
#include "game/history.h"
#include "platform/qt/qt_text.h"
#include "season/season_before.h"
#include "sheet/cell_edit.h"
#include "sheet/game_report.h"
#include "sheet/game_workbook.h"
#include "windows/boxes/busy.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/game_text.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

// The sheet in its own layout units: both teams side by side on a screen of the scene's size.
constexpr double kWidth = 1520;
constexpr double kHeight = 832;
constexpr double kTableWidth = 744;
constexpr Place kBoxScorePlace{220, 12, 1080, 84};
constexpr Place kProofPlace{260, 108, 1000, 640};  // at most
constexpr double kBoxScoreTwip = 1.6 * kTwip;      // figures of the line score are larger

}  // namespace

SheetWindow::SheetWindow(Board& board, const Field<Picture>& park, QtPictures& pictures,
                         QWidget* parent)
    : QDialog(parent), board_(board), park_(park), scene_(kWidth, kHeight) {
  setObjectName(QStringLiteral("Form2"));
  setWindowTitle(QStringLiteral("Stats"));
  BuildTop(pictures);
  BuildSide(Side::Visitors);
  BuildSide(Side::Home);
  BuildBottom();
  BuildEditor();
  BuildProof();
  FollowSteps();
  FitAtLaunch(this, scene_.resizer(), 0);
}

SheetWindow::~SheetWindow() {
  qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

// A step back or forward restores the line score as it stood; its copy here follows.
void SheetWindow::FollowSteps() {
  board_.history->Observe(
      [this] {
        if (!isVisible()) return;
        if (board_.history->stepped()) ConstantUpdate(board_);
        decisions_->Update();
        ShowProof();
      },
      WhileItLives(this));
}

void SheetWindow::BuildProof() {
  proofPlate_ = new ProofPlate(this);
  scene_.Put(proofPlate_, {1308, 12, 108, 84}, kBody);
  proofList_ = new ProofList(this);
  scene_.Put(proofList_, kProofPlace);
  auto* key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_P), this);
  connect(key, &QShortcut::activated, this, &SheetWindow::OpenProofList);
  connect(proofPlate_, &QAbstractButton::clicked, this, &SheetWindow::OpenProofList);
  connect(proofList_, &ProofList::closed, this, [this] {
    proofList_->hide();
    visitors_->setFocus(Qt::OtherFocusReason);
  });
  connect(proofList_, &ProofList::putRightWanted, this,
          [this](const std::vector<Finding>& findings) {
            PutRight(board_, ProofMoment::Sheet, findings);
            proofList_->setFocus(Qt::OtherFocusReason);
          });
  connect(proofList_, &ProofList::cellWanted, this, [this](const Finding& finding) {
    if (finding.row == 0) return;
    proofList_->hide();
    StatGridView& table = TableOf(finding.side);
    table.SetCurrentCell(finding.row, finding.column);
    table.setFocus(Qt::OtherFocusReason);
  });
}

// The plate, and the list while it is open, as the game stands now.
void SheetWindow::ShowProof() {
  const std::vector<Finding> findings = Prove(board_, ProofMoment::Sheet);
  proofPlate_->Show(board_, findings);
  if (!proofList_->isVisible()) return;
  proofList_->Show(findings, kBody * scene_.resizer().fontScale());
  // As high as its lines.
  Place place = kProofPlace;
  const double scale = scene_.resizer().scaleY();
  const int width = qRound(place.width * scene_.resizer().scaleX());
  place.height = std::min(place.height, (proofList_->WholeHeight(width) + 1) / scale);
  scene_.MoveTo(proofList_, place);
}

void SheetWindow::OpenProofList() {
  proofList_->show();
  proofList_->raise();
  ShowProof();
  proofList_->setFocus(Qt::OtherFocusReason);
}

void SheetWindow::BuildTop(QtPictures& pictures) {
  const auto addLogo = [&](const char* name, const char* tip, double left, Field<Picture>& logo) {
    auto* box = new PictureBox(PictureBox::Fit::Whole, this);
    Name(box, name, QLatin1String(tip));
    box->setToolTip(QLatin1String(tip));
    scene_.Put(box, {left, 12, 84, 84});
    Follow<Picture>(box, logo, [box, &pictures](const Picture& picture) {
      box->SetImage(pictures.Image(picture));
    });
  };
  addLogo("Picture3", "Visitor logo", 12, board_.sheet.Picture3);
  addLogo("Picture4", "Home logo", kWidth - 96, board_.sheet.Picture4);
  boxScore_ = new StatGridView(board_.sheet.grd_BoxScore, this);
  Name(boxScore_, "grd_BoxScore", QStringLiteral("Line score"));
  boxScore_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  boxScore_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  boxScore_->FitText(0);
  scene_.Put(boxScore_, kBoxScorePlace);
  connect(boxScore_, &StatGridView::arranged, this, &SheetWindow::CentreBoxScore);
}

// As wide as its columns, in the middle of the sheet.
void SheetWindow::CentreBoxScore() {
  const double scale = scene_.resizer().scaleX();
  const int most = qRound(kBoxScorePlace.width * scale);
  const int width = std::min(most, boxScore_->WidthOfColumns());
  const QRect place = boxScore_->geometry();
  boxScore_->setGeometry((this->width() - width) / 2, place.top(), width, place.height());
}

void SheetWindow::BuildSide(Side side) {
  const bool visitors = side == Side::Visitors;
  const double left = visitors ? 12 : kWidth - 12 - kTableWidth;
  SideFields fields = SideOf(board_, side);

  auto* team = MakeCaption({}, this, Qt::AlignCenter);
  Name(team, visitors ? "lbl_VisTeam" : "lbl_HomeTeam");
  team->setAutoFillBackground(true);
  QPalette palette = team->palette();
  palette.setColor(QPalette::Window, visitors ? kPlateGrey : QColor(224, 224, 224));
  palette.setColor(QPalette::WindowText, visitors ? QColor(Qt::white) : kInk);
  team->setPalette(palette);
  scene_.Put(team, {left, 108, kTableWidth, 32}, kLarge, true);
  Follow<std::string>(team, fields.sheetTeam,
                      [team](const std::string& name) { team->setText(ToQt(name).left(400)); });

  StatGridView*& table = visitors ? visitors_ : home_;
  table = new StatGridView(fields.grid, this);
  Name(table, visitors ? "grd_VisStats" : "grd_HomeStats",
       visitors ? QStringLiteral("Visitors' statistics") : QStringLiteral("Home statistics"));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table->ShowWholeRows();
  table->SetStretchColumns({stat_column::kBatter, stat_column::kPitcher});
  scene_.Put(table, {left, 140, kTableWidth, 584});
  connect(table, &StatGridView::editWanted, this,
          [this, side](int row, int column) { BeginCellEdit(board_, side, row, column); });
  connect(table, &StatGridView::clearWanted, this,
          [this, side](int row, int column) { ClearCell(board_, side, row, column); });
}

void SheetWindow::BuildBottom() {
  decisions_ = new DecisionLine(board_, this);
  scene_.Put(decisions_, {12, 734, kWidth - 24, 34});
  auto* title = MakeCaption(QStringLiteral("Game comments (110 characters):"), this);
  Name(title, "Label2");
  scene_.Put(title, {12, 780, 240, 36}, kBody);
  auto* comments = new QLineEdit(this);
  Name(comments, "tb_Comments", QStringLiteral("Game comments"));
  comments->setMaxLength(kCommentLength);
  comments->setToolTip(QStringLiteral("Your notes on the game; the report shows them"));
  QPalette palette = comments->palette();
  palette.setColor(QPalette::Base, QColor(224, 224, 224));
  palette.setColor(QPalette::Text, QColor(0, 0, 255));
  comments->setPalette(palette);
  scene_.Put(comments, {256, 780, 684, 36}, kBody);
  BindGameText(comments, board_.sheet.tb_Comments, board_, "comments");
  BuildExports();
  auto* save = new QPushButton(QStringLiteral("SAVE TO DB"), this);
  Name(save, "Command2", QStringLiteral("SAVE TO DB"));
  save->setToolTip(QStringLiteral("When the game is over: saves it into the statistics database"));
  save->setAutoDefault(false);
  save->setFocusPolicy(Qt::TabFocus);
  Follow<bool>(save, board_.sheet.Command2_enabled, [this, save](bool on) {
    const bool leaves = !on && focusWidget() == save;
    save->setEnabled(on);
    // Qt would take the focus to the next button, which writes the report.
    if (leaves) visitors_->setFocus(Qt::OtherFocusReason);
  });
  connect(save, &QPushButton::clicked, this, [this] {
    const BusyPointer busy;
    SaveGame(board_, NameOfPark(park_.value()));
  });
  scene_.Put(save, {1260, 776, 248, 44}, kLarge, true);
}

void SheetWindow::BuildExports() {
  const auto add = [this](const char* name, const char* caption, const QString& tip, double left) {
    auto* button = new QPushButton(QLatin1String(caption), this);
    Name(button, name, QLatin1String(caption));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);  // a click leaves a figure that is being typed alone
    scene_.Put(button, {left, 780, 144, 36}, kBody);
    return button;
  };
  connect(
      add("cmd_Report", "HTML REPORT",
          QStringLiteral("When the game is over: fills in both pitchers' innings and writes the "
                         "sheet as a page for browsers"),
          948),
      &QPushButton::clicked, this, [this] {
        WriteGameReport(board_, [this](const GameRecord& game) {
          return ReadSeasonBefore(board_.platform.database, game);
        });
      });
  connect(add("cmd_Excel", "SEND TO EXCEL",
              QStringLiteral("Writes the sheet into a workbook and opens it"), 1100),
          &QPushButton::clicked, this, [this] { SendToExcel(); });
}

void SheetWindow::SendToExcel() {
  {
    const BusyPointer busy;
    if (!ExportGameToSpreadsheet(board_)) return;
  }
  for (StatGridView* table : {visitors_, home_, boxScore_}) table->SetCurrentCell(0, 0);
  hide();
}

void SheetWindow::BuildEditor() {
  editor_ = new QLineEdit(this);
  Name(editor_, "Text1", QStringLiteral("Cell editor"));
  editor_->setPalette(Palette());  // light, whatever the ground of the table
  editor_->hide();
  editor_->installEventFilter(this);
  BindText(editor_, board_.sheet.Text1);
  Follow<bool>(editor_, board_.sheet.Text1_visible, [this](bool shown) { ShowEditor(shown); });
}

StatGridView& SheetWindow::EditedTable() {
  const bool visitors =
      board_.sheet.lbl_GridSelected.value() == SideOf(board_, Side::Visitors).letter;
  return TableOf(visitors ? Side::Visitors : Side::Home);
}

void SheetWindow::ShowEditor(bool shown) {
  if (!shown) {
    editor_->hide();
    return;
  }
  StatGridView& table = EditedTable();
  const StatSheet& sheet = board_.sheet;
  table.SetCurrentCell(sheet.editedRow, sheet.editedColumn);
  editor_->setParent(table.viewport());
  editor_->setFont(table.font());
  const bool name =
      sheet.editedColumn == stat_column::kBatter || sheet.editedColumn == stat_column::kPitcher;
  editor_->setAlignment(name ? Qt::AlignLeft : Qt::AlignHCenter);
  editor_->setGeometry(table.CellRect(sheet.editedRow, sheet.editedColumn));
  editor_->selectAll();
  editor_->show();
  editor_->setFocus(Qt::OtherFocusReason);
}

void SheetWindow::Commit() {
  StatGridView& table = EditedTable();
  const int row = CommitCellEdit(board_);
  table.SetCurrentCell(row, board_.sheet.editedColumn);
  table.setFocus(Qt::OtherFocusReason);
}

bool SheetWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != editor_) return QDialog::eventFilter(watched, event);
  // A box over the sheet takes the focus only for a while.
  if (event->type() == QEvent::FocusOut &&
      static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
    DropCellEdit(board_);
  }
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) Commit();
    return true;
  }
  if (key != Qt::Key_Escape) return false;
  EditedTable().setFocus(Qt::OtherFocusReason);
  return true;
}

void SheetWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  scene_.Apply(size());
  const double scale = scene_.resizer().fontScale();
  for (StatGridView* table : {visitors_, home_}) {
    table->SetScale(kBody * scale, kTwip * scene_.resizer().scaleX());
  }
  boxScore_->SetScale(kLarge * scale, kBoxScoreTwip * scene_.resizer().scaleX());
  decisions_->SetType(Font(kBody * scale));
  if (proofList_->isVisible()) ShowProof();
  HoldRatio(this, scene_.resizer(), 0);
}

void SheetWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  visitors_->setFocus(Qt::OtherFocusReason);
  decisions_->Update();
  ShowProof();
}

void SheetWindow::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  proofList_->hide();
  DropCellEdit(board_);
}

void SheetWindow::mousePressEvent(QMouseEvent* event) {
  QDialog::mousePressEvent(event);
  ConstantUpdate(board_);
}

}  // namespace dtb
