#include "windows/board/side_panel.h"

#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>

#include "game/batting_order.h"
#include "platform/qt/qt_text.h"
#include "teams/lineup_edit.h"
#include "teams/pitchers.h"
#include "teams/team_load.h"
#include "windows/boxes/closing_press.h"
#include "windows/shared/bind.h"
#include "windows/shared/game_text.h"
#include "windows/shared/look.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kPanelWidth = 320;
constexpr Place kVisitorsPlace{12, 12, kPanelWidth, 512};

// The objectNames and words that differ between the sides.
struct PanelNames {
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

constexpr PanelNames kVisitors{
    "VisitorsPanel",  "Command6",        "LOAD Visitor team", "List1",   "Command2",
    "Command3",       "Check1",          "tb_List1edit",      "Option5", "img_VisPitch",
    "lbl_VisPitcher", "Visitor Pitcher", "visitors"};
constexpr PanelNames kHome{"HomePanel", "Command7",      "LOAD Home team",  "List2",
                           "Command8",  "Command4",      "Check2",          "tb_List2edit",
                           "Option6",   "img_HomePitch", "lbl_HomePitcher", "Home Pitcher",
                           "home team"};

const PanelNames& PanelNamesOf(Side side) { return side == Side::Visitors ? kVisitors : kHome; }

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
  // Words at its right end, dim or bright.
  void SetHint(const QString& hint, ClickLabel::HintLight light) {
    hint_ = hint;
    light_ = light;
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const bool flash = !hint_.isEmpty() && light_ == ClickLabel::HintLight::Flash;
    DrawPlate(painter, rect(), flash ? kAccent : ground_, kAccent, hasFocus() ? 2 : 0);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state.setFlag(QStyle::State_HasFocus, false);
    option.rect.adjust(fontMetrics().height() / 3, 0, 0, 0);
    style()->drawControl(QStyle::CE_RadioButton, &option, &painter, this);
    if (!hint_.isEmpty()) DrawHint(painter);
  }

 private:
  void DrawHint(QPainter& painter) const {
    painter.setFont(Font(font().pixelSize() * kSmall / kBody));
    const QFontMetrics metrics = painter.fontMetrics();
    const int width = TextWidth(metrics, hint_) + metrics.height();
    const int height = metrics.height() + 4;
    const QRect chip(this->width() - width - 4, (this->height() - height) / 2, width, height);
    if (light_ == ClickLabel::HintLight::Bright) {
      DrawPlate(painter, chip, kAccent, kInk, 1, height / 2.0);
    }
    painter.setPen(kInk);
    painter.drawText(chip, Qt::AlignCenter, hint_);
  }

  QString hint_;
  ClickLabel::HintLight light_ = ClickLabel::HintLight::Dim;
  QColor ground_;
};

// How the words of a step are shown just now.
ClickLabel::HintLight LightOf(const NextStep& next, Step step) {
  if (next.Flashes(step)) return ClickLabel::HintLight::Flash;
  return next.Is(step) ? ClickLabel::HintLight::Bright : ClickLabel::HintLight::Dim;
}

QString ForTeam(const char* what, Side side) {
  return QStringLiteral("%1, %2").arg(QLatin1String(what), QLatin1String(PanelNamesOf(side).team));
}

}  // namespace

SidePanel::SidePanel(Board& board, Side side, NextStep& next, QtPictures& pictures, Scene& scene,
                     QWidget* parent)
    : Panel(parent), board_(board), side_(side), next_(next), scene_(scene) {
  Name(this, PanelNamesOf(side).panel);
  Place place = kVisitorsPlace;
  if (side == Side::Home) place.left = kSceneWidth - place.left - place.width;
  scene.Put(this, place);
  BuildLoadButton();
  BuildList();
  BuildButtons();
  BuildAtBat();
  BuildPitcher(pictures);
  BuildPitcherPlate();
  FollowAll(
      this, [this] { SetLit(SideOf(board_, side_).atBat.value()); }, board.state.Option5,
      board.state.Option6);
}

void SidePanel::PutMirrored(QWidget* control, Place place, double typeSize, bool bold) {
  if (side_ == Side::Home) place.left = kPanelWidth - place.left - place.width;
  scene_.Put(control, place, typeSize, bold);
}

void SidePanel::BuildLoadButton() {
  const PanelNames& names = PanelNamesOf(side_);
  auto* load = new QPushButton(QLatin1String(names.loadCaption), this);
  Name(load, names.load, QLatin1String(names.loadCaption));
  load->setToolTip(QStringLiteral("Chooses the file of a team and loads it"));
  PutMirrored(load, {12, 12, 296, 36}, kLarge);
  connect(load, &QPushButton::clicked, this, [this] { LoadTeam(board_, side_); });
}

void SidePanel::BuildList() {
  list_ = new LineupView(board_, side_, next_, this);
  Name(list_, PanelNamesOf(side_).list, ForTeam("Line-up", side_));
  PutMirrored(list_, {12, 56, 296, 288}, kLarge);
}

void SidePanel::BuildButtons() {
  const PanelNames& names = PanelNamesOf(side_);
  SideFields fields = SideOf(board_, side_);
  const auto addButton = [&](const char* name, const char* caption, const char* tip, double left,
                             auto operation) {
    auto* button = new QPushButton(QLatin1String(caption), this);
    Name(button, name, ForTeam(caption, side_));
    button->setToolTip(QLatin1String(tip));
    PutMirrored(button, {left, 350, 92, 32}, kBody);
    connect(button, &QPushButton::clicked, this, [this, operation] { operation(board_, side_); });
  };
  addButton(names.up, "UP", "Moves the selected row up by one", 12, MoveEntryUp);
  addButton(names.down, "DN", "Moves the selected row down by one", 112, MoveEntryDown);

  auto* edit = new QCheckBox(QStringLiteral("EDIT"), this);
  Name(edit, names.edit, ForTeam("EDIT", side_));
  edit->setToolTip(
      QStringLiteral("While it is on, you can drag and replace rows, and a click names no batter"));
  PutMirrored(edit, {220, 350, 88, 32}, kBody);
  BindCheck(edit, fields.edit);

  auto* newEntry = new QLineEdit(this);
  Name(newEntry, names.newEntry, ForTeam("New entry for the selected row", side_));
  newEntry->setToolTip(TipWithKey(QStringLiteral("A double click on a row puts this text there"),
                                  QStringLiteral("Enter on the row")));
  newEntry->setPlaceholderText(QStringLiteral("New entry; then double-click its row"));
  PutMirrored(newEntry, {96, 418, 212, 26}, kBody);
  BindGameText(newEntry, fields.newEntry, board_, "new entry");
  BindVisible(newEntry, fields.edit);
}

void SidePanel::BuildAtBat() {
  auto* atBat = new AtBatOption(this);
  TakeClosingPress(atBat);
  Name(atBat, PanelNamesOf(side_).atBat, ForTeam("AT BAT", side_));
  atBat->setToolTip(QStringLiteral("This side bats, the other is in the field"));
  PutMirrored(atBat, {96, 388, 212, 28}, kBody, true);
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
  // The visitors bat first.
  if (side_ == Side::Home) return;
  const auto showHint = [this, atBat] {
    const bool open = !SideAtBat(board_.state).has_value();
    atBat->SetHint(open ? QStringLiteral("Turn on AT BAT") : QString(),
                   LightOf(next_, Step::AtBat));
  };
  FollowAll(atBat, showHint, board_.state.Option5, board_.state.Option6);
  connect(&next_, &NextStep::changed, atBat, showHint);
}

// In the field: the player to whom the pitcher pitches.
void SidePanel::ShowDuel(NameLabel* title) const {
  const QString batter = ToQt(board_.state.lbl_Selected.value());
  const bool pitches = RowOfBatter(board_, Other(side_)).has_value();
  title->SetName(pitches ? QStringLiteral("PITCHES TO ") : QStringLiteral("PITCHER"),
                 pitches ? batter : QString());
  title->setToolTip(pitches ? QStringLiteral("Pitches to ") + batter.left(400).toHtmlEscaped()
                            : QString());
}

void SidePanel::BuildPitcher(QtPictures& pictures) {
  const PanelNames& names = PanelNamesOf(side_);
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
  PutMirrored(title, {96, 444, 212, 16}, kBody);
  title->setObjectName(QLatin1String(names.photo) + QStringLiteral("_title"));
  FollowAll(
      title, [this, title] { ShowDuel(title); }, board_.state.Option5, board_.state.Option6,
      board_.state.lbl_Selected, board_.state.BatterOf, board_.state.VisDue, board_.state.HomeDue);
}

// His name, and under it what the line-up remarks of him.
void SidePanel::BuildPitcherPlate() {
  const PanelNames& names = PanelNamesOf(side_);
  SideFields fields = SideOf(board_, side_);
  auto* pitcher = new ClickLabel({}, {kSlateRaised, kSlateHover, kCream}, this);
  Name(pitcher, names.pitcher);
  pitcher->SetHint(QStringLiteral("Who pitches? Select him,\nthen double-click here"));
  PutMirrored(pitcher, {96, 460, 212, 40}, kLarge, true);
  const auto show = [this, pitcher, tip = QLatin1String(names.pitcherTip)] {
    const SideFields shown = SideOf(board_, side_);
    const QString name = ToQt(shown.pitcher.value());
    const QString remark = RemarkOf(shown.list, shown.pitcher.value());
    pitcher->setText(name);
    pitcher->SetFoot(remark);
    pitcher->setAccessibleName(tip + QLatin1Char(' ') + name);
    pitcher->setToolTip(
        name.isEmpty()
            ? QString(tip)
            : TipOfLines({tip + QStringLiteral(": ") + name, remark,
                          QStringLiteral("Select another row and double-click here to change")}));
    const Step step = side_ == Side::Visitors ? Step::VisitorsPitcher : Step::HomePitcher;
    pitcher->SetHintLight(LightOf(next_, step));
  };
  FollowAll(pitcher, show, fields.pitcher);
  connect(&next_, &NextStep::changed, pitcher, show);
  connect(list_, &LineupView::shown, pitcher, show);
  connect(pitcher, &ClickLabel::doubleClicked, this, [this] { ChangePitcher(board_, side_); });
}

}  // namespace dtb
