#pragma once
// Canals, the channels panel: 32 skinned faders a page over the column under edit.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildChannelsWindow(WindowHost& host, Window& model);

}  // namespace q::gui
