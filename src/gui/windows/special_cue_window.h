#pragma once
// SpCue, the special cue dialog, on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildSpecialCueWindow(WindowHost& host, Window& model);

}  // namespace q::gui
