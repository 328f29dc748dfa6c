// Simple, the simple view. Along the top: the wheel between its two ends,
// the selection buttons, the current channel and the key that folds the
// grid away; below, thirty cells a row, each row headed by its first
// channel. Folded, the window keeps only the top, and the wheel still works.

#include "gui/windows/simple_window.h"

#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include "engine/views/simple_view.h"
#include "gui/desk/desk_context.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/picture_view.h"
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

// A cell: its level on the colour that says whether it is selected. A double
// click is its own event here, with no second press after it, so the colour
// it leaves stands.
class CellView : public LabelView {
 public:
  explicit CellView(ChannelCell& model) : LabelView(&model, nullptr) {
    alignment = Qt::AlignCenter;
    foreground = QColor(Qt::black);
    syncFromModel();
  }

 protected:
  void syncFromModel() override {
    if (auto* cell = dynamic_cast<ChannelCell*>(model()))
      background = DeskContext::colour(cell->backColor());
    LabelView::syncFromModel();
  }
  void mouseDoubleClickEvent(QMouseEvent* e) override {
    if (Label* m = model()) m->dblClick(mouse().event(*e, MouseButton(consoleButton(e->button()))));
  }
};

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
  for (int ch = 1; ch <= kChannels; ++ch) {
    const int r = (ch - 1) / Simple::kRowCells, col = (ch - 1) % Simple::kRowCells;
    view->at(new CellView(s.Canal(ch)),
             {kMargin + kRowHead + col * kCellPitchX, kGridTop + r * kCellPitchY, kCellPitchX - 30,
              kCellPitchY - 60});
  }
  new FoldFollower(view, s, s.Command1(0));
  return view;
}

}  // namespace q::gui
