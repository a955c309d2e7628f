#include "windows/board/base_tracker.h"

#include "game/runners.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr Place kPanel{1043, 680, 128, 128};
constexpr double kBase = 28;

}  // namespace

BaseTracker::BaseTracker(Board& board, Scene& scene, QWidget* parent)
    : DraggablePanel(scene, parent) {
  Name(this, "pb_BaseTracker", QStringLiteral("Base tracker"));
  setToolTip(QStringLiteral("CTRL + Left Click to drag the base tracker"));
  SetFill(look::kBoxGrey);
  scene.Put(this, kPanel);
  struct Square {
    const char* name;
    const char* word;
    double left;
    double top;
  };
  constexpr std::array<Square, 3> bases{{{"lbl_tracker1", "First base", 88, 50},
                                         {"lbl_tracker2", "Second base", 50, 12},
                                         {"lbl_tracker3", "Third base", 12, 50}}};
  for (int base = 0; base < 3; ++base) {
    const Square& square = bases.at(base);
    auto* label = new ClickLabel({}, {}, this);
    Name(label, square.name, QLatin1String(square.word));
    label->setToolTip(QLatin1String(square.word));
    scene.Put(label, {square.left, square.top, kBase, kBase});
    Follow<Colour>(label, board.state.lbl_tracker.at(base), [label](const Colour& colour) {
      const QColor shade = look::Shade(colour);
      label->SetShades({shade, shade, look::kInk});
    });
    connect(label, &QAbstractButton::clicked, this, [&board, base] { ToggleBase(board, base); });
  }
  auto* home = new Panel(this);
  Name(home, "lbl_tracker", QStringLiteral("Home"));
  home->SetFill(Qt::white);
  home->setAttribute(Qt::WA_TransparentForMouseEvents);
  scene.Put(home, {50, 88, kBase, kBase});
  BindVisible(this, board.state.pb_BaseTracker_visible);
}

}  // namespace dtb
