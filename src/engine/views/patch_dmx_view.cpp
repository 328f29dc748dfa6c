#include "engine/views/patch_dmx_view.h"

#include "engine/core/console.h"

namespace q {

namespace {
const PatchSide kDmxSide = {
    "frmPatch",
    "frmInvPatch",
    "Patch",
    "DMX Channel - Quintara Channel",
    64,
    "Open patch file",
    "Save patch file as ...",
    "DeleteAll",
};
}  // namespace

PatchDmxView::PatchDmxView(Console& c)
    : PatchWindow(c, kDmxSide),
      Command3(add<Label>("Command3", "1 to 1")),
      Command4(add<Label>("Command4", "Delete all")) {
  Command3.onClick = [this] { oneToOne(); };
  Command4.onClick = [this] { deleteAll(); };
  for (int i = 1; i <= kLines; ++i) txtPatch(i).onChange = [this, i] { typed(i); };
  // Opening: page 0 filled from the first entries; the labels already read 1 to 64.
  page = 0;
  updating = true;
  for (int i = 1; i <= kLines; ++i) txtPatch(i).setText(std::to_string(c.v.PatchMap.get(i)));
  updating = false;
  showPatchOn();
}

void PatchDmxView::CanviaPagina() {
  updating = true;
  for (int i = 1; i <= kLines; ++i) {
    const int dmx = page * kLines + i;
    Channel(i - 1).setCaption(std::to_string(dmx));
    txtPatch(i).setText(std::to_string(c_.v.PatchMap.get(dmx)));
  }
  showRange(page * kLines + 1, page * kLines + kLines);
  updating = false;
}

// A number that rounds to 0..512 is the entry (0 frees the DMX channel);
// beyond that it is dropped without a word. Any number raises MixDirty.
void PatchDmxView::typed(int box) {
  if (updating) return;
  const auto n = parseNumber(txtPatch(box).text());
  if (!n) return;
  if (*n > -1 && *n < 513) {
    const long entry = roundHalfEven(*n);
    if (entry >= 0 && entry <= kChannels) c_.v.PatchMap.set(page * kLines + box, int16_t(entry));
  }
  c_.v.MixDirty = kTrue;
}

}  // namespace q
