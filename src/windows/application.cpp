#include "windows/application.h"

#include <QTimer>
#include <cstdio>
#include <utility>

#include "base/program_error.h"

namespace dtb {

Application::Net::Net() : application_(dynamic_cast<Application*>(qApp)) {
  if (application_ != nullptr) depth_ = std::exchange(application_->depth_, 0);
}

Application::Net::~Net() {
  if (application_ != nullptr) application_->depth_ = depth_;
}

bool Application::notify(QObject* receiver, QEvent* event) {
  // Counts down however it is left.
  struct Depth {
    explicit Depth(int& count) : depth(count) { ++depth; }
    ~Depth() { --depth; }
    int& depth;
  } const inside(depth_);
  if (depth_ > 1) return QApplication::notify(receiver, event);
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
