// What the tests of the windows share: a board with two teams, on a screen that nobody sees.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/qt/qt_text.h"
#include "teams/pitchers.h"
#include "teams/team_load.h"
#include "windows/desk.h"

namespace dtb {

inline void WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    waiting_ = std::make_unique<QObject>();
    ASSERT_TRUE(folder_.isValid());
    setup_.programFolder = FromQt(folder_.path());
    setup_.settingsFile = folder_.filePath(QStringLiteral("settings.ini"));
    desk_ = std::make_unique<Desk>(setup_);
    desk_->Open();
  }

  void TearDown() override { waiting_.reset(); }

  // Two teams of twelve, both pitchers, the visitors at bat with their first player.
  void StartGame() {
    for (const auto& [side, name] : {std::pair{Side::Visitors, "Ants"}, {Side::Home, "Bees"}}) {
      QByteArray lines;
      for (int i = 1; i <= 12; ++i) lines += QByteArray(name) + ' ' + QByteArray::number(i) + '\n';
      const QString file = folder_.filePath(QLatin1String(name) + QStringLiteral(".txt"));
      WriteFile(file, lines);
      OpenTeam(board(), side, FromQt(file));
      SideOf(board(), side).list.Select(9);
      ChangePitcher(board(), side);
    }
    PutAtBat(board(), Side::Visitors);
    board().state.List1.Select(0);
  }

  Board& board() { return desk_->board(); }
  BoardWindow& form1() { return desk_->form1(); }

  template <class T = QWidget>
  T* Find(const char* name) {
    T* found = form1().findChild<T*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }

  // A real click, through the window, at a place of the control.
  void Click(QWidget* control, Qt::KeyboardModifiers modifiers = {},
             Qt::MouseButton button = Qt::LeftButton, QPoint place = {}) {
    if (place.isNull()) place = control->rect().center();
    QWidget* window = control->window();
    QTest::mouseClick(window->windowHandle(), button, modifiers, control->mapTo(window, place));
  }

  void DoubleClick(QWidget* control, QPoint place = {}) {
    if (place.isNull()) place = control->rect().center();
    QWidget* window = control->window();
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, control->mapTo(window, place));
  }

  void Press(QWidget* window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window->windowHandle(), key, modifiers);
  }

  void Type(QWidget* window, const char* text) {
    for (; *text != '\0'; ++text) QTest::keyClick(window->windowHandle(), *text);
  }

  // Runs as soon as the condition holds; what still waits at the end of a test answers no later
  // one.
  static void WhenTrue(const std::function<bool()>& condition,
                       const std::function<void()>& action) {
    QTimer::singleShot(0, waiting_.get(),
                       [=] { condition() ? action() : WhenTrue(condition, action); });
  }

  // Runs while the next box is open, or the next window that waits.
  static void WhileWaiting(const std::function<void()>& action) {
    WhenTrue(
        [] {
          return MessageBox::Open() != nullptr || QApplication::activeModalWidget() != nullptr;
        },
        action);
  }

  // Answers the boxes that come from now on, one after the other; returns their messages.
  std::shared_ptr<QStringList> AnswerBoxes(std::vector<Qt::Key> keys) {
    auto messages = std::make_shared<QStringList>();
    AnswerNext(std::move(keys), messages, nullptr);
    return messages;
  }

 private:
  static inline std::unique_ptr<QObject> waiting_;

  static void AnswerNext(const std::vector<Qt::Key>& keys,
                         const std::shared_ptr<QStringList>& messages,
                         const QPointer<MessageBox>& last) {
    if (keys.empty()) return;
    // A new box may stand where the last one stood in memory.
    const auto newBox = [last] {
      return MessageBox::Open() != nullptr && MessageBox::Open() != last;
    };
    WhenTrue(newBox, [=] {
      MessageBox* box = MessageBox::Open();
      messages->append(box->message());
      AnswerNext({keys.begin() + 1, keys.end()}, messages, box);
      QTest::keyClick(box->window()->windowHandle(), keys.front());
    });
  }

 protected:
  QTemporaryDir folder_;
  Desk::Setup setup_;  // what a test puts into it before SetUp counts
  std::unique_ptr<Desk> desk_;
};

}  // namespace dtb
