#include "windows/form4_busy.h"

#include <QApplication>
#include <QVBoxLayout>

#include "windows/look.h"
#include "windows/message_box.h"

namespace dtb {
namespace {

constexpr int kMoment = 250;  // milliseconds

}  // namespace

BusyPointer::BusyPointer() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  qApp->installEventFilter(this);
}

BusyPointer::~BusyPointer() { QApplication::restoreOverrideCursor(); }

bool BusyPointer::eventFilter(QObject* watched, QEvent* event) {
  const bool shown = event->type() == QEvent::Show;
  if ((shown || event->type() == QEvent::Hide) && qobject_cast<MessageBox*>(watched) != nullptr) {
    QApplication::changeOverrideCursor(shown ? Qt::ArrowCursor : Qt::WaitCursor);
  }
  return false;
}

OpeningProgress::OpeningProgress(QWidget* over) : Panel(over), bar_(new QProgressBar(this)) {
  setObjectName(QStringLiteral("OpeningProgress"));
  setAccessibleName(QStringLiteral("Reading the database"));
  SetFill(look::kSlate);
  auto* caption = MakeCaption(accessibleName(), this, Qt::AlignCenter);
  bar_->setTextVisible(false);
  bar_->setFixedHeight(8);
  bar_->setAccessibleName(accessibleName());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 20);
  column->setSpacing(12);
  column->addWidget(caption);
  column->addWidget(bar_);
  resize(320, sizeHint().height());
  move(over->rect().center() - rect().center());
  hide();
  since_.start();
}

void OpeningProgress::Hear(int done, int steps) {
  if (done >= steps) {
    hide();
    return;
  }
  if (since_.elapsed() < kMoment) return;
  bar_->setRange(0, steps);
  bar_->setValue(done);
  show();
  raise();
  // Nothing but the painting goes on meanwhile: input waits.
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace dtb
