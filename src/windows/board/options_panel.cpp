#include "windows/board/options_panel.h"

#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "aids/crowd.h"
#include "aids/quick_boxes.h"
#include "base/project_pages.h"
#include "game/game_pieces.h"
#include "game/keep_bases.h"
#include "game/start_up.h"
#include "platform/qt/qt_text.h"
#include "teams/photo_folder.h"
#include "windows/shared/bind.h"
#include "windows/shared/game_text.h"
#include "windows/shared/look.h"
#include "windows/shared/name_edit.h"

namespace dtb {
namespace {

using namespace look;

constexpr Place kOptionsPanel{12, 532, 408, 276};
constexpr double kRowHeight = 26;
constexpr double kFirstRow = 36;
constexpr double kRightColumn = 216;

// A heart, sewn like a baseball.
QImage HeartOfABall() {
  constexpr int kSize = 160;
  QImage image(kSize, kSize, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath heart(QPointF(80, 148));
  heart.cubicTo(10, 100, -4, 20, 44, 14);
  heart.cubicTo(64, 12, 76, 26, 80, 40);
  heart.cubicTo(84, 26, 96, 12, 116, 14);
  heart.cubicTo(164, 20, 150, 100, 80, 148);
  painter.fillPath(heart, kCream);
  painter.setClipPath(heart);
  for (const bool right : {false, true}) {
    if (right) {
      painter.translate(kSize, 0);
      painter.scale(-1, 1);
    }
    QPainterPath seam(QPointF(38, 0));
    seam.quadTo(84, 62, 34, 140);
    painter.setPen(QPen(QColor(176, 40, 32), 4));
    painter.drawPath(seam);
    for (int stitch = 1; stitch < 9; ++stitch) {
      const QPointF place = seam.pointAtPercent(stitch / 9.0);
      painter.drawLine(place + QPointF(-8, -7), place);
      painter.drawLine(place + QPointF(8, -7), place);
    }
  }
  return image;
}

}  // namespace

OptionsPanel::OptionsPanel(Board& board, Aids& aids, Scene& scene, QWidget* parent)
    : Panel(parent), board_(board), aids_(aids), scene_(scene) {
  Name(this, "fra_Options", QStringLiteral("OPTIONS"));
  SetFill(kSlate);
  scene.Put(this, kOptionsPanel);
  scene.Put(MakeCaption(QStringLiteral("OPTIONS"), this), {16, 8, 200, 24}, kBody, true);
  auto* close = new ClickLabel(QStringLiteral("X"), {kSlateRaised, kSlateHover, kCream}, this);
  Name(close, "Label9", QStringLiteral("Close the options"));
  close->setToolTip(QStringLiteral("Closes the options"));
  scene.Put(close, {372, 8, 24, 24}, kBody, true);
  connect(close, &QAbstractButton::clicked, this, [this] { ToggleOptions(board_); });
  BuildChecks();
  BuildOutsCount();
  BuildPhotoSize();
  BuildParkPlaces();
  BuildPhotoPath();
  BuildDonation();
  BindVisible(this, board.state.fra_Options_visible);
  TabInReadingOrder();
}

void OptionsPanel::TabInReadingOrder() {
  QList<QWidget*> controls;
  for (auto* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (control->focusPolicy() & Qt::TabFocus) controls += control;
  }
  // Rows from the top, each from the left; those of a row differ by a few units.
  const auto before = [this](QWidget* a, QWidget* b) {
    const Place first = scene_.PlaceOf(a);
    const Place second = scene_.PlaceOf(b);
    const bool sameRow = std::abs(first.top - second.top) < kRowHeight / 2;
    return sameRow ? first.left < second.left : first.top < second.top;
  };
  std::ranges::stable_sort(controls, before);
  // The head comes last: whoever enters by key stands at the first option, not at a link.
  constexpr double kHead = 32;
  std::stable_partition(controls.begin(), controls.end(),
                        [this](QWidget* control) { return scene_.PlaceOf(control).top >= kHead; });
  for (qsizetype i = 1; i < controls.size(); ++i) setTabOrder(controls[i - 1], controls[i]);
}

void OptionsPanel::BuildChecks() {
  const auto add = [&](const char* name, const char* caption, int row, Field<bool>& field,
                       double left = 16, const std::function<void()>& operation = {}) {
    auto* check = new QCheckBox(QLatin1String(caption), this);
    Name(check, name, QLatin1String(caption));
    scene_.Put(check, {left, kFirstRow + row * kRowHeight, 184, kRowHeight}, kBody);
    BindCheck(check, field, operation);
    return check;
  };
  auto* tracker = add("cb_BaseTracker", "SHOW BASE TRACKER", 0, board_.state.cb_BaseTracker, 16,
                      [this] { ToggleBaseTracker(board_); });
  add("chk_Ctrls", "HIDE CONTROLS", 1, board_.state.chk_Ctrls)
      ->setToolTip(QStringLiteral("Hides the outcome labels; their keys still work"));
  // People know this box by its tool-tip, odd as that is.
  add("Check4", "SHOW DICE ROLLER", 2, aids_.state.Check4)
      ->setToolTip(QStringLiteral("Show extended boxscore"));
  add("cb_MuteDice", "MUTE DICE", 3, aids_.state.cb_MuteDice)
      ->setToolTip(QStringLiteral("Rolls the dice without a sound"));
  auto* quick = add("cb_QuickBoxes", "QUICK BOXES", 2, aids_.state.cb_QuickBoxes, kRightColumn,
                    [this] { QuickBoxesClicked(aids_); });
  quick->setToolTip(QStringLiteral(
      "Shows what was recorded at the foot of the board for a moment, without a box to close"));
  auto* crowd =
      add("cb_Crowd", "CROWD NOISE", 4, aids_.state.cb_Crowd, 16, [this] { CrowdClicked(aids_); });
  add("cb_KeepBases", "KEEP THE BASES", 3, board_.state.cb_KeepBases, kRightColumn, [this] {
    KeepBasesClicked(board_);
  })->setToolTip(QStringLiteral("The board moves the runners and counts their runs"));
  auto* parks = add("cb_RandParks", "RANDOM BALLPARKS", 5, aids_.state.cb_RandParks);
  tracker->setToolTip(QStringLiteral("A small diamond on which you note who is where"));
  crowd->setToolTip(QStringLiteral("Plays crowd noise until you turn it off"));
  parks->setToolTip(QStringLiteral("BALLPARKS then picks a random picture from the same folder"));
  BindVisible(parks, aids_.state.cb_RandParks_visible);
}

void OptionsPanel::BuildOutsCount() {
  scene_.Put(MakeCaption(QStringLiteral("MASTER # OF OUTS"), this),
             {kRightColumn, kFirstRow, 136, kRowHeight}, kBody);
  auto* count = new FigureField(this);
  Name(count, "tb_OutsCount", QStringLiteral("MASTER # OF OUTS"));
  count->setToolTip(QStringLiteral("Total outs made thus far"));
  count->SetGround(palette().color(QPalette::Base), kInk);
  scene_.Put(count, {354, kFirstRow, 42, kRowHeight}, kBody, true);
  BindGameText(count, board_.state.tb_OutsCount, board_, "MASTER # OF OUTS");
}

void OptionsPanel::BuildPhotoSize() {
  const double top = kFirstRow + kRowHeight;
  auto* title = MakeCaption(QStringLiteral("PHOTO SIZE"), this);
  Name(title, "Label6");
  scene_.Put(title, {kRightColumn, top, 84, kRowHeight}, kBody);
  const auto add = [&](const char* name, const char* caption, double left, const char* tip,
                       auto operation) {
    auto* button = new QPushButton(QLatin1String(caption), this);
    Name(button, name, QStringLiteral("PHOTO SIZE ") + QLatin1String(caption));
    button->setToolTip(QLatin1String(tip));
    scene_.Put(button, {left, top + 1, 40, kRowHeight - 2}, kBody);
    connect(button, &QPushButton::clicked, this, [this, operation] { operation(board_); });
  };
  add("cmd_FotoBig", "BIG", 312, "Larger game pieces", EnlargePieces);
  add("cmd_FotoSmall", "SM", 356, "Smaller game pieces", ShrinkPieces);
}

void OptionsPanel::BuildParkPlaces() {
  auto* places = new QPushButton(QStringLiteral("BASES OF THIS PARK"), this);
  Name(places, "cmd_ParkPlaces", places->text());
  places->setToolTip(
      QStringLiteral("Shows markers that you drag to the bases in the picture of this park"));
  scene_.Put(places, {kRightColumn, kFirstRow + 4 * kRowHeight + 1, 180, kRowHeight - 2}, kBody);
  connect(places, &QPushButton::clicked, this, &OptionsPanel::parkPlacesWanted);
}

void OptionsPanel::BuildPhotoPath() {
  auto* title = MakeCaption(QStringLiteral("User-defined PLAYER-PHOTOS path"), this);
  Name(title, "Label8");
  scene_.Put(title, {16, 194, 380, 20}, kBody);

  auto* path = new ClickLabel({}, {kSlateRaised, kSlateHover, kCream}, this);
  Name(path, "lbl_PhotoPath", QStringLiteral("Folder of the player photos"));
  path->setToolTip(QStringLiteral("The folder of the player photos; Ctrl + click to change it"));
  scene_.Put(path, {16, 214, 380, 30}, kBody);
  auto* edit = new NameEdit(board_.platform, PhotoFolder(board_.state), path);
  Name(edit, "Text1", QStringLiteral("New folder of the player photos"));
  scene_.Put(edit, {16, 214, 380, 30}, kBody);

  auto* hint =
      MakeCaption(QStringLiteral("CTRL + Click to Edit path ..... DblClick to Save path"), this);
  Name(hint, "Label11");
  scene_.Put(hint, {16, 246, 380, 20}, kBody);
}

void OptionsPanel::BuildDonation() {
  auto* donation = new PictureButton(this);
  donation->SetImage(HeartOfABall());
  Name(donation, "Image7", QStringLiteral("Open the donation page"));
  donation->setToolTip(QStringLiteral("Opens the donation page in your browser"));
  scene_.Put(donation, {340, 8, 24, 24});
  connect(donation, &QAbstractButton::clicked, this,
          [this] { board_.platform.pages.Open(kDonationPage); });
}

}  // namespace dtb
