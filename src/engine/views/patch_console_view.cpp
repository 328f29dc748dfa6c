#include "engine/views/patch_console_view.h"

#include <array>

#include "engine/core/console.h"

namespace q {

namespace {
const PatchSide kConsoleSide = {
    "frmInvPatch", "frmPatch",    "Reverse Patch", "Quintara Channel - DMX Channel", 20,
    "Open",        "Save as ...", "Delete all",
};

bool blank(const std::string& s) { return s.find_first_not_of(" \t") == std::string::npos; }
}  // namespace

PatchConsoleView::PatchConsoleView(Console& c) : PatchWindow(c, kConsoleSide) {
  for (int i = 1; i <= kLines; ++i)
    txtPatch(i).onKeyPress = [this, i](int& key) {
      if (key == 13) entered(i);
    };
  page = 0;
  CanviaPagina();
  showPatchOn();
}

bool PatchConsoleView::hasNextPage() const { return page * kLines < c_.v.MaxChans; }

void PatchConsoleView::CanviaPagina() {
  updating = true;
  const int first = page * kLines;
  std::array<std::string, kLines + 1> lists;
  for (int d = 1; d <= kChannels; ++d) {
    const int entry = c_.v.PatchMap.get(d);
    if (entry > first && entry < first + kLines + 1)
      lists[size_t(entry - first)] += std::to_string(d) + ",";
  }
  for (int i = 1; i <= kLines; ++i) {
    Channel(i - 1).setCaption(std::to_string(first + i));
    txtPatch(i).setText(lists[size_t(i)]);
  }
  showRange(first + 1, first + kLines);
  updating = false;
}

// Enter: the list gets its closing comma, then each number in front of a
// comma patches that DMX channel here. A number outside 1..512 stops the
// list there with one message; the channels before it stay patched.
void PatchConsoleView::entered(int box) {
  TextBox& t = txtPatch(box);
  if (t.text().empty() || t.text().back() != ',') t.setText(t.text() + ",");
  const int console = page * kLines + box;
  if (console > kChannels) {
    refuse("console channel " + std::to_string(console) + " is beyond 512; nothing was patched");
    return;
  }
  const std::string list = t.text();
  size_t from = 0;
  for (size_t comma = list.find(','); comma != std::string::npos; comma = list.find(',', from)) {
    const std::string piece = list.substr(from, comma - from);
    from = comma + 1;
    if (blank(piece)) continue;  // no number in front of this comma
    const double n = leadingNumber(piece);
    const long dmx = n > 0 && n < kChannels + 1 ? roundHalfEven(n) : 0;
    if (dmx < 1 || dmx > kChannels) {
      c_.v.MixDirty = kTrue;
      refuse("DMX channel \"" + piece + "\" is outside 1 to 512; the list was patched up to it");
      return;
    }
    c_.v.PatchMap.set(int(dmx), int16_t(console));
  }
  c_.v.MixDirty = kTrue;
  CanviaPagina();
}

}  // namespace q
