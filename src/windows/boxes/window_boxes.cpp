#include "windows/boxes/window_boxes.h"

#include <QApplication>
#include <algorithm>

#include "game/board_state.h"
#include "platform/qt/qt_text.h"

namespace dtb {
namespace {

constexpr double kLeastScale = 0.5;  // of the type, however small the board

// A box without a title of its own has the program's.
QString TitleOr(const std::string& title) {
  return title.empty() ? QStringLiteral("Kelvane Diamond Table") : ToQt(title);
}

}  // namespace

void WindowBoxes::ShowRecorded(const std::string& message, BoxAlignment alignment) {
  Run({ToQt(message), {}, BoxIcon::None, alignment, false});
}

void WindowBoxes::Confirm(const std::string& message, const std::string& counted) {
  if (quick_ == nullptr || !quick_->value() || mainWindow_.isNull()) {
    ShowRecorded(message, BoxAlignment::Centred);
    return;
  }
  ShowNotice(message, counted);
}

void WindowBoxes::Notify(const std::string& message) {
  if (!mainWindow_.isNull()) ShowNotice(message, {});
}

void WindowBoxes::ShowNotice(const std::string& message, const std::string& counted) {
  if (!notices_) notices_ = new Notices(mainWindow_->centralWidget());
  const bool atPlate = keepsBases_ != nullptr && keepsBases_->value();
  notices_->Show(ToQt(message), ToQt(counted), Scale(),
                 atPlate ? Notices::Stand::Right : Notices::Stand::Middle);
}

void WindowBoxes::Show(const std::string& message, BoxIcon icon, const std::string& title) {
  Run({ToQt(message), TitleOr(title), icon, BoxAlignment::Left, false});
}

bool WindowBoxes::Ask(const Question& question) {
  // Where Yes is usual nothing is at stake.
  const BoxIcon icon = question.yesIsUsual ? BoxIcon::Information : BoxIcon::Exclamation;
  return Run({ToQt(question.text), TitleOr(question.title), icon, BoxAlignment::Left, true,
              question.yesIsUsual});
}

std::size_t WindowBoxes::Choose(const Choice& choice) {
  QString text = ToQt(choice.text);
  if (!choice.lines.empty()) text += QLatin1Char('\n');
  for (const std::string& line : choice.lines) {
    text += QStringLiteral("\n\u2013 ") + ToQt(line);
  }
  QStringList answers;
  for (const std::string& answer : choice.answers) answers += ToQt(answer);
  return static_cast<std::size_t>(
      MessageBox::RunChoice(Front(),
                            {text, TitleOr(choice.title), choice.icon, BoxAlignment::Left, true,
                             false, answers, static_cast<int>(choice.usual)},
                            Scale()));
}

bool WindowBoxes::Run(const MessageBox::Content& content) const {
  return MessageBox::Run(Front(), content, Scale());
}

QWidget* WindowBoxes::Front() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : mainWindow_.data();
}

double WindowBoxes::Scale() const {
  if (mainWindow_.isNull()) return 1;
  const QSizeF board = mainWindow_->centralWidget()->size();
  return std::max(kLeastScale,
                  std::min(board.width() / kSceneWidth, board.height() / kSceneHeight));
}

}  // namespace dtb
