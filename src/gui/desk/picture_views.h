#pragma once
// The two drawing surfaces of the main window. Both paint the items the
// console drew into its picture, over the skin under them.
// - The live display (Picture1): texts on a grid of 25-unit slots, or a bar
//   per channel growing upward; a right click goes to the console, which
//   pops up the screen menu.
// - The times graph (picTimes): two bars on a time axis as wide as the
//   graph's scale, 15 units high, and PosLine running along it.

#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QWidget>

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"

namespace q {
class Picture;
class LineShape;
}  // namespace q

namespace q::gui {

class LiveDisplayView : public QWidget {
  Q_OBJECT
 public:
  LiveDisplayView(DeskContext& ctx, Picture& model, const look::DeskItem& item, QWidget* parent);

  // How many times the view was asked to repaint by the console (for the frame measurements).
  int refreshes() const { return refreshes_; }

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  // The display shows the same few hundred numbers over and over: each is
  // laid out once per font and then only blitted.
  const QStaticText& laidOut(const std::string& text, const QFont& font);

  DeskContext& ctx_;
  Picture& model_;
  const look::DeskItem& item_;
  ViewBinding binding_;
  int refreshes_ = 0;
  QHash<QString, QStaticText> texts_;
  QFont textsFont_[2];  // the fonts texts_ was laid out in: numbers, levels
};

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
