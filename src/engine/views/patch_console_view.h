#pragma once
// frmInvPatch: the patch by console channel, 20 to a page, as far as the
// channels in use go. Each box lists the DMX channels its console channel
// feeds, rising, each closed by a comma. Enter in a box patches every DMX
// channel it names to that console channel; a channel taken out of the
// list keeps its entry (the other window frees it).

#include "engine/views/patch_window.h"

namespace q {

class PatchConsoleView : public PatchWindow {
 public:
  static constexpr int kLines = 20;

  explicit PatchConsoleView(Console& c);

  void CanviaPagina() override;

 protected:
  // The step forward is tested before it is taken: the last page reached is
  // the first that starts at or beyond MaxChans.
  bool hasNextPage() const override;

 private:
  void entered(int box);
};

}  // namespace q
