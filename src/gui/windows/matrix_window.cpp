// The channels matrix on the desk. The model lays the window out for every
// size the operator gives it and says where each part stands; this view
// only puts the parts there, tells the model the window's size and state,
// and selects the whole text of the cell editor when it opens.

#include "gui/windows/window_builders.h"

#include <QEvent>
#include <QMetaObject>
#include <QPointer>
#include <QResizeEvent>
#include <cmath>

#include "engine/views/channels_matrix.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/label_view.h"
#include "gui/views/scroll_bar_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/view_binding.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
Twips twips(const Place& p) {
  return {int(std::lround(p.left)), int(std::lround(p.top)), int(std::lround(p.width)),
          int(std::lround(p.height))};
}

// The cell editor takes the focus with its whole text selected, so a typed
// level replaces the one shown.
class CellEditor : public TextBoxView {
 public:
  explicit CellEditor(TextBox& model) : TextBoxView(model, nullptr) {
    focus_.bind(&model, [] {});
    focus_.bindFocus([this] { selectAll(); });
  }

 private:
  ViewBinding focus_;
};

class MatrixView : public FormView {
 public:
  MatrixView(WindowHost& host, ChannelsMatrix& m) : FormView(host, m) {
    setMinimumSize(px(2100), px(MatrixLayout::kMinHeight));
    setResizable(true);
    setSizeTwips(int(m.width()), int(m.height()));
    const MatrixLayout& l = m.layout();
    grid_ = at(new CellGridView(m.Picture1, scale(), nullptr), twips(l.picture1));
    numbers_ = at(new CellGridView(m.Picture2, scale(), nullptr), twips(l.picture2));
    strip_ = at(new CellGridView(m.Picture3, scale(), nullptr), twips(l.picture3));
    headings_ = at(new CellGridView(m.Picture4, scale(), nullptr), twips(l.picture4));
    auto* out = new LabelView(&m.Lbl1, nullptr);
    out->setProperty("fontBold", true);
    out_ = at(out, twips(l.lbl1));
    vertical_ = at(new ScrollBarView(m.vscScroll, nullptr, Qt::Vertical), twips(l.vscScroll));
    horizontal_ = at(new ScrollBarView(m.hscScroll, nullptr), twips(l.hscScroll));
    topLeft_ = at(new LabelView(&m.lblTopLeft, nullptr), twips(l.lblTopLeft));
    editor_ = at(new CellEditor(m.txtedit), twips(l.txtedit));
    alive_.bind(&m.Picture1, [] {});
    // The view may go before the model (it is deleted later, as its window unloads).
    places_ = m.placesChanged.add([self = QPointer<MatrixView>(this)] {
      if (self) self->placeParts();
    });
  }

  ~MatrixView() override {
    if (ChannelsMatrix* m = matrix()) m->placesChanged.remove(places_);
  }

 protected:
  void resizeEvent(QResizeEvent* e) override {
    FormView::resizeEvent(e);
    ChannelsMatrix* m = matrix();
    if (!m) return;
    m->resize(widthTwips(), heightTwips());
    // In its normal state the window is held at the height the model keeps.
    const int held = px(m->height());
    if (m->windowState() == ChannelsMatrix::State::Normal && held != height())
      QMetaObject::invokeMethod(
          this, [this, held] { resize(width(), held); }, Qt::QueuedConnection);
  }

  void changeEvent(QEvent* e) override {
    FormView::changeEvent(e);
    if (e->type() != QEvent::WindowStateChange) return;
    if (ChannelsMatrix* m = matrix())
      m->setWindowState(isMinimized()   ? ChannelsMatrix::State::Minimized
                        : isMaximized() ? ChannelsMatrix::State::Maximized
                                        : ChannelsMatrix::State::Normal);
  }

 private:
  ChannelsMatrix* matrix() const {
    return alive_.control() && model() ? static_cast<ChannelsMatrix*>(model()) : nullptr;
  }

  void placeParts() {
    ChannelsMatrix* m = matrix();
    if (!m) return;
    const MatrixLayout& l = m->layout();
    moveTo(grid_, twips(l.picture1));
    moveTo(numbers_, twips(l.picture2));
    moveTo(strip_, twips(l.picture3));
    moveTo(headings_, twips(l.picture4));
    moveTo(out_, twips(l.lbl1));
    moveTo(vertical_, twips(l.vscScroll));
    moveTo(horizontal_, twips(l.hscScroll));
    moveTo(topLeft_, twips(l.lblTopLeft));
    moveTo(editor_, twips(l.txtedit));
    editor_->raise();
  }

  ViewBinding alive_;
  int places_ = 0;
  QWidget *grid_, *numbers_, *strip_, *headings_, *out_, *vertical_, *horizontal_, *topLeft_;
  QWidget* editor_;
};
}  // namespace

FormView* buildMatrixWindow(WindowHost& host, Window& model) {
  return new MatrixView(host, dynamic_cast<ChannelsMatrix&>(model));
}

}  // namespace q::gui
