#include "windows/boxes/busy.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "windows/boxes/message_box.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr int kFrame = 33;  // milliseconds between two pictures of the bar
constexpr int kBarSteps = 1000;

}  // namespace

BusyPointer::BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }

BusyPointer::~BusyPointer() { QApplication::restoreOverrideCursor(); }

ProgressPanel::ProgressPanel(const QString& caption, Work work, QWidget* over)
    : Panel(over),
      work_(work),
      caption_(MakeCaption(caption, this, Qt::AlignCenter)),
      bar_(new QProgressBar(this)) {
  setObjectName(QStringLiteral("ProgressPanel"));
  setAccessibleName(caption);
  SetFill(look::kSlate);
  bar_->setRange(0, kBarSteps);
  bar_->setTextVisible(false);
  bar_->setFixedHeight(8);
  bar_->setAccessibleName(caption);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 20);
  column->setSpacing(12);
  column->addWidget(caption_);
  column->addWidget(bar_);
  if (work == Work::Cancellable) {
    cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
    Name(cancel_, "cmd_Cancel", cancel_->text());
    column->addWidget(cancel_, 0, Qt::AlignCenter);
    connect(cancel_, &QPushButton::clicked, this, &ProgressPanel::Cancel);
  }
  resize(320, sizeHint().height());
  move(over->rect().center() - rect().center());
  hide();
  since_.start();
  sincePaint_.start();
}

ProgressPanel::~ProgressPanel() {
  qApp->removeEventFilter(this);
  if (focus_) focus_->setFocus(Qt::OtherFocusReason);
}

void ProgressPanel::Show() {
  if (isVisible()) return;
  show();
  raise();
  qApp->installEventFilter(this);
  if (cancel_ == nullptr) return;
  focus_ = QApplication::focusWidget();
  cancel_->setFocus(Qt::OtherFocusReason);
}

void ProgressPanel::Cancel() {
  cancelled_ = true;
  cancel_->setEnabled(false);
  caption_->setText(QStringLiteral("Cancelling"));
}

bool ProgressPanel::Hear(double share) {
  if (since_.elapsed() < moment || sincePaint_.elapsed() < std::min(kFrame, moment)) {
    return !cancelled_;
  }
  sincePaint_.start();
  bar_->setValue(qRound(share * kBarSteps));
  Show();
  QApplication::processEvents(work_ == Work::Cancellable ? QEventLoop::AllEvents
                                                         : QEventLoop::ExcludeUserInputEvents);
  return !cancelled_;
}

bool ProgressPanel::eventFilter(QObject* watched, QEvent* event) {
  if (MessageBox::Open() != nullptr) return false;
  const auto* widget = qobject_cast<const QWidget*>(watched);
  const bool ours = widget != nullptr && (widget == this || isAncestorOf(widget));
  switch (event->type()) {
    case QEvent::KeyPress: {
      // A key comes to the window first, which hands it on to the control with the focus.
      const bool escape = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
      if (escape && cancel_ != nullptr) Cancel();
      return escape || (widget != nullptr && !ours);
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
      return widget != nullptr && !ours;
    case QEvent::Close:
      event->ignore();
      return true;
    default:
      return false;
  }
}

}  // namespace dtb
