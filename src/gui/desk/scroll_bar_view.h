#pragma once
// A horizontal scroll bar bound to its console scroller (the live display's
// HScroll1): the operator's moves set the scroller, the console's moves only
// show.

#include <QScrollBar>

#include "gui/desk/desk_context.h"

namespace q {
class Scroller;
}

namespace q::gui {

class ScrollBarView : public QScrollBar {
  Q_OBJECT
 public:
  ScrollBarView(Scroller& model, QWidget* parent);

 private:
  void syncFromModel();

  Scroller& model_;
  ViewBinding binding_;
};

}  // namespace q::gui
