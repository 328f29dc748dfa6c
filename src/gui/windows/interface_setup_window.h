#pragma once
// The interface setup window, Refreshrate ("Interface setup"), on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildInterfaceSetupWindow(WindowHost& host, Window& model);

}  // namespace q::gui
