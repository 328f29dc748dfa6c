#pragma once
// Opens a file as a drop on the main window does (show, cue list, submasters
// or channels, by its extension), with the file's own folder as the current
// folder while it loads: a show whose index names its companions without a
// folder finds them beside it, wherever the desk was started from.

#include <string>

namespace q {
class Console;
}

namespace q::gui {

void openAsDropped(Console& c, const std::string& path);

}  // namespace q::gui
