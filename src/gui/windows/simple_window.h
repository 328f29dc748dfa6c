#pragma once
// Simple, the simple view: a cell per channel in use, the selection and the wheel.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildSimpleWindow(WindowHost& host, Window& model);

}  // namespace q::gui
