#include "windows/shared/hand_over.h"

#include <utility>

namespace dtb {

HandOver::HandOver() {
  connect(this, &HandOver::given, this, &HandOver::Take, Qt::QueuedConnection);
}

// A call that Qt queues could carry it as well, but the thread sanitizer knows no lock of Qt.
void HandOver::Give(std::function<void()> what) {
  {
    const std::scoped_lock lock(guard_);
    waiting_.push_back(std::move(what));
  }
  emit given();
}

void HandOver::Take() {
  std::function<void()> what;
  {
    const std::scoped_lock lock(guard_);
    what = std::move(waiting_.front());
    waiting_.pop_front();
  }
  what();
}

}  // namespace dtb
