#include "windows/boxes/log_window.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

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

}  // namespace dtb
