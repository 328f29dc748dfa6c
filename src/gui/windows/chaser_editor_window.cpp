// FX1Config / FX2Config: the steps of a chaser as a spreadsheet, one row a
// step and one column a channel, with the step numbers beside it (red while
// inside the chaser, amber on the step that plays) and the channel numbers
// over it. Beside the grid the selected cell's fader and flash, and the
// chaser's level and speed on the skin's master faders.

#include "gui/windows/window_builders.h"

#include <QLabel>
#include <QMenuBar>
#include <QPointer>

#include "engine/chasers/chaser_editor.h"
#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"
#include "gui/desk/fader_widget.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/scroll_bar_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
constexpr int kPx = 15;  // twips of one skin pixel at the desk's zoom
constexpr int kMenuBar = 300;
constexpr int kTop = kMenuBar + 60;
constexpr int kCellW = int(ChaserEditor::kCellWidth), kCellH = int(ChaserEditor::kCellHeight);
constexpr int kGridLeft = 120 + kCellW;
constexpr int kGridTop = kTop + kCellH;
constexpr int kGridW = ChaserEditor::kVisibleColumns * kCellW;
constexpr int kGridH = ChaserEditor::kVisibleRows * kCellH;
constexpr int kPanel = kGridLeft + kGridW + kCellH + 240;  // the controls right of the grid

// The skin under a main-window control: the editors' faders take their tracks there.
look::PixelRect trackOf(const std::string& control) {
  const look::DeskItem* item = look::findItem(control);
  return item ? item->rect : look::PixelRect{};
}

QLabel* caption(const QString& text, int back) {
  auto* l = new QLabel(text);
  QPalette pal = l->palette();
  pal.setColor(QPalette::WindowText, QColor(0xC9, 0xCF, 0xD8));
  pal.setColor(QPalette::Window, DeskContext::colour(back));
  l->setPalette(pal);
  return l;
}

void placeFader(FormView* view, DeskContext& ctx, Scroller& s, const look::PixelRect& track,
                const look::PixelRect& knob, int left, int top) {
  view->at(new FaderWidget(ctx, s, track, knob, nullptr),
           {left, top, track.width * kPx, track.height * kPx});
}
}  // namespace

FormView* buildChaserEditorWindow(WindowHost& host, Window& model) {
  auto& e = dynamic_cast<ChaserEditor&>(model);
  auto* view = new FormView(host, model);
  DeskContext& ctx = host.ctx();
  const int back = e.backColor >= 0 ? e.backColor : 0x303030;

  auto* bar = new QMenuBar;
  view->at(bar, {0, 0, kPanel + 2400, kMenuBar});
  QPointer<MenuView> menus = new MenuView(e.menuItems(), bar, view);
  e.onPopupMenu = [menus](const std::string& name) {
    if (menus) menus->popup(name);
  };

  view->at(new CellGridView(e.Picture2, 1, nullptr), {kGridLeft, kTop, kGridW, kCellH});
  view->at(new CellGridView(e.Picture3, 1, nullptr), {120, kGridTop, kCellW, kGridH});
  view->at(new CellGridView(e.Picture1, 1, nullptr), {kGridLeft, kGridTop, kGridW, kGridH});
  view->at(new ScrollBarView(e.vscScroll, nullptr, Qt::Vertical),
           {kGridLeft + kGridW, kGridTop, kCellH, kGridH});
  view->at(new ScrollBarView(e.hscScroll, nullptr), {kGridLeft, kGridTop + kGridH, kGridW, kCellH});
  view->at(new LabelView(&e.lblTopLeft, nullptr), {120, kGridTop + kGridH + 330, 3600, 255});

  view->at(caption(QObject::tr("Step"), back), {kPanel, kGridTop, 800, 315});
  view->at(new TextBoxView(e.txtStep, nullptr), {kPanel + 800, kGridTop, 700, 315});
  view->at(caption(QObject::tr("Channel"), back), {kPanel, kGridTop + 400, 800, 315});
  view->at(new TextBoxView(e.txtChannel, nullptr), {kPanel + 800, kGridTop + 400, 700, 315});

  const int faderTop = kGridTop + 1200;
  view->at(caption(QObject::tr("CELL"), back), {kPanel, faderTop - 300, 700, 255});
  placeFader(view, ctx, e.Fader, trackOf(indexed("Fader", 3)), look::knobRect(1), kPanel + 80,
             faderTop);
  view->at(new LabelView(&e.SLevel, nullptr), {kPanel, faderTop + 3400, 500, 255});
  view->at(new ButtonView(e.Flash, nullptr), {kPanel - 40, faderTop + 3700, 580, 330});

  const int levelLeft = kPanel + 900, speedLeft = kPanel + 1700;
  view->at(caption(QObject::tr("LEVEL"), back), {levelLeft, faderTop - 300, 700, 255});
  placeFader(view, ctx, e.SMaster, trackOf("SMaster"), look::kSMasterKnob, levelLeft, faderTop);
  view->at(new LabelView(&e.Label2, nullptr), {levelLeft, faderTop + 3400, 500, 255});
  view->at(caption(QObject::tr("SPEED"), back), {speedLeft, faderTop - 300, 700, 255});
  placeFader(view, ctx, e.ScSpeed, trackOf("Xfader"), look::kXfaderKnob, speedLeft, faderTop);
  view->at(new LabelView(&e.Label3, nullptr), {speedLeft, faderTop + 3400, 500, 255});

  auto* random = new CheckBoxView(e.ChkRandom, nullptr);
  QPalette pal = random->palette();
  pal.setColor(QPalette::Window, DeskContext::colour(back));
  pal.setColor(QPalette::WindowText, QColor(0xE8, 0xEC, 0xF2));
  random->setPalette(pal);
  random->setAutoFillBackground(true);
  view->at(random, {kPanel, faderTop + 4250, 2300, 315});

  view->setSizeTwips(kPanel + 2400, kGridTop + kGridH + 700);
  return view;
}

}  // namespace q::gui
