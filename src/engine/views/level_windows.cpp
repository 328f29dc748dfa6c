#include "engine/views/level_windows.h"

#include "engine/core/console.h"
#include "engine/views/channels_panel.h"
#include "engine/views/simple_view.h"
#include "engine/views/xy_control.h"

namespace q {

namespace {
template <class W>
void addWindow(Console& c, const char* name, const char* menu) {
  c.windows.setFactory(name, [&c] { return std::make_unique<W>(c); });
  c.form1.menu(menu).onClick = [&c, name] { c.windows.load(name).show(); };
}
}  // namespace

void addLevelWindows(Console& c) {
  addWindow<Canals>(c, "Canals", "mnuChanWin");
  addWindow<Simple>(c, "Simple", "mnuSimple");
  addWindow<Mobile>(c, "Mobile", "mnuMobile");
}

}  // namespace q
