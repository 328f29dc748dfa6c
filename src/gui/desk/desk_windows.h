#pragma once
// The secondary windows the desk can show, each built over its console model
// the first time the console shows it.

namespace q::gui {

class WindowHost;

void addDeskWindows(WindowHost& host);

}  // namespace q::gui
