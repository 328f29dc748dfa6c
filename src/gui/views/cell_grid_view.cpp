#include "gui/views/cell_grid_view.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStaticText>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/controls/cell_grid.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

namespace {
QColor rgb(int v) { return QColor::fromRgb(QRgb(0xFF000000u | unsigned(v))); }
}  // namespace

CellGridView::CellGridView(CellGrid& model, double scale, QWidget* parent)
    : ControlWidget(parent, 1 / scale), scale_(scale) {
  setObjectName(QString::fromStdString(model.name()));
  setAttribute(Qt::WA_OpaquePaintEvent);
  binding_.bind(&model, [this] { syncFromModel(); });
  cellsListener_ = model.cells.listen([this](const TableChange& c) { cellsChanged(c); });
  binding_.onGone = [this] { cellsListener_ = 0; };
  syncFromModel();
}

CellGridView::~CellGridView() {
  if (CellGrid* m = model(); m && cellsListener_) m->cells.unlisten(cellsListener_);
}

CellGrid* CellGridView::model() const { return binding_.as<CellGrid>(); }

void CellGridView::setScale(double scale) {
  scale_ = scale;
  mouse_.setUnitsPerPixel(1 / scale);
  update();
}

void CellGridView::syncFromModel() {
  CellGrid* m = model();
  if (!m) return;
  setVisible(m->visible());
  setEnabled(m->enabled());
  pacedUpdate(this);
}

QRect CellGridView::cellRect(int row, int column) const {
  const CellGrid* m = model();
  if (!m) return {};
  // Edges are rounded, not sizes, so neighbouring cells always touch.
  const int x0 = int(std::lround(column * m->cellWidth * scale_));
  const int y0 = int(std::lround(row * m->cellHeight * scale_));
  const int x1 = int(std::lround((column + 1) * m->cellWidth * scale_));
  const int y1 = int(std::lround((row + 1) * m->cellHeight * scale_));
  return QRect(x0, y0, x1 - x0, y1 - y0);
}

void CellGridView::cellsChanged(const TableChange& c) {
  const CellGrid* m = model();
  if (!m) return;
  const int r0 = std::max(c.firstRow, 0), r1 = std::min(c.lastRow, m->rows - 1);
  const int c0 = std::max(c.firstColumn, 0), c1 = std::min(c.lastColumn, m->columns - 1);
  if (r0 > r1 || c0 > c1) return;
  pacedUpdate(this, cellRect(r0, c0).united(cellRect(r1, c1)));
}

void CellGridView::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  const CellGrid* m = model();
  if (!m) return;
  p.fillRect(e->rect(), rgb(m->backColor));
  painted_ = 0;
  const double cw = m->cellWidth * scale_, ch = m->cellHeight * scale_;
  if (cw <= 0 || ch <= 0) return;
  const QRect area = e->rect();
  const int r0 = std::max(0, int(area.top() / ch));
  const int r1 = std::min(m->rows - 1, int(area.bottom() / ch));
  const int c0 = std::max(0, int(area.left() / cw));
  const int c1 = std::min(m->columns - 1, int(area.right() / cw));
  QFont f = font();
  // A point is 20 twips.
  f.setPixelSize(std::max(6, int(std::lround(m->fontPoints * 20 * scale_))));
  QFont bold = f;
  bold.setBold(true);
  if (f.pixelSize() != cachedPixels_) {
    for (auto& c : textCache_) c.clear();
    cachedPixels_ = f.pixelSize();
  }

  // Backgrounds first, then the grid's lines (two a column and two a row,
  // where each cell would draw its own outline), then the texts.
  std::vector<CellGrid::Cell> cells;
  cells.reserve(size_t(std::max(0, (r1 - r0 + 1) * (c1 - c0 + 1))));
  for (int r = r0; r <= r1; ++r)
    for (int c = c0; c <= c1; ++c) {
      cells.push_back(m->cell(r, c));
      if (cells.back().backColor >= 0) p.fillRect(cellRect(r, c), rgb(cells.back().backColor));
      ++painted_;
    }
  if (m->gridColor >= 0 && r0 <= r1 && c0 <= c1) {
    p.setPen(rgb(m->gridColor));
    const int top = cellRect(r0, c0).top(), bottom = cellRect(r1, c0).bottom();
    const int left = cellRect(r0, c0).left(), right = cellRect(r0, c1).right();
    for (int c = c0; c <= c1; ++c) {
      const QRect box = cellRect(r0, c);
      p.drawLine(box.left(), top, box.left(), bottom);
      p.drawLine(box.right(), top, box.right(), bottom);
    }
    for (int r = r0; r <= r1; ++r) {
      const QRect box = cellRect(r, c0);
      p.drawLine(left, box.top(), right, box.top());
      p.drawLine(left, box.bottom(), right, box.bottom());
    }
  }
  const bool placed = m->textLeft >= 0 && m->textTop >= 0;
  const QPoint offset(int(std::lround(m->textLeft * scale_)),
                      int(std::lround(m->textTop * scale_)));
  int font = -1;
  QRgb pen = 0;
  size_t k = 0;
  for (int r = r0; r <= r1; ++r)
    for (int c = c0; c <= c1; ++c) {
      const CellGrid::Cell& cell = cells[k++];
      if (cell.text.empty()) continue;
      if (font != int(cell.bold)) {
        font = int(cell.bold);
        p.setFont(cell.bold ? bold : f);
      }
      const QRgb colour = rgb(cell.foreColor >= 0 ? cell.foreColor : m->foreColor).rgb();
      if (colour != pen) {
        pen = colour;
        p.setPen(QColor::fromRgb(colour));
      }
      const QRect box = cellRect(r, c);
      const QString text = QString::fromStdString(cell.text);
      if (placed) {
        drawPlaced(p, box.adjusted(offset.x(), offset.y(), 0, 0), text, cell.bold);
        continue;
      }
      const int align = cell.align == CellGrid::Cell::Align::Left    ? Qt::AlignLeft
                        : cell.align == CellGrid::Cell::Align::Right ? Qt::AlignRight
                                                                     : Qt::AlignHCenter;
      p.drawText(box.adjusted(2, 0, -2, 0), align | Qt::AlignVCenter, text);
    }
}

// A text from the top left corner of its place. The texts of a pane repeat
// (levels, numbers, channel numbers), so each is laid out once and kept; one
// wider than its place is cut at its edge.
void CellGridView::drawPlaced(QPainter& p, const QRect& place, const QString& text, bool bold) {
  QHash<QString, QStaticText>& cache = textCache_[bold ? 1 : 0];
  auto it = cache.find(text);
  if (it == cache.end()) {
    if (cache.size() > 4096) cache.clear();
    QStaticText st(text);
    st.setTextFormat(Qt::PlainText);
    st.prepare(QTransform(), p.font());
    it = cache.insert(text, st);
  }
  if (it->size().width() <= place.width()) {
    p.drawStaticText(place.topLeft(), *it);
    return;
  }
  p.drawText(place, Qt::AlignLeft | Qt::AlignTop, text);
}

void CellGridView::wheelEvent(QWheelEvent* e) {
  // The window scrolls with its own bars; the wheel goes to what lies under the pane.
  e->ignore();
}

}  // namespace q::gui
