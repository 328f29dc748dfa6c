#pragma once
// Operator events, timer ticks and the console's own calls run handlers that
// may unload the very window they belong to (APPLY closes the fader
// configuration). A window's model is therefore destroyed only once the
// outermost handler has returned: every event entry point opens a
// HandlerScope, and work posted with whenIdle() runs when the last one closes.

#include <functional>

namespace q {

class HandlerScope {
 public:
  HandlerScope() { ++depth(); }
  ~HandlerScope();
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;

  // True when no handler is running.
  static bool idle() { return depth() == 0; }
  // Runs fn once no handler is running: at once when none is.
  static void whenIdle(std::function<void()> fn);

 private:
  static int& depth();
  static void runPending();
};

}  // namespace q
