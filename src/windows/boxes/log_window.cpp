#include "windows/boxes/log_window.h"

#include <QScrollBar>
#include <QVBoxLayout>
#include <array>

#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"

namespace dtb {
namespace {

constexpr QSize kUsualSize(520, 600);  // layout units

}  // namespace

LogWindow::LogWindow(EventLog& log, QWidget* parent)
    : QDialog(parent),
      log_(log),
      title_(MakeCaption(QStringLiteral("EVENT LOG"), this, Qt::AlignCenter)),
      text_(new QPlainTextEdit(this)),
      outcome_(MakeCaption({}, this)),
      copy_(AddButton("cmd_Copy", QStringLiteral("Copy"),
                      QStringLiteral("Copies the whole log to the clipboard"))),
      save_(AddButton("cmd_Save", QStringLiteral("Save..."),
                      QStringLiteral("Writes the log into a text file of your choice"))),
      close_(AddButton("cmd_Close", QStringLiteral("Close"),
                       QStringLiteral("Closes the window; the log goes on"))) {
  setObjectName(QStringLiteral("Options"));
  setWindowTitle(QStringLiteral("Event Log"));
  title_->setObjectName(QStringLiteral("Label1"));
  Name(text_, "Text1", QStringLiteral("EVENT LOG"));
  text_->setReadOnly(true);
  text_->setFrameShape(QFrame::NoFrame);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setPlaceholderText(QStringLiteral("Nothing has been recorded yet."));
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(outcome_, 1);
  for (QPushButton* button : {copy_, save_, close_}) row->addWidget(button);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(8);
  column->addWidget(title_);
  column->addWidget(text_);
  column->addLayout(row);
  connect(copy_, &QPushButton::clicked, this, &LogWindow::copyWanted);
  connect(save_, &QPushButton::clicked, this, &LogWindow::saveWanted);
  connect(close_, &QPushButton::clicked, this, &QDialog::accept);
  log.Observe([this] { ShowText(); }, WhileItLives(this));
  ShowText();
}

QPushButton* LogWindow::AddButton(const char* name, const QString& caption, const QString& tip) {
  QPushButton* button = MakeButton(name, caption, tip, this);
  button->setFocusPolicy(Qt::TabFocus);  // Space after a click saves nothing again
  return button;
}

void LogWindow::Tell(const QString& outcome) { outcome_->setText(outcome); }

void LogWindow::FollowBoard() {
  const double scale = TakeTypeOfBoard(*this, std::array{copy_, save_, close_}, title_);
  PlaceOverBoard(*this, kUsualSize, scale);
}

void LogWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    FollowBoard();
    Tell({});
    text_->setFocus(Qt::OtherFocusReason);
    layout()->activate();
    ShowEnd();
  }
  QDialog::showEvent(event);
}

void LogWindow::ShowEnd() {
  text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum());
}

void LogWindow::ShowText() {
  const std::string& log = log_.text();
  // The usual change is one more line; anything else shows the whole text again.
  if (shownBytes_ == 0 || log.size() < shownBytes_) {
    text_->setPlainText(ToQt(log));
  } else {
    QTextCursor end(text_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(ToQt(std::string_view(log).substr(shownBytes_)));
  }
  shownBytes_ = log.size();
  for (QPushButton* button : {copy_, save_}) button->setEnabled(!log.empty());
  ShowEnd();
}

}  // namespace dtb
