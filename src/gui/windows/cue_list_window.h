#pragma once
// Cuewin, the cue list, on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildCueListWindow(WindowHost& host, Window& model);

}  // namespace q::gui
