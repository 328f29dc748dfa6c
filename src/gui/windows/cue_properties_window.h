#pragma once
// CueProps, the properties of one cue, on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildCuePropertiesWindow(WindowHost& host, Window& model);

}  // namespace q::gui
