// The application, with a net under all operations.
#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace dtb {

// Operations trap their own errors. What gets past them, out of a slot or an event, ends here: it
// is reported once the event is over, and the program goes on. The net lies under the events of the
// outermost loop, so that an operation that waits for a box traps what happens meanwhile.
class Application : public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}

  // Takes an error's number and description. None: the error output has it.
  using Report = std::function<void(int number, const std::string& description)>;
  void ReportTo(Report report) { report_ = std::move(report); }

  bool notify(QObject* receiver, QEvent* event) override;

  // While it lives the net lies under the events of the window that waits now, which stays open.
  class Net {
   public:
    Net();
    ~Net();
    Net(const Net&) = delete;
    Net& operator=(const Net&) = delete;

   private:
    Application* application_;
    int depth_ = 0;
  };

 private:
  void Tell(int number, const std::string& description);

  Report report_;
  int depth_ = 0;         // events of which one brought about the next
  bool telling_ = false;  // what fails again and again meanwhile, as painting may, is told once
};

}  // namespace dtb
