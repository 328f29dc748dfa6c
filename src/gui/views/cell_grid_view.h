#pragma once
// A cell-grid pane bound to its console grid: the cell size is in the
// window's own units, scaled to pixels; a repaint draws only the cells it can
// see, and the grid's notices repaint only the cells that changed. A press is
// handed to the grid at its point in the window's units.

#include <QHash>
#include <QStaticText>
#include <QWidget>

#include "gui/views/control_widget.h"

namespace q {
class CellGrid;
struct TableChange;
}  // namespace q

namespace q::gui {

class CellGridView : public ControlWidget {
  Q_OBJECT
 public:
  // scale: pixels per window unit.
  CellGridView(CellGrid& model, double scale, QWidget* parent);
  ~CellGridView() override;

  CellGrid* model() const;
  void setScale(double scale);
  // The pixel rectangle of a cell.
  QRect cellRect(int row, int column) const;
  // How many cells the last repaint drew (for the measurements).
  int cellsPainted() const { return painted_; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;

 private:
  void cellsChanged(const TableChange& c);
  void syncFromModel();
  void drawPlaced(QPainter& p, const QRect& place, const QString& text, bool bold);

  double scale_;
  int cellsListener_ = 0;
  int painted_ = 0;
  // Texts laid out at the present type size, plain and bold.
  QHash<QString, QStaticText> textCache_[2];
  int cachedPixels_ = 0;
};

}  // namespace q::gui
