// The way of what a thread has read to the thread of the windows.
#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

namespace dtb {

// Stands before the thread among the members of its owner, so that it outlives that.
class HandOver : public QObject {
  Q_OBJECT
 public:
  HandOver();

  // Any thread may call it. What is given runs soon in the thread of the windows, in the order of
  // giving; never once this object is gone.
  void Give(std::function<void()> what);

 signals:
  void given();

 private:
  void Take();

  std::mutex guard_;
  std::deque<std::function<void()>> waiting_;
};

}  // namespace dtb
