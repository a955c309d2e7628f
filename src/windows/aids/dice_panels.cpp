#include "windows/aids/dice_panels.h"

#include <QPushButton>

#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/text_visit.h"

namespace dtb {
namespace {

using namespace look;

// Places in layout units. Both lie over the outfield, under the scoreboard: clear of the bases, the
// game pieces and the other panels.
constexpr double kMargin = 12;
constexpr double kFaceDieSize = 64;
constexpr double kNumberDieSize = 56;
constexpr double kRollHeight = 36;
constexpr double kFacePanelWidth = 2 * kMargin + 2 * kFaceDieSize + kSpace;
constexpr double kFacePanelHeight = kFacePanelWidth + kSpace + kRollHeight;
constexpr Place kFacePanel{344, 208, kFacePanelWidth, kFacePanelHeight};
constexpr double kNumberPanelWidth = 2 * kMargin + 4 * kNumberDieSize + 3 * kSpace;
constexpr double kNumberPanelHeight = 2 * kMargin + 2 * kNumberDieSize + 2 * kSpace + kRollHeight;
constexpr Place kNumberPanel{1335 - kNumberPanelWidth, 208, kNumberPanelWidth, kNumberPanelHeight};

// A timer that runs while the field is on.
void RunWhile(QTimer& timer, const char* name, int interval, QWidget* panel, Field<bool>& running) {
  timer.setObjectName(QLatin1String(name));
  timer.setParent(panel);
  timer.setTimerType(Qt::PreciseTimer);
  timer.setInterval(interval);
  Follow<bool>(panel, running, [&timer](bool on) {
    if (on) {
      timer.start();
    } else {
      timer.stop();
    }
  });
}

// What a screen reader says of a die: "Red die: 5".
QString WithValue(const char* word, const std::string& number) {
  const QString name = QLatin1String(word);
  return number.empty() ? name : name + QStringLiteral(": ") + ToQt(number);
}

QPushButton* AddRoll(const char* name, const QString& word, QWidget* panel) {
  auto* roll = new QPushButton(QStringLiteral("ROLL"), panel);
  Name(roll, name, word);
  roll->setToolTip(QStringLiteral("Rolls these dice (X)"));
  return roll;
}

}  // namespace

FaceDie::FaceDie(Field<int>& face, const QColor& colour, const QColor& pips, QWidget* parent)
    : QWidget(parent), face_(face), colour_(colour), pips_(pips) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void FaceDie::paintEvent(QPaintEvent* /*event*/) {
  // Three rows of three places; which of them have a pip on each face.
  constexpr std::array<const char*, 6> faces{"....o....", "o.......o", "o...o...o",
                                             "o.o...o.o", "o.o.o.o.o", "o.oo.oo.o"};
  QPainter painter(this);
  const double side = std::min(width(), height());
  DrawPlate(painter, rect(), colour_, Qt::transparent, 0, side / 7);
  painter.setPen(Qt::NoPen);
  painter.setBrush(pips_);
  const double pip = side / 5.2;
  const char* places = faces.at(static_cast<std::size_t>(face_.value() - 1));
  for (int place = 0; place < 9; ++place) {
    if (places[place] != 'o') continue;
    const int row = place / 3;
    const int column = place % 3;
    const QPointF middle(width() * (0.25 + 0.25 * column), height() * (0.25 + 0.25 * row));
    painter.drawEllipse(middle, pip / 2, pip / 2);
  }
}

FaceDie* MakeFaceDie(AidsState& state, std::size_t die, QWidget* parent) {
  const FaceDieKind& kind = kFaceDiceSet.at(die);
  Field<int>& face = state.faces.at(die);
  auto* shown = new FaceDie(face, kind.colour, kind.pips, parent);
  Follow<int>(shown, face, [shown, &kind](int value) {
    Name(shown, kind.name, QStringLiteral("%1: %2").arg(QLatin1String(kind.word)).arg(value));
    shown->update();
  });
  return shown;
}

NumberPlate::NumberPlate(Colour ground, Colour figures, QWidget* parent)
    : QLabel(parent), ground_(Shade(ground)) {
  setAlignment(Qt::AlignCenter);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette palette = this->palette();
  palette.setColor(QPalette::WindowText, Shade(figures));
  setPalette(palette);
}

void NumberPlate::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    DrawPlate(painter, rect(), ground_, Qt::transparent, 0, std::min(width(), height()) / 7.0);
  }
  QLabel::paintEvent(event);
}

FaceDicePanel::FaceDicePanel(Aids& aids, Scene& scene, QWidget* parent)
    : DraggablePanel(scene, parent) {
  Name(this, "fra_SOMBBdice", QStringLiteral("Dice roller"));
  setToolTip(QStringLiteral("CTRL + Left Click to drag dice roller"));
  SetFill(kBoxGrey);
  scene.Put(this, kFacePanel);
  constexpr double kSecond = kMargin + kFaceDieSize + kSpace;
  constexpr std::array<QPointF, kFaceDice> places{
      {{kMargin, kSecond}, {kSecond, kMargin}, {kMargin, kMargin}}};
  for (std::size_t die = 0; die < places.size(); ++die) {
    scene.Put(MakeFaceDie(aids.state, die, this),
              {places[die].x(), places[die].y(), kFaceDieSize, kFaceDieSize});
  }
  auto* twenty = new NumberPlate({255, 255, 0}, {0, 0, 0}, this);
  Name(twenty, "lbl_20die", QStringLiteral("Twenty-sided die"));
  scene.Put(twenty, {kSecond, kSecond, kFaceDieSize, kFaceDieSize}, kHuge, true);
  Follow<std::string>(twenty, aids.state.lbl_20die, [twenty](const std::string& number) {
    twenty->setText(ToQt(number));
    twenty->setAccessibleName(WithValue("Twenty-sided die", number));
  });
  auto* roll = AddRoll("cmd_Roll", QStringLiteral("ROLL the dice"), this);
  scene.Put(roll,
            {kMargin, kSecond + kFaceDieSize + kSpace, kFacePanelWidth - 2 * kMargin, kRollHeight},
            kBody, true);
  connect(roll, &QPushButton::clicked, this, [this, &aids] {
    EndTextVisit(this);
    RollFaceDice(aids);
  });
  RunWhile(tmr_sombb_, "tmr_sombb", kFaceDiceInterval, this, aids.state.tmr_sombb);
  connect(&tmr_sombb_, &QTimer::timeout, this, [&aids] { TickFaceDice(aids); });
  BindVisible(this, aids.state.Check4);
}

NumberDicePanel::NumberDicePanel(Aids& aids, Scene& scene, QWidget* parent)
    : DraggablePanel(scene, parent, DragBy::Middle) {
  Name(this, "fra_BBgumBB", QStringLiteral("Numbered dice"));
  setToolTip(QStringLiteral("Ctrl + F12 hides these dice; drag them with the mouse"));
  SetFill(kPlateGrey);
  scene.Put(this, kNumberPanel);
  for (int i = 0; i < kNumberDice; ++i) {
    const NumberDie& kind = kNumberDiceSet.at(i);
    const int row = i / 4;
    const int column = i % 4;
    const double left = kMargin + column * (kNumberDieSize + kSpace);
    const double top = kMargin + row * (kNumberDieSize + kSpace);
    auto* shape = new NumberPlate(kind.colour, kind.figures, this);
    Name(shape, kind.shape, QLatin1String(kind.word));
    scene.Put(shape, {left, top, kNumberDieSize, kNumberDieSize});
    auto* label = MakeCaption({}, shape, Qt::AlignCenter);
    Name(label, kind.label, QLatin1String(kind.word));
    scene.Put(label, {0, 0, kNumberDieSize, kNumberDieSize}, kHuge, true);
    Follow<std::string>(label, aids.state.numbers.at(i), [label, &kind](const std::string& number) {
      label->setText(ToQt(number));
      label->setAccessibleName(WithValue(kind.word, number));
      label->setVisible(!number.empty());
    });
  }
  auto* roll = AddRoll("Command1", QStringLiteral("ROLL the numbered dice"), this);
  scene.Put(roll,
            {kMargin, kMargin + 2 * (kNumberDieSize + kSpace), kNumberPanelWidth - 2 * kMargin,
             kRollHeight},
            kBody, true);
  connect(roll, &QPushButton::clicked, this, [this, &aids] {
    EndTextVisit(this);
    RollNumberDice(aids);
  });
  RunWhile(tmrDice2_, "tmrDice2", kNumberDiceInterval, this, aids.state.tmrDice2);
  connect(&tmrDice2_, &QTimer::timeout, this, [&aids] { TickNumberDice(aids); });
  BindVisible(this, aids.state.fra_BBgumBB_visible);
}

}  // namespace dtb
