#include "windows/board/side_panel.h"

#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>

#include "platform/qt/qt_text.h"
#include "teams/batting_order.h"
#include "teams/lineup_edit.h"
#include "teams/pitchers.h"
#include "teams/team_load.h"
#include "windows/boxes/closing_press.h"
#include "windows/shared/bind.h"
#include "windows/shared/game_text.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kPanelWidth = 320;
constexpr Place kVisitorsPlace{12, 12, kPanelWidth, 512};

// The objectNames and words that differ between the sides.
struct Names {
  const char* panel;
  const char* load;
  const char* loadCaption;
  const char* list;
  const char* up;
  const char* down;
  const char* edit;
  const char* newEntry;
  const char* atBat;
  const char* photo;
  const char* pitcher;
  const char* pitcherTip;
  const char* team;  // for screen readers
};

constexpr Names kVisitors{
    "VisitorsPanel",  "Command6",        "LOAD Visitor team", "List1",   "Command2",
    "Command3",       "Check1",          "tb_List1edit",      "Option5", "img_VisPitch",
    "lbl_VisPitcher", "Visitor Pitcher", "visitors"};
constexpr Names kHome{"HomePanel", "Command7",      "LOAD Home team",  "List2",
                      "Command8",  "Command4",      "Check2",          "tb_List2edit",
                      "Option6",   "img_HomePitch", "lbl_HomePitcher", "Home Pitcher",
                      "home team"};

const Names& NamesOf(Side side) { return side == Side::Visitors ? kVisitors : kHome; }

// The option "AT BAT" on a ground of its own, white or grey as its side is at bat or in the field.
class AtBatOption : public QRadioButton {
 public:
  explicit AtBatOption(QWidget* parent) : QRadioButton(QStringLiteral("AT BAT"), parent) {
    setAutoExclusive(false);  // the board keeps the two sides apart
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, kInk);
    setPalette(palette);
  }
  void SetGround(const QColor& ground) {
    ground_ = ground;
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    DrawPlate(painter, rect(), ground_, kAccent, hasFocus() ? 2 : 0);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state.setFlag(QStyle::State_HasFocus, false);
    option.rect.adjust(fontMetrics().height() / 3, 0, 0, 0);
    style()->drawControl(QStyle::CE_RadioButton, &option, &painter, this);
  }

 private:
  QColor ground_;
};

QString ForTeam(const char* what, Side side) {
  return QStringLiteral("%1, %2").arg(QLatin1String(what), QLatin1String(NamesOf(side).team));
}

}  // namespace

SidePanel::SidePanel(Board& board, Side side, QtPictures& pictures, Scene& scene, QWidget* parent)
    : Panel(parent), board_(board), side_(side), scene_(scene) {
  Name(this, NamesOf(side).panel);
  Place place = kVisitorsPlace;
  if (side == Side::Home) place.left = kSceneWidth - place.left - place.width;
  scene.Put(this, place);
  BuildLoadButton();
  BuildList();
  BuildButtons();
  BuildPitcher(pictures);
  FollowAll(
      this, [this] { SetLit(SideOf(board_, side_).atBat.value()); }, board.state.Option5,
      board.state.Option6);
}

void SidePanel::PutMirrored(QWidget* control, Place place, double typeSize, bool bold) {
  if (side_ == Side::Home) place.left = kPanelWidth - place.left - place.width;
  scene_.Put(control, place, typeSize, bold);
}

void SidePanel::BuildLoadButton() {
  const Names& names = NamesOf(side_);
  auto* load = new QPushButton(QLatin1String(names.loadCaption), this);
  Name(load, names.load, QLatin1String(names.loadCaption));
  PutMirrored(load, {12, 12, 296, 36}, kLarge);
  connect(load, &QPushButton::clicked, this, [this] { LoadTeam(board_, side_); });
}

void SidePanel::BuildList() {
  list_ = new LineupView(board_, side_, this);
  Name(list_, NamesOf(side_).list, ForTeam("Line-up", side_));
  PutMirrored(list_, {12, 56, 296, 288}, kLarge);
}

void SidePanel::BuildButtons() {
  const Names& names = NamesOf(side_);
  SideFields fields = SideOf(board_, side_);
  const auto addButton = [&](const char* name, const char* caption, double left, auto operation) {
    auto* button = new QPushButton(QLatin1String(caption), this);
    Name(button, name, ForTeam(caption, side_));
    PutMirrored(button, {left, 350, 92, 32}, kBody);
    connect(button, &QPushButton::clicked, this, [this, operation] { operation(board_, side_); });
  };
  addButton(names.up, "UP", 12, MoveEntryUp);
  addButton(names.down, "DN", 112, MoveEntryDown);

  auto* edit = new QCheckBox(QStringLiteral("EDIT"), this);
  Name(edit, names.edit, ForTeam("EDIT", side_));
  PutMirrored(edit, {220, 350, 88, 32}, kBody);
  BindCheck(edit, fields.edit);

  auto* atBat = new AtBatOption(this);
  TakeClosingPress(atBat);
  Name(atBat, names.atBat, ForTeam("AT BAT", side_));
  PutMirrored(atBat, {96, 388, 212, 30}, kBody, true);
  FollowAll(
      atBat,
      [this, atBat] {
        atBat->setChecked(SideOf(board_, side_).atBat.value());
        atBat->SetGround(Shade(SideColour(board_.state, side_)));
      },
      board_.state.Option5, board_.state.Option6);
  // By a click, a key, or a screen reader. AT BAT of a side is never turned off by itself.
  connect(atBat, &QRadioButton::toggled, this, [this, atBat](bool on) {
    if (on == SideOf(board_, side_).atBat.value()) return;
    if (on) PutAtBat(board_, side_);
    atBat->setChecked(SideOf(board_, side_).atBat.value());
  });

  auto* newEntry = new QLineEdit(this);
  Name(newEntry, names.newEntry, ForTeam("New entry for the selected row", side_));
  newEntry->setPlaceholderText(QStringLiteral("New entry; then double-click its row"));
  PutMirrored(newEntry, {96, 422, 212, 28}, kBody);
  BindGameText(newEntry, fields.newEntry, board_, "new entry");
  BindVisible(newEntry, fields.edit);
}

// In the field: the man to whom the pitcher pitches.
void SidePanel::ShowDuel(NameLabel* title) const {
  const QString batter = ToQt(board_.state.lbl_Selected.value());
  const bool pitches = RowOfBatter(board_, Other(side_)).has_value();
  title->SetName(pitches ? QStringLiteral("PITCHES TO ") : QStringLiteral("PITCHER"),
                 pitches ? batter : QString());
  title->setToolTip(pitches ? QStringLiteral("Pitches to ") + batter.left(400).toHtmlEscaped()
                            : QString());
}

void SidePanel::BuildPitcher(QtPictures& pictures) {
  const Names& names = NamesOf(side_);
  SideFields fields = SideOf(board_, side_);

  auto* photo = new PictureBox(PictureBox::Fit::Whole, this);
  Name(photo, names.photo, ForTeam("Photo of the pitcher", side_));
  photo->SetPlateWhenEmpty();
  PutMirrored(photo, {12, 390, 76, 110}, 0);
  Follow<Picture>(photo, fields.pitcherPhoto, [photo, &pictures](const Picture& picture) {
    photo->SetImage(pictures.Image(picture));
  });

  auto* title = new NameLabel(
      this, (side_ == Side::Visitors ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignBottom);
  PutMirrored(title, {96, 450, 212, 18}, kBody);
  title->setObjectName(QLatin1String(names.photo) + QStringLiteral("_title"));
  FollowAll(
      title, [this, title] { ShowDuel(title); }, board_.state.Option5, board_.state.Option6,
      board_.state.lbl_Selected, board_.state.BatterOf, board_.state.VisDue, board_.state.HomeDue);

  auto* pitcher = new ClickLabel({}, {kSlateRaised, kSlateHover, kCream}, this);
  Name(pitcher, names.pitcher, QLatin1String(names.pitcherTip));
  pitcher->setToolTip(QLatin1String(names.pitcherTip));
  pitcher->SetHint(QStringLiteral("Select a row, double-click here"));
  PutMirrored(pitcher, {96, 468, 212, 32}, kLarge, true);
  Follow<std::string>(pitcher, fields.pitcher,
                      [pitcher, tip = QLatin1String(names.pitcherTip)](const std::string& name) {
                        pitcher->setText(ToQt(name));
                        pitcher->setAccessibleName(tip + QLatin1Char(' ') + ToQt(name));
                      });
  connect(pitcher, &ClickLabel::doubleClicked, this, [this] { ChangePitcher(board_, side_); });
}

}  // namespace dtb
