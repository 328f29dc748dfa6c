#include "engine/core/failure_box.h"

#include "engine/core/dialogs.h"

namespace q {

void FailureBox::report(const std::string& failure) {
  if (open_) {
    ++untold_;
    return;
  }
  std::string text = failure;
  if (untold_ == 1) text += " (1 more failure came while the last message was open)";
  if (untold_ > 1)
    text += " (" + std::to_string(untold_) + " more failures came while the last message was open)";
  untold_ = 0;
  // Open for as long as the box is on screen: on the desk the event loop
  // runs inside it, and the ticks with it.
  open_ = true;
  try {
    dialogs_.msgBox(kTitle, text, MsgButtons::OK, MsgIcon::Critical);
  } catch (...) {
    // The box itself failed; nothing more can be told.
  }
  open_ = false;
}

}  // namespace q
