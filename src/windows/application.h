// The application, with a net under all operations.
#pragma once

#include <QApplication>
#include <functional>
#include <string>

namespace dtb {

// Operations trap their own errors. What gets past them, out of a slot or an event, ends here: it
// is reported once the event is over, and the program goes on.
class Application : public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {}

  // Takes an error's number and description. None: the error output has it.
  using Report = std::function<void(int number, const std::string& description)>;
  void ReportTo(Report report) { report_ = std::move(report); }

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void Tell(int number, const std::string& description);

  Report report_;
  bool telling_ = false;  // what fails again and again meanwhile, as painting may, is told once
};

}  // namespace dtb
