#pragma once
// The windows in which the operator sets levels by hand besides the desk's
// strips: the channels panel (Canals), the simple view (Simple) and the X/Y
// control (Mobile). Each is opened from the Window menu as a normal window,
// made on first use.

namespace q {

class Console;

void addLevelWindows(Console& c);

}  // namespace q
