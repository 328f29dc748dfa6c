#pragma once
// The times graph (picTimes) of the main window: it paints the items the
// console drew into its picture over the skin under them, two bars on a time
// axis as wide as the graph's scale, 15 units high, and PosLine running
// along it. The live display, the other drawing surface, has its own view
// (live_display_view.h).

#include <QWidget>

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"

namespace q {
class Picture;
class LineShape;
}  // namespace q

namespace q::gui {

class TimesGraphView : public QWidget {
  Q_OBJECT
 public:
  TimesGraphView(DeskContext& ctx, Picture& model, LineShape* posLine, const look::DeskItem& item,
                 QWidget* parent);

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  DeskContext& ctx_;
  Picture& model_;
  LineShape* posLine_;
  const look::DeskItem& item_;
  ViewBinding binding_;
  ViewBinding lineBinding_;
};

}  // namespace q::gui
