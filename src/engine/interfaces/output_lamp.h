#pragma once
// OutputLamp on the main window: the output's health at a glance. Lit
// (`Led_On2`) with the caption "sending" while the chosen adapter takes its
// frames, dark with "not reachable" while it is lost or did not come up,
// hidden when the chosen interface has no output the console can watch
// (none, the parallel ports, the vendor libraries). The caption is also the
// lamp's tooltip on the desk.

#include <string>

#include "engine/controls/lamp.h"
#include "engine/interfaces/reconnect_policy.h"

namespace q {

class OutputLamp : public Lamp {
 public:
  static constexpr const char* kSending = "sending";
  static constexpr const char* kNotReachable = "not reachable";

  explicit OutputLamp(std::string name) : Lamp(std::move(name)) { setVisible(false); }

  void show(OutputHealth health) {
    health_ = health;
    const bool watched = health != OutputHealth::None;
    const bool sending = health == OutputHealth::Sending;
    std::string caption = !watched ? "" : sending ? kSending : kNotReachable;
    if (caption != caption_) {
      caption_ = std::move(caption);
      toolTip = caption_;
      notifyView();
    }
    setPicture(sending ? "Led_On2" : "");
    setVisible(watched);
  }
  OutputHealth health() const { return health_; }
  const std::string* captionText() const override { return &caption_; }

 private:
  std::string caption_;
  OutputHealth health_ = OutputHealth::None;
};

}  // namespace q
