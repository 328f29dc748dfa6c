#pragma once
// The desk's background work: a long file is read on a thread of its own
// while the desk's loop goes on with the timers, the painting and the
// remote port. The operator's mouse and keys wait until the read has ended,
// so nothing he does meets a load half taken in.

#include "engine/core/background_work.h"

namespace q::gui {

class QtBackgroundWork : public BackgroundWork {
 public:
  void run(const std::function<void()>& job) override;
};

}  // namespace q::gui
