#pragma once
// Mobile, the X/Y control: a pad that drives two levels at once.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildXYWindow(WindowHost& host, Window& model);

}  // namespace q::gui
