#pragma once
// The DMX USB PRO as the output tick drives it, beside its driver: the
// frame goes to the widget when a level changed, and the levels held go
// again about once a second while they stand, because only a write finds
// out that the widget has gone (unplugged, or its program ended on the
// other side of a serial link). A widget that was open and is found gone
// is lost: the operator is told once, and the console reopens the link by
// itself at most once a second until the widget answers, then sends the
// levels the stage had.

#include <cstdint>
#include <functional>
#include <string>

#include "engine/interfaces/held_frame_gate.h"
#include "engine/interfaces/reconnect_policy.h"

namespace q {

class DMXUSBPRO_Driver;

class WidgetOutput {
 public:
  struct Hooks {
    std::function<int64_t()> nowMs;
    // Tells the operator without waiting for an answer.
    std::function<void(const std::string& text)> notice;
  };
  static constexpr const char* kName = "Enttec DMXUSB PRO";

  WidgetOutput(DMXUSBPRO_Driver& pro, Hooks hooks) : pro_(pro), hooks_(std::move(hooks)) {}

  // After the widget's Init: watched when it answered, left alone when not.
  void started();
  // Console thread, at each output tick.
  void sendFrame(const uint8_t* frame);
  void stopped();
  OutputHealth health() const { return policy_.health(); }
  bool lost() const { return policy_.lost(); }

 private:
  void lose(int64_t nowMs);
  void tryToComeBack(int64_t nowMs);
  int64_t now() const { return hooks_.nowMs ? hooks_.nowMs() : 0; }

  DMXUSBPRO_Driver& pro_;
  Hooks hooks_;
  ReconnectPolicy policy_;
  HeldFrameGate held_;
};

}  // namespace q
