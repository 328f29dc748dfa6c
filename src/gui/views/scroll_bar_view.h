#pragma once
// A scroll bar bound to its console scroller (the live display's HScroll1, a
// window's scroll bars and sliders): the operator's moves set the scroller,
// the console's moves only show.

#include <QScrollBar>

#include "gui/views/view_binding.h"

namespace q {
class Scroller;
}

namespace q::gui {

class ScrollBarView : public QScrollBar {
  Q_OBJECT
 public:
  ScrollBarView(Scroller& model, QWidget* parent, Qt::Orientation o = Qt::Horizontal);

 private:
  void syncFromModel();

  ViewBinding binding_;
};

}  // namespace q::gui
