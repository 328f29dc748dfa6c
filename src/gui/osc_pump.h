#pragma once
// OSC on the desk: the socket is read on the console thread when the event
// loop finds it readable, a slice at a time. While a dialog of the desk is
// open nothing is read: a message never lands inside the operator's dialog;
// it waits in the network's buffer (which drops the surplus of a flood) and
// is taken once the dialog closes.

#include <QObject>

class QSocketNotifier;

namespace q {
class LoOscPort;
}

namespace q::gui {

class QtDialogs;

class OscPump : public QObject {
  Q_OBJECT
 public:
  OscPump(LoOscPort& port, QtDialogs& dialogs, QObject* parent);

 private:
  void readable();

  LoOscPort& port_;
  QtDialogs& dialogs_;
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace q::gui
