#include "windows/board/runner_drag.h"

#include <QMenu>
#include <QPainter>

#include "game/base_running.h"
#include "game/bases.h"
#include "game/batting_order.h"
#include "game/play_words.h"
#include "platform/qt/qt_text.h"
#include "teams/pinch_runner.h"
#include "windows/board/piece_view.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr QPoint kBesidePointer{14, 18};
constexpr int kTagMargin = 6;
constexpr qsizetype kLongestWords = 120;

// A small plate, as the notices are.
class Tag : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      look::DrawPlate(painter, rect(), look::kSlate, look::kEdge, 1);
    }
    QLabel::paintEvent(event);
  }
};

}  // namespace

RunnerDrag::RunnerDrag(Board& board, Side side, QWidget* list)
    : board_(board), side_(side), list_(list) {}

void RunnerDrag::Begin(int row) {
  row_ = row;
  before_.reset();
  if (KeepsBases(board_.state)) before_.emplace(Remember(board_));
}

bool RunnerDrag::Move(const QPoint& place) {
  const auto piece = row_ ? PieceUnder(place) : std::nullopt;
  const auto base = row_ ? BaseUnder(place) : std::nullopt;
  if (!piece && !base) {
    HideAll();
    return false;
  }
  if (base) {
    Targets()->Light(base, PlacesFor(board_.state, std::nullopt));
  } else if (KeepsBases(board_.state)) {
    Targets()->hide();
  }
  ShowTag(ToQt(base ? WordsOnBase(*base) : ReplacementOn(board_, side_, *row_, *piece).words),
          place);
  return true;
}

std::string RunnerDrag::WordsOnBase(int base) const {
  const std::string name = PlayerAt(SideOf(board_, side_).list, *row_);
  const std::string why = WhyNotOnBase(before_->state, name, base);
  return why.empty() ? name + " begins on " + BaseName(base) : why;
}

bool RunnerDrag::End(const QPoint& place) {
  const auto piece = row_ ? PieceUnder(place) : std::nullopt;
  const auto base = row_ ? BaseUnder(place) : std::nullopt;
  HideAll();
  const std::optional<int> row = row_;
  row_.reset();
  if (base) BeginOnBase(board_, side_, *row, *base, *before_);
  before_.reset();
  if (piece) ComeIn(board_, side_, *row, *piece);
  return piece || base;
}

void RunnerDrag::HideAll() {
  if (tag_) tag_->hide();
  if (KeepsBases(board_.state)) Targets()->hide();
}

BaseTargets* RunnerDrag::Targets() const {
  return list_->window()->findChild<BaseTargets*>(QString(), Qt::FindChildrenRecursively);
}

std::optional<int> RunnerDrag::BaseUnder(const QPoint& place) const {
  if (!before_ || !KeepsBases(board_.state) || !SideOf(board_, side_).atBat.value())
    return std::nullopt;
  if (PieceUnder(place)) return std::nullopt;
  const BaseTargets* targets = Targets();
  const QPoint pointer = targets->parentWidget()->mapFromGlobal(place);
  // A row that is only moved within its list passes over no base.
  if (list_->rect().contains(list_->mapFromGlobal(place))) return std::nullopt;
  const auto base = targets->At(pointer, pointer);
  return base && *base <= kThirdBase ? base : std::nullopt;
}

std::optional<bool> RunnerDrag::ShowMenu(int row, const QPoint& place) {
  const std::vector<int> pieces = PiecesToComeInOn(board_, side_, row);
  if (pieces.empty()) return std::nullopt;
  QMenu menu(list_);
  menu.setObjectName(QStringLiteral("mnuRow"));
  const auto add = [&menu](const QString& caption) {
    return menu.addAction(
        caption.left(kLongestWords).replace(QLatin1Char('&'), QStringLiteral("&&")));
  };
  const QAction* read = add(QStringLiteral("Read the whole line"));
  menu.addSeparator();
  std::vector<const QAction*> actions;
  actions.reserve(pieces.size());
  for (const int piece : pieces) {
    actions.push_back(add(ToQt(ReplacementOn(board_, side_, row, piece).words)));
  }
  const QAction* chosen = menu.exec(place);
  for (std::size_t i = 0; i < actions.size(); ++i) {
    if (chosen == actions[i]) ComeIn(board_, side_, row, pieces[i]);
  }
  return chosen == read;
}

// What lies over a piece takes the place of it.
std::optional<int> RunnerDrag::PieceUnder(const QPoint& place) const {
  const QWidget* window = list_->window();
  for (const QWidget* hit = window->childAt(window->mapFromGlobal(place)); hit != nullptr;
       hit = hit->parentWidget()) {
    if (const auto* piece = qobject_cast<const PieceView*>(hit)) return piece->piece();
  }
  return std::nullopt;
}

void RunnerDrag::ShowTag(const QString& words, const QPoint& place) {
  QWidget* window = list_->window();
  if (!tag_) {
    tag_ = new Tag(window);
    tag_->setObjectName(QStringLiteral("RunnerTag"));
    tag_->setAttribute(Qt::WA_TransparentForMouseEvents);
    tag_->setTextFormat(Qt::PlainText);
    tag_->setMargin(kTagMargin);
    QPalette palette = look::Palette();
    palette.setColor(QPalette::WindowText, look::kCream);
    tag_->setPalette(palette);
  }
  tag_->setFont(list_->font());
  tag_->setText(words.left(kLongestWords));
  tag_->adjustSize();
  QPoint corner = window->mapFromGlobal(place) + kBesidePointer;
  corner.setX(std::min(corner.x(), window->width() - tag_->width()));
  corner.setY(std::min(corner.y(), window->height() - tag_->height()));
  tag_->move(corner);
  tag_->show();
  tag_->raise();
}

}  // namespace dtb
