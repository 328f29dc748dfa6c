#pragma once
// Simple, the simple view: the cells of the column under edit, one widget painting them all.

#include <QColor>
#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QWidget>
#include <array>
#include <string>

#include "engine/core/channel_tables.h"
#include "gui/views/control_events.h"
#include "gui/views/view_binding.h"

namespace q {
class Simple;
}  // namespace q

namespace q::gui {

// The grid of cells, Canal(1) to Canal(512), thirty a row, painted by one
// widget: a wheel turn with every channel selected changes every caption at
// once, and one widget repaints them in one pass. Each cell repaints alone
// when only it changes. Presses go to the cell under the mouse.
class SimpleCellsView : public QWidget {
  Q_OBJECT
 public:
  SimpleCellsView(Simple& model, QWidget* parent);

  // The cell of a channel in the widget, and the channel at a point (0 for none).
  QRect cellRect(int channel) const;
  int channelAt(QPoint at) const;

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;

 private:
  Control* cell(int channel) const;
  void changed(int channel);
  const QStaticText& laidOut(const std::string& caption);

  std::array<ViewBinding, kChannels> cells_;
  MouseForwarder mouse_;
  int pressed_ = 0;  // the channel that has the mouse
  QColor back_;      // the window's, between the cells
  QRect dirty_;      // the cells changed since the last paint
  QHash<QString, QStaticText> texts_;
  QFont textsFont_;
};

}  // namespace q::gui
