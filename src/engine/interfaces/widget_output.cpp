#include "engine/interfaces/widget_output.h"

#include "engine/interfaces/dmxusbpro_driver.h"

namespace q {

void WidgetOutput::started() {
  held_.reset();
  if (pro_.IsOpen()) {
    policy_.up();
  } else {
    policy_.off();
  }
}

void WidgetOutput::stopped() {
  policy_.off();
  held_.reset();
}

void WidgetOutput::sendFrame(const uint8_t* frame) {
  const int64_t nowMs = now();
  if (policy_.lost()) tryToComeBack(nowMs);
  if (!policy_.isUp()) return;
  // A changed frame goes at once; a standing one again after a second.
  const bool changed = held_.nextHandOver(frame) == INT64_MIN;
  if (held_.pass(frame, nowMs)) {
    pro_.Set_DMX_OUT(frame);
    if (!changed) pro_.RefreshDMX();
  }
  // A failed write closes the widget's port.
  if (!pro_.IsOpen()) return lose(nowMs);
  policy_.sent();
}

void WidgetOutput::lose(int64_t nowMs) {
  pro_.Done();
  if (policy_.lose(nowMs) && hooks_.notice) hooks_.notice(ReconnectPolicy::lostText(kName));
}

// A try opens the link and asks; the answer is taken at the ticks that
// follow, until the next try is due and starts over.
void WidgetOutput::tryToComeBack(int64_t nowMs) {
  if (pro_.ReopenAnswered()) {
    policy_.up();
    held_.reset();
    return;
  }
  if (policy_.tryNow(nowMs)) pro_.Reopen();
}

}  // namespace q
