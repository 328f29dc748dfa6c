#pragma once
// The desk's application object. Qt hands every event through notify(); a
// console handler that throws inside one (a menu choice, a press on a
// fader, a key) is caught there instead of ending the desk. The operator is
// told what failed, once the event has been dealt with, and the desk goes on.

#include <QApplication>
#include <functional>
#include <string>

namespace q::gui {

class GuardedApplication : public QApplication {
  Q_OBJECT
 public:
  GuardedApplication(int& argc, char** argv);
  ~GuardedApplication() override;

  bool notify(QObject* receiver, QEvent* event) override;

  // Told what failed ("Fader(3) failed: ..."); the desk shows it in the
  // console's failure box. Without it the failure goes to standard error.
  std::function<void(const std::string& failure)> onFailure;

  // The running desk's application, or null when the application is a plain one.
  static GuardedApplication* instance();

 private:
  void tell(const std::string& failure);
};

}  // namespace q::gui
