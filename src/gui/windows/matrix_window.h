#pragma once
// frmSparseMatrix, the channels matrix, on the desk: a window the operator
// sizes, whose grid grows with it.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildMatrixWindow(WindowHost& host, Window& model);

}  // namespace q::gui
