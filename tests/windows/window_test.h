// What the tests of the windows share: a board with two teams, on a screen that nobody sees.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
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
    ASSERT_TRUE(folder_.isValid());
    Desk::Setup setup;
    setup.programFolder = FromQt(folder_.path());
    setup.settingsFile = folder_.filePath(QStringLiteral("settings.ini"));
    desk_ = std::make_unique<Desk>(setup);
    desk_->Open();
  }

  // Two teams of twelve, both pitchers, the visitors at bat with their first man.
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
  Form1& form1() { return desk_->form1(); }

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

  // Runs while the next box is open, or the next window that waits.
  static void WhileWaiting(std::function<void()> action) {
    QTimer::singleShot(0, qApp, [action = std::move(action)] {
      if (MessageBox::Open() != nullptr || QApplication::activeModalWidget() != nullptr) {
        action();
      } else {
        WhileWaiting(action);
      }
    });
  }

  QTemporaryDir folder_;
  std::unique_ptr<Desk> desk_;
};

}  // namespace dtb
