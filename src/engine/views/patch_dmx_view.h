#pragma once
// frmPatch: the patch by DMX channel, 64 to a page over 8 pages. Each box
// holds the console channel that feeds its DMX channel (0 for none) and
// takes what is typed at once, at every change of its text: a number from
// 0 to 512 is the new entry, anything else leaves the entry as it was.

#include "engine/views/patch_window.h"

namespace q {

class PatchDmxView : public PatchWindow {
 public:
  static constexpr int kLines = 64;
  static constexpr int kLastPage = 7;

  explicit PatchDmxView(Console& c);

  void CanviaPagina() override;

  Label& Command3;  // "1 to 1"
  Label& Command4;  // "Delete all"

 protected:
  bool hasNextPage() const override { return page < kLastPage; }

 private:
  void typed(int box);
};

}  // namespace q
