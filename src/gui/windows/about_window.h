#pragma once
// The About window, frmAbout, on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildAboutWindow(WindowHost& host, Window& model);

}  // namespace q::gui
