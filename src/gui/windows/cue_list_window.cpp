// Cuewin ("Cue List") on the desk: its menu bar, the six panes, the two
// scroll bars, the show's name and date, the in-place editor and the logo.
// The window may be sized by the operator; the console's resize rule places
// the panes, and the view only follows. The wheel scrolls the rows.

#include "gui/windows/window_builders.h"

#include <QFocusEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>
#include <algorithm>

#include "engine/cuelist/cue_grid.h"
#include "engine/look/logo.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/label_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/scroll_bar_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// The menu bar's band above the client area, in twips.
constexpr int kMenuBand = 330;
constexpr int kWheelRows = 3;

const char* const kMenuStyle =
    "QMenuBar{background:#15171b;color:#c9cfd8;border-bottom:1px solid #23272e}"
    "QMenuBar::item{padding:2px 8px;background:transparent}"
    "QMenuBar::item:selected{background:#2a2f37;color:#ffffff}"
    "QMenu{background:#1a1d22;color:#d8dce4;border:1px solid #2c3139;padding:3px}"
    "QMenu::item{padding:4px 22px 4px 22px}"
    "QMenu::item:selected{background:#ffb420;color:#000000}"
    "QMenu::item:disabled{color:#59606b}"
    "QMenu::separator{height:1px;background:#2c3139;margin:3px 6px}";

// The editor comes up with its whole text selected, so a typed level replaces the old.
class CellEditor : public TextBoxView {
 public:
  using TextBoxView::TextBoxView;

 protected:
  void showEvent(QShowEvent* e) override {
    TextBoxView::showEvent(e);
    selectAll();
  }
  void focusInEvent(QFocusEvent* e) override {
    TextBoxView::focusInEvent(e);
    selectAll();
  }
};

class CuewinView : public FormView {
 public:
  CuewinView(WindowHost& host, Cuewin& model) : FormView(host, model), cuewin_(&model) {
    setResizable(true);
    setSizeTwips(model.width() - Cuewin::kFrameWidth,
                 model.height() - Cuewin::kFrameHeight + kMenuBand);
    auto* bar = new QMenuBar(nullptr);
    bar->setNativeMenuBar(false);
    bar->setStyleSheet(kMenuStyle);
    menuBar_ = at(bar, {0, 0, widthTwips(), kMenuBand});
    QPointer<MenuView> menus = new MenuView(model.menuItems(), bar, this);
    model.onPopupMenu = [menus](const std::string& name) {
      if (menus) menus->popup(name);
    };

    place(new TextBoxView(model.txt_Show, nullptr), model.txt_Show);
    place(new TextBoxView(model.txt_Date, nullptr), model.txt_Date);
    auto* corner = new LabelView(&model.lblTopLeft, nullptr);
    corner->foreground = QColor(0x9A, 0xA3, 0xAF);
    place(corner, model.lblTopLeft);
    place(new PictureButton(&model.logo, logoPicture, nullptr), model.logo);
    for (CellGrid* p : {&model.Picture1, &model.Picture2, &model.Picture3, &model.Picture4,
                        &model.Picture5, &model.Picture6})
      place(new CellGridView(*p, scale(), nullptr), *p);
    heading("CUE", model.Picture3);
    heading("FUN", model.Picture4);
    heading("TIMES", model.Picture5);
    heading("NAME", model.Picture6);
    place(new ScrollBarView(model.vscScroll, nullptr, Qt::Vertical), model.vscScroll);
    place(new ScrollBarView(model.hscScroll, nullptr), model.hscScroll);
    auto* editor = place(new CellEditor(model.txtedit, nullptr), model.txtedit);
    editor->raise();

    QPointer<CuewinView> self(this);
    model.layoutChanged.add([self] {
      if (self) self->follow();
    });
    onResized = [this](int w, int h) {
      if (FormView::model())
        cuewin_->resize(w + Cuewin::kFrameWidth, h - kMenuBand + Cuewin::kFrameHeight);
    };
  }

 protected:
  void wheelEvent(QWheelEvent* e) override {
    if (!model()) return;
    Scroller& bar = cuewin_->vscScroll;
    const int steps = e->angleDelta().y() / 120;
    bar.setPosition(std::clamp(bar.position() - steps * kWheelRows, bar.min(), bar.max()));
    e->accept();
  }

 private:
  static Twips twips(const Cuewin::Box& b) {
    return {int(b.left), int(b.top) + kMenuBand, int(b.width), int(b.height)};
  }
  static QPixmap logoPicture(const std::string&, QSize size) {
    const look::Bitmap b = look::consoleLogo(true);
    QImage img(b.width(), b.height(), QImage::Format_RGB32);
    for (int y = 0; y < b.height(); ++y)
      for (int x = 0; x < b.width(); ++x) img.setPixel(x, y, 0xFF000000u | b.pixel(x, y));
    return QPixmap::fromImage(img.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  }

  template <class W>
  W* place(W* view, const Control& c) {
    placed_.push_back({view, &c});
    return at(view, twips(cuewin_->boxOf(c)));
  }
  void heading(const char* text, const CellGrid& pane) {
    auto* l = new QLabel(QString::fromLatin1(text));
    l->setProperty("fontBold", true);
    QPalette pal = l->palette();
    pal.setColor(QPalette::WindowText, QColor(0xFF, 0xC8, 0x60));
    l->setPalette(pal);
    const Cuewin::Box& b = cuewin_->boxOf(pane);
    at(l, {int(b.left) + 50, int(b.top) - 255 + kMenuBand, int(b.width), 255});
  }
  // The console moved or sized its controls: each view takes its new place.
  void follow() {
    if (!model()) return;
    moveTo(menuBar_, {0, 0, widthTwips(), kMenuBand});
    for (const auto& [view, control] : placed_)
      if (view) moveTo(view, twips(cuewin_->boxOf(*control)));
  }

  Cuewin* cuewin_;
  QWidget* menuBar_ = nullptr;
  std::vector<std::pair<QPointer<QWidget>, const Control*>> placed_;
};
}  // namespace

FormView* buildCueListWindow(WindowHost& host, Window& model) {
  return new CuewinView(host, dynamic_cast<Cuewin&>(model));
}

}  // namespace q::gui
