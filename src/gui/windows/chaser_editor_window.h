#pragma once
// The chaser editors FX1Config and FX2Config on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildChaserEditorWindow(WindowHost& host, Window& model);

}  // namespace q::gui
