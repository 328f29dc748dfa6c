#pragma once
// What the operator sees when a handler fails where nothing else catches it:
// a timer tick, a menu choice, a widget event. One box titled "Quintara"
// names what failed, and the console goes on. A handler that fails at every
// tick must not bury the desk under boxes: while one box is open, further
// failures are only counted, and the next box says how many there were.

#include <string>

namespace q {

class Dialogs;

class FailureBox {
 public:
  explicit FailureBox(Dialogs& dialogs) : dialogs_(dialogs) {}

  // Shows "what failed: why" unless a failure box is open already.
  void report(const std::string& failure);
  bool open() const { return open_; }
  // Failures that came while a box was open and have not been told yet.
  long untold() const { return untold_; }

  static constexpr const char* kTitle = "Quintara";

 private:
  Dialogs& dialogs_;
  bool open_ = false;
  long untold_ = 0;
};

}  // namespace q
