#include "windows/application.h"

#include <QTimer>
#include <cstdio>

#include "shell/program_error.h"

namespace dtb {

bool Application::notify(QObject* receiver, QEvent* event) {
  bool handled = false;
  TrappedBy([this](int number, const std::string& description) { Tell(number, description); },
            [&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

void Application::Tell(int number, const std::string& description) {
  std::fprintf(stderr, "Error %d: %s\n", number, description.c_str());
  if (telling_ || !report_) return;
  telling_ = true;
  QTimer::singleShot(0, this, [this, number, description] {
    if (report_) report_(number, description);
    telling_ = false;
  });
}

}  // namespace dtb
