#include "windows/log_window.h"

#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "windows/controls.h"
#include "windows/look.h"

namespace dtb {

LogWindow::LogWindow(EventLog& log, QWidget* parent)
    : QDialog(parent), log_(log), text_(new QPlainTextEdit(this)) {
  setObjectName(QStringLiteral("Options"));
  setWindowTitle(QStringLiteral("Event Log"));
  resize(520, 600);
  auto* title = MakeCaption(QStringLiteral("EVENT LOG"), this, Qt::AlignCenter);
  title->setObjectName(QStringLiteral("Label1"));
  title->setFont(look::Font(look::kLarge, true));
  text_->setObjectName(QStringLiteral("Text1"));
  text_->setAccessibleName(QStringLiteral("EVENT LOG"));
  text_->setReadOnly(true);
  text_->setFont(look::Font(look::kBody));
  text_->setFrameShape(QFrame::NoFrame);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(8);
  column->addWidget(title);
  column->addWidget(text_);
  log.Observe([this] { ShowText(); });
  ShowText();
}

void LogWindow::ShowText() {
  const std::string& log = log_.text();
  // The usual change is one more line; anything else shows the text anew.
  if (shownBytes_ == 0 || log.size() < shownBytes_) {
    text_->setPlainText(ToQt(log));
  } else {
    QTextCursor end(text_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(ToQt(std::string_view(log).substr(shownBytes_)));
  }
  shownBytes_ = log.size();
  text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum());
}

void CenterForm(QWidget* window, const QWidget* over) {
  const QRect frame = over->frameGeometry();
  QPoint place = frame.center() - QPoint(window->width() / 2, window->height() / 2);
  if (const QScreen* screen = over->screen()) {
    const QRect free = screen->availableGeometry();
    place.setX(
        std::clamp(place.x(), free.left(), std::max(free.left(), free.right() - window->width())));
    place.setY(
        std::clamp(place.y(), free.top(), std::max(free.top(), free.bottom() - window->height())));
  }
  window->move(place);
}

}  // namespace dtb
