#pragma once
// The desk itself: the skin as background and on it a widget for every
// control of the layout, bound to that control by its console name. The
// whole surface scales by the zoom; the layout never changes.

#include <QWidget>
#include <vector>

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"

namespace q::gui {

class DeskSurface : public QWidget {
  Q_OBJECT
 public:
  DeskSurface(DeskContext& ctx, QWidget* parent);

  // Places every widget at the present zoom and repaints.
  void relayout();
  // Repaints every widget: after a file or a dialog may have changed what no
  // control announces (a knob picture, a tool tip).
  void repaintAll();
  // The widget of a control by its console name; null when the desk has none.
  QWidget* widgetFor(const std::string& control) const;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QWidget* build(const look::DeskItem& item);

  DeskContext& ctx_;
  std::vector<std::pair<QWidget*, const look::DeskItem*>> parts_;
};

}  // namespace q::gui
