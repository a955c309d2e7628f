// Makes gestures one after the other, also while boxes and windows wait for the person.
#pragma once

#include "windows/boxes/message_box.h"

namespace dtb::replay {

// A gesture that opens a box or a modal window returns only when that is closed again, so the next
// gestures come from inside its event loop, and only after all events before them were delivered.
class Driver : public QObject {
 public:
  explicit Driver(int pause = 0) : pause_(pause) {}  // milliseconds between gestures
  // Runs the application until Finish; returns its status.
  int Run();

 protected:
  virtual void MakeGesture() = 0;
  // True when the box was closed.
  virtual bool Answer(MessageBox& box) = 0;
  // A gesture could not be made, or does not end.
  virtual void Refuse(const QString& reason) = 0;
  void Finish(int status);

 private:
  void Schedule();
  void Step();

  int pause_;
  int loops_ = 0;  // event loops that ran when the innermost gesture began; 0: no gesture
  int waits_ = 0;
  bool finished_ = false;
  QPointer<MessageBox> answered_;
};

}  // namespace dtb::replay
