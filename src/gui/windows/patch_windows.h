#pragma once
// The twin patch windows, frmPatch (by DMX channel) and frmInvPatch (by
// console channel), on the desk, each with its menu bar.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildPatchWindow(WindowHost& host, Window& model);
FormView* buildInvPatchWindow(WindowHost& host, Window& model);

}  // namespace q::gui
