#include "windows/sheet/proof_view.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>

#include "platform/qt/qt_text.h"
#include "sheet/reckoning.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

// A line of the list: its words, wrapped, as a button that goes to the cell.
class FindingLine : public QAbstractButton {
 public:
  explicit FindingLine(const QString& words) {
    setText(words);
    setAccessibleName(words);
    setAttribute(Qt::WA_Hover);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
  }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override {
    const QRect room(0, 0, width - 2 * Margin(), 10000);
    return fontMetrics().boundingRect(room, Qt::TextWordWrap, text()).height() + 2 * Margin();
  }
  [[nodiscard]] QSize sizeHint() const override { return {100, heightForWidth(width())}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    if (underMouse() || isDown()) DrawPlate(painter, rect(), kSlateHover, Qt::transparent, 0);
    if (hasFocus()) DrawFocus(painter, rect());
    painter.setPen(kCream);
    painter.drawText(rect().adjusted(Margin(), 0, -Margin(), 0),
                     Qt::TextWordWrap | Qt::AlignVCenter | Qt::AlignLeft, text());
  }

 private:
  [[nodiscard]] int Margin() const { return fontMetrics().height() / 3; }
};

QPushButton* MakeButton(const QString& caption, const char* name, double type) {
  auto* button = new QPushButton(caption);
  Name(button, name, caption);
  button->setFont(Font(type));
  button->setAutoDefault(false);
  const QFontMetrics metrics(button->font());
  button->setFixedSize(metrics.horizontalAdvance(caption) + 2 * metrics.height(),
                       metrics.height() * 2);
  return button;
}

}  // namespace

ProofPlate::ProofPlate(QWidget* parent) : QAbstractButton(parent) {
  Name(this, "ProofPlate");
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void ProofPlate::Show(Board& board, const std::vector<Finding>& findings) {
  agrees_ = findings.empty();
  QString words = ToQt(ProofSummary(findings));
  const auto visitors = LeftOnBase(board, Side::Visitors);
  const auto home = LeftOnBase(board, Side::Home);
  if (agrees_ && visitors && home) {
    words += QStringLiteral("\nLeft on base\n%1 and %2").arg(*visitors).arg(*home);
  }
  setText(words);
  setAccessibleName(QString(words).replace(QLatin1Char('\n'), QLatin1Char(' ')));
  setToolTip(agrees_ ? QStringLiteral("The figures of the box score agree with each other")
                     : QStringLiteral("Ctrl + P or a click shows what does not agree"));
  update();
}

void ProofPlate::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool active = underMouse() || isDown();
  DrawPlate(painter, rect(), active ? kSlateHover : kSlateRaised, agrees_ ? kEdge : kAccent,
            agrees_ ? 1 : 2);
  if (hasFocus()) DrawFocus(painter, rect());
  painter.setPen(kCream);
  // "2 figures / to look at": no word alone on its line.
  const QString words = QString(text()).replace(QLatin1String(" to "), QLatin1String("\nto "));
  painter.drawText(rect().adjusted(4, 2, -4, -2), Qt::AlignCenter | Qt::TextWordWrap, words);
}

bool ProofPlate::event(QEvent* event) {
  if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) update();
  return QAbstractButton::event(event);
}

ProofList::ProofList(QWidget* parent) : Panel(parent), column_(new QVBoxLayout(this)) {
  Name(this, "ProofList", QStringLiteral("Proof of the box score"));
  SetFill(kSlate);
  SetLit(true);
  setFocusPolicy(Qt::StrongFocus);
  hide();
}

void ProofList::Show(const std::vector<Finding>& findings, double type) {
  // From a button that goes Qt would take the focus to one outside the list.
  const QWidget* focus = window()->focusWidget();
  if (focus != nullptr && isAncestorOf(focus)) setFocus(Qt::OtherFocusReason);
  while (QLayoutItem* item = column_->takeAt(0)) {
    if (item->widget() != nullptr) {
      item->widget()->hide();
      item->widget()->deleteLater();
    }
    delete item;
  }
  const int gap = qRound(type);
  column_->setContentsMargins(gap, gap, gap, gap);
  title_ = MakeCaption(ToQt(ProofSummary(findings)), this);
  title_->setFont(Font(type * kLarge / kBody, true));
  column_->addWidget(title_);
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page_ = new QWidget;
  auto* lines = new QVBoxLayout(page_);
  lines->setContentsMargins(0, 0, 0, 0);
  std::vector<Finding> mendable;
  for (const Finding& finding : findings) {
    AddLine(finding, type, lines);
    if (finding.canBePutRight) mendable.push_back(finding);
  }
  if (findings.empty()) {
    auto* agrees =
        MakeCaption(QStringLiteral("The figures of the box score agree with each other."), page_);
    agrees->setFont(Font(type));
    lines->addWidget(agrees);
  }
  lines->addStretch();
  scroll->setMinimumHeight(1);  // else Qt would keep room for a bar
  scroll->setWidget(page_);
  column_->addWidget(scroll, 1);
  AddButtons(mendable, type);
}

int ProofList::WholeHeight(int width) const {
  const QMargins margins = column_->contentsMargins();
  const int inside = width - margins.left() - margins.right();
  const QLayout& lines = *page_->layout();
  const int linesHeight =
      lines.hasHeightForWidth() ? lines.heightForWidth(inside) : lines.sizeHint().height();
  return margins.top() + title_->sizeHint().height() + linesHeight + buttons_->sizeHint().height() +
         2 * column_->spacing() + margins.bottom();
}

void ProofList::AddLine(const Finding& finding, double type, QVBoxLayout* lines) {
  auto* row = new QHBoxLayout;
  auto* words = new FindingLine(ToQt(finding.words));
  words->setObjectName(QStringLiteral("Finding%1").arg(lines->count() + 1));
  words->setFont(Font(type));
  connect(words, &QAbstractButton::clicked, this, [this, finding] { emit cellWanted(finding); });
  row->addWidget(words, 1);
  if (finding.canBePutRight) {
    const QByteArray name = "PutRight" + QByteArray::number(lines->count() + 1);
    QPushButton* put = MakeButton(QStringLiteral("Put right"), name.constData(), type);
    put->setToolTip(finding.kind == FindingKind::BatterNotSaved
                        ? QStringLiteral("He is saved with the game")
                        : QStringLiteral("The cell becomes \"%1\"").arg(ToQt(finding.ought)));
    connect(put, &QPushButton::clicked, this, [this, finding] { emit putRightWanted({finding}); });
    row->addWidget(put, 0, Qt::AlignVCenter);
  }
  lines->addLayout(row);
}

void ProofList::AddButtons(const std::vector<Finding>& mendable, double type) {
  buttons_ = new QWidget;
  auto* row = new QHBoxLayout(buttons_);
  row->setContentsMargins(0, 0, 0, 0);
  row->addStretch();
  if (!mendable.empty()) {
    QPushButton* all = MakeButton(QStringLiteral("Put all right"), "PutAllRight", type);
    connect(all, &QPushButton::clicked, this, [this, mendable] { emit putRightWanted(mendable); });
    row->addWidget(all);
  }
  QPushButton* close = MakeButton(QStringLiteral("Close"), "CloseProof", type);
  connect(close, &QPushButton::clicked, this, &ProofList::closed);
  row->addWidget(close);
  column_->addWidget(buttons_);
}

void ProofList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    emit closed();
  } else {
    Panel::keyPressEvent(event);
  }
}

}  // namespace dtb
