#include "engine/controls/handler_scope.h"

#include <vector>

namespace q {

namespace {
// The console runs on one thread; each thread that drives a console keeps its own.
thread_local std::vector<std::function<void()>> pending;
}  // namespace

int& HandlerScope::depth() {
  thread_local int d = 0;
  return d;
}

HandlerScope::~HandlerScope() {
  if (--depth() == 0) runPending();
}

void HandlerScope::whenIdle(std::function<void()> fn) {
  if (idle()) {
    fn();
    return;
  }
  pending.push_back(std::move(fn));
}

void HandlerScope::runPending() {
  // Pending work may itself post more (a destructor unloading a window).
  while (!pending.empty()) {
    std::vector<std::function<void()>> now;
    now.swap(pending);
    // What this round posts waits for the next one.
    struct Busy {
      Busy() { ++depth(); }
      ~Busy() { --depth(); }
    } busy;
    for (auto& fn : now) fn();
  }
}

}  // namespace q
