#pragma once
// The on-screen keypad, Tecles ("Keyboard"), on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildKeypadWindow(WindowHost& host, Window& model);

}  // namespace q::gui
