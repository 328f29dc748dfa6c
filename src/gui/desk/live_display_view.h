#pragma once
// The live display (Picture1) on the desk: the items the mixer drew into the
// picture, over the skin: texts on a grid of 25-unit slots, or a bar per
// channel growing upward. A right click goes to the console, which pops up
// the screen menu.
//
// The mixer redraws the whole strip at every mix, but from one mix to the
// next only some slots change (a chaser moves the levels, the channel
// numbers stay): the view compares the new drawing with the one it last
// asked for, item by item, and repaints only the cells of the items that
// differ, at the pace of the screen.

#include <QRegion>
#include <QWidget>
#include <vector>

#include "engine/controls/picture.h"
#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"
#include "gui/views/static_text_cache.h"

namespace q::gui {

class LiveDisplayView : public QWidget {
  Q_OBJECT
 public:
  LiveDisplayView(DeskContext& ctx, Picture& model, const look::DeskItem& item, QWidget* parent);

  // How many times the view was asked to repaint by the console (for the frame measurements).
  int refreshes() const { return refreshes_; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  // Where the strip's units land on the widget at its present size and zoom.
  struct Scale {
    QSize size;
    double zoom = 0;
    double sx = 1, sy = 1, bar = 1;
    QFont number, level;
  };
  const Scale& scale();
  void modelChanged();
  // The pixels an item covers (a little more, never less).
  QRect areaOf(const DrawItem& it, const Scale& s);
  const QStaticText& laidOut(const DrawItem& it, const Scale& s);
  void paintItem(QPainter& p, const DrawItem& it, const Scale& s);

  DeskContext& ctx_;
  Picture& model_;
  const look::DeskItem& item_;
  ViewBinding binding_;
  int refreshes_ = 0;
  // The drawing the pixels will show once the repaints asked for are done.
  std::vector<DrawItem> shown_;
  StaticTextCache numbers_, levels_;
  Scale scale_;
};

}  // namespace q::gui
