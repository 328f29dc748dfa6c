#include "gui/osc_pump.h"

#include <QSocketNotifier>
#include <QTimer>

#include "gui/qt_dialogs.h"
#include "platform/osc/lo_osc_port.h"

namespace q::gui {

namespace {
constexpr int kDialogWaitMs = 50;
}

OscPump::OscPump(LoOscPort& port, QtDialogs& dialogs, QObject* parent)
    : QObject(parent), port_(port), dialogs_(dialogs) {
  if (port_.wakeFd() < 0) return;
  notifier_ = new QSocketNotifier(port_.wakeFd(), QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, [this] { readable(); });
}

void OscPump::readable() {
  if (dialogs_.open()) {
    notifier_->setEnabled(false);
    QTimer::singleShot(kDialogWaitMs, this, [this] { notifier_->setEnabled(true); });
    return;
  }
  port_.pump();
}

}  // namespace q::gui
