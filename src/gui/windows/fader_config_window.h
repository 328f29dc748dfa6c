#pragma once
// The fader configuration dialog, Config ("SliderConfig"), on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildFaderConfigWindow(WindowHost& host, Window& model);

}  // namespace q::gui
