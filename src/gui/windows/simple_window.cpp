// Simple, the simple view. Along the top: the wheel between its two ends,
// the selection buttons, the current channel and the key that folds the
// grid away; below, thirty cells a row, each row headed by its first
// channel. Folded, the window keeps only the top, and the wheel still works.

#include "gui/windows/simple_window.h"
#include "gui/windows/window_builders.h"

#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>
#include <utility>

#include "engine/views/simple_view.h"
#include "gui/desk/desk_context.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/picture_view.h"
#include "gui/views/repaint_pacer.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// Places in twips.
constexpr int kMargin = 120;
constexpr int kWheelLeft = kMargin;
constexpr int kWheelWidth = Simple::kWheelWidth * 15;
constexpr int kWheelHeight = Simple::kWheelHeight * 15;
constexpr int kEndHeight = 150;
constexpr int kGridTop = 1950;
constexpr int kRowHead = 600;  // the row labels' column
constexpr int kCellPitchX = 450;
constexpr int kCellPitchY = 540;
constexpr int kWidth = kMargin + kRowHead + Simple::kRowCells * kCellPitchX + kMargin;

// An end of the wheel: a shaded lip that makes the wheel look round.
class WheelEnd : public PictureButton {
 public:
  WheelEnd(Lamp& model, bool top) : PictureButton(&model, {}, nullptr), top_(top) {}

 protected:
  void paintFace(QPainter& p) override {
    QLinearGradient g(0, 0, 0, height());
    const QColor rim(0x0B, 0x0C, 0x0F), lit(0x4A, 0x52, 0x5E);
    g.setColorAt(0, top_ ? rim : lit);
    g.setColorAt(1, top_ ? lit : rim);
    p.fillRect(rect(), g);
  }

 private:
  bool top_;
};

// The window's height follows the fold; the unfold key shows while folded.
class FoldFollower : public QObject {
 public:
  FoldFollower(FormView* view, Simple& model, Label& unfold) : QObject(view), view_(view) {
    binding_.bind(&unfold, [this, &model] { view_->setSizeTwips(kWidth, model.heightTwips); });
  }

 private:
  FormView* view_;
  ViewBinding binding_;
};
}  // namespace

SimpleCellsView::SimpleCellsView(Simple& model, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromStdString(model.name() + ".Canal"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  back_ = model.backColor >= 0 ? DeskContext::colour(model.backColor) : QColor(Qt::black);
  for (int ch = 1; ch <= kChannels; ++ch)
    cells_[ch - 1].bind(&model.Canal(ch), [this, ch] { changed(ch); });
}

Control* SimpleCellsView::cell(int channel) const {
  return channel >= 1 && channel <= kChannels ? cells_[channel - 1].control() : nullptr;
}

// Changes until the next paint are gathered into the one rectangle that
// holds them: a single cell repaints alone, a whole turn of the wheel once.
void SimpleCellsView::changed(int channel) {
  dirty_ |= cellRect(channel);
  pacedUpdate(this, dirty_);
}

QRect SimpleCellsView::cellRect(int channel) const {
  const int r = (channel - 1) / Simple::kRowCells, col = (channel - 1) % Simple::kRowCells;
  const double sx = width() / double(Simple::kRowCells * kCellPitchX);
  const double sy = height() / double(Simple::kRows * kCellPitchY);
  // Edges are rounded, so the gaps between cells stay even at every zoom.
  const int x0 = int(std::lround(col * kCellPitchX * sx));
  const int y0 = int(std::lround(r * kCellPitchY * sy));
  const int x1 = int(std::lround((col * kCellPitchX + kCellPitchX - 30) * sx));
  const int y1 = int(std::lround((r * kCellPitchY + kCellPitchY - 60) * sy));
  return QRect(x0, y0, std::max(1, x1 - x0), std::max(1, y1 - y0));
}

int SimpleCellsView::channelAt(QPoint at) const {
  if (width() <= 0 || height() <= 0) return 0;
  const int col = at.x() * Simple::kRowCells / width();
  const int r = at.y() * Simple::kRows / height();
  if (at.x() < 0 || at.y() < 0 || col >= Simple::kRowCells || r >= Simple::kRows) return 0;
  const int channel = r * Simple::kRowCells + col + 1;
  Control* c = cell(channel);
  return c && c->visible() && cellRect(channel).contains(at) ? channel : 0;
}

void SimpleCellsView::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  p.fillRect(e->rect(), back_);
  dirty_ = QRect();
  if (font() != textsFont_) {
    texts_.clear();
    textsFont_ = font();
  }
  p.setFont(font());
  p.setPen(Qt::black);
  for (int ch = 1; ch <= kChannels; ++ch) {
    const QRect box = cellRect(ch);
    if (!e->rect().intersects(box)) continue;
    auto* c = dynamic_cast<ChannelCell*>(cell(ch));
    if (!c || !c->visible()) continue;
    p.fillRect(box, DeskContext::colour(c->backColor()));
    if (c->caption().empty()) continue;
    const QStaticText& text = laidOut(c->caption());
    const QSizeF size = text.size();
    p.drawStaticText(QPointF(box.left() + (box.width() - size.width()) / 2,
                             box.top() + (box.height() - size.height()) / 2),
                     text);
  }
}

// The cells show a few hundred different numbers: each is laid out once.
const QStaticText& SimpleCellsView::laidOut(const std::string& caption) {
  const QString key = QString::fromStdString(caption);
  auto found = texts_.find(key);
  if (found != texts_.end()) return *found;
  QStaticText text(key);
  text.setTextFormat(Qt::PlainText);
  text.prepare(QTransform(), font());
  return *texts_.insert(key, text);
}

void SimpleCellsView::mousePressEvent(QMouseEvent* e) {
  pressed_ = channelAt(e->position().toPoint());
  if (Control* c = cell(pressed_)) mouse_.press(*c, *e);
}

void SimpleCellsView::mouseReleaseEvent(QMouseEvent* e) {
  const int channel = std::exchange(pressed_, 0);
  Control* c = cell(channel);
  if (!c) return;
  // The click comes only when the mouse is let go over the cell it pressed.
  if (channelAt(e->position().toPoint()) == channel)
    mouse_.release(*c, *e, *this);
  else
    c->mouseUp(mouse_.event(*e, MouseButton(consoleButton(e->button()))));
}

// A double click is its own event here, with no second press after it, so
// the colour it leaves on the cell stands.
void SimpleCellsView::mouseDoubleClickEvent(QMouseEvent* e) {
  if (Control* c = cell(channelAt(e->position().toPoint())))
    c->dblClick(mouse_.event(*e, MouseButton(consoleButton(e->button()))));
}

FormView* buildSimpleWindow(WindowHost& host, Window& model) {
  auto& s = dynamic_cast<Simple&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(kWidth, s.heightTwips);

  view->at(new WheelEnd(s.PicDalt, true), {kWheelLeft, 60, kWheelWidth, kEndHeight});
  view->at(new PictureView(s.Picture4, nullptr),
           {kWheelLeft, 60 + kEndHeight, kWheelWidth, kWheelHeight});
  view->at(new WheelEnd(s.PicBaix, false),
           {kWheelLeft, 60 + kEndHeight + kWheelHeight, kWheelWidth, kEndHeight});

  const int buttons = kWheelLeft + kWheelWidth + 240;
  view->at(new ButtonView(s.cmdAll, nullptr), {buttons, 120, 1100, 390});
  view->at(new ButtonView(s.cmdNone, nullptr), {buttons, 600, 1100, 390});
  view->at(new ButtonView(s.cmdNext, nullptr), {buttons + 1200, 120, 1100, 390});
  view->at(new ButtonView(s.cmdLast, nullptr), {buttons + 1200, 600, 1100, 390});
  view->at(new ButtonView(s.btnZero, nullptr), {buttons + 2400, 120, 1500, 390});
  // Unfold lies over fold: one key, shown as the one that applies.
  view->at(new ButtonView(s.Command1(1), nullptr), {buttons + 2400, 600, 1500, 390});
  view->at(new ButtonView(s.Command1(0), nullptr), {buttons + 2400, 600, 1500, 390});
  view->at(new QLabel(QObject::tr("Channel:")), {buttons, 1140, 1000, 330});
  view->at(new TextBoxView(s.Text1, nullptr), {buttons + 1200, 1110, 1100, 360});

  for (int r = 0; r < Simple::kRows; ++r) {
    auto* head = new LabelView(&s.RowLabel(r), nullptr);
    head->alignment = Qt::AlignRight | Qt::AlignVCenter;
    view->at(head, {kMargin, kGridTop + r * kCellPitchY, kRowHead - 90, kCellPitchY - 60});
  }
  view->at(
      new SimpleCellsView(s, nullptr),
      {kMargin + kRowHead, kGridTop, Simple::kRowCells * kCellPitchX, Simple::kRows * kCellPitchY});
  new FoldFollower(view, s, s.Command1(0));
  return view;
}

}  // namespace q::gui
