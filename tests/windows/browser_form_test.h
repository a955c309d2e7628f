// The browser's window over a database of its own.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QAction>
#include <fstream>

#include "windows/browser/browser_window.h"
#include "windows/window_test.h"

namespace dtb {

// A part of a season.
inline constexpr const char* kArchive = DTB_PROGRAM_FOLDER "/../tests/archive/2020-part.zip";

class BrowserFormTest : public WindowTest {
 protected:
  // An empty database, and then these statements.
  void MakeDatabase(const std::string& statements) {
    std::ifstream schema(DTB_PROGRAM_FOLDER "/schema.sql");
    const std::string file = FromQt(folder_.filePath(QStringLiteral("DTB.mdb")));
    SQLite::Database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(std::string{std::istreambuf_iterator<char>(schema), {}} + statements);
  }

  // Opens the form from the menu and runs the action, which closes it, while it is in front.
  void Open(const std::function<void()>& action) {
    WhenTrue(
        [] {
          const auto* form = qobject_cast<BrowserWindow*>(QApplication::activeModalWidget());
          return form != nullptr && form->Settled();
        },
        action);
    form1().findChild<QAction*>(QStringLiteral("mnuStatistics"))->trigger();
    QCoreApplication::processEvents();  // the menu has its answer first
    EXPECT_EQ(form1().findChild<BrowserWindow*>(), nullptr) << "created for each opening";
  }

  BrowserWindow& form() { return *form1().findChild<BrowserWindow*>(); }

  template <class T = QWidget>
  T* Part(const char* name) {
    T* part = form().findChild<T*>(QLatin1String(name));
    EXPECT_NE(part, nullptr) << name;
    return part;
  }

  // Esc in a search box would leave only that.
  void CloseForm() {
    if (QWidget* focus = form().focusWidget()) focus->clearFocus();
    Press(&form(), Qt::Key_Escape);
  }
};

}  // namespace dtb
