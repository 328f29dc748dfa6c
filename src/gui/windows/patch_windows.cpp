// frmPatch and frmInvPatch: a menu bar, the heading, the page of lines (a
// channel number and its box), the page buttons with the range between
// them, "Use DMX patch" and the turn to the twin. The twin opens where this
// window stood.

#include "gui/windows/window_builders.h"

#include <QEvent>
#include <QMenuBar>
#include <QPointer>

#include "engine/views/patch_console_view.h"
#include "engine/views/patch_dmx_view.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
const char* const kMenuStyle =
    "QMenuBar{background:#15171b;color:#c9cfd8;border-bottom:1px solid #23272e}"
    "QMenuBar::item{padding:2px 8px;background:transparent}"
    "QMenuBar::item:selected{background:#2a2f37;color:#ffffff}"
    "QMenu{background:#1a1d22;color:#d8dce4;border:1px solid #2c3139;padding:3px}"
    "QMenu::item{padding:4px 22px 4px 22px}"
    "QMenu::item:selected{background:#ffb420;color:#000000}";

// How a page of lines is set out, in twips.
struct Lines {
  int columns, rows;
  int labelWidth, boxWidth;
  int top, pitch;  // of the first row, from one row to the next
};
constexpr int kMargin = 120;
constexpr int kMenuHeight = 300;
constexpr int kLineHeight = 285;
constexpr int kButtonHeight = 375;

// Opens the window where its twin stands as it shows the first time.
class TakeTwinsPlace : public QObject {
 public:
  TakeTwinsPlace(WindowHost& host, std::string twin, QWidget* view)
      : QObject(view), host_(host), twin_(std::move(twin)) {
    view->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* e) override {
    if (e->type() == QEvent::Show) {
      FormView* other = host_.viewOf(twin_);
      if (other && other->isVisible()) static_cast<QWidget*>(watched)->move(other->pos());
      deleteLater();
      watched->removeEventFilter(this);
    }
    return false;
  }

 private:
  WindowHost& host_;
  std::string twin_;
};

int columnWidth(const Lines& l) { return l.labelWidth + l.boxWidth + 180; }

FormView* build(WindowHost& host, PatchWindow& w, const Lines& l) {
  auto* view = new FormView(host, w);
  const int width = 2 * kMargin + l.columns * columnWidth(l) - 90;
  const int linesBottom = l.top + l.rows * l.pitch;
  const int buttons = linesBottom + 120;
  view->setSizeTwips(width, buttons + 2 * kButtonHeight + 240);

  auto* bar = new QMenuBar(nullptr);
  bar->setStyleSheet(kMenuStyle);
  view->at(bar, {0, 0, width, kMenuHeight});
  new MenuView(w.menuItems(), bar, view);

  auto* heading = new LabelView(&w.Label2, nullptr);
  heading->setProperty("fontBold", true);
  view->at(heading, {kMargin, kMenuHeight + 90, width - 2 * kMargin, 255});
  for (int i = 0; i < w.lines(); ++i) {
    const int left = kMargin + (i / l.rows) * columnWidth(l);
    const int top = l.top + (i % l.rows) * l.pitch;
    auto* number = new LabelView(&w.Channel(i), nullptr);
    number->alignment = Qt::AlignRight | Qt::AlignVCenter;
    view->at(number, {left, top, l.labelWidth, kLineHeight});
    view->at(new TextBoxView(w.txtPatch(i + 1), nullptr),
             {left + l.labelWidth + 90, top, l.boxWidth, kLineHeight});
  }

  // Paging: back, the range shown, forward; the patch switch beside them.
  view->at(new ButtonView(w.Command1, nullptr), {kMargin, buttons, 600, kButtonHeight});
  auto* range = new LabelView(&w.Label1, nullptr);
  range->alignment = Qt::AlignCenter;
  view->at(range, {kMargin + 660, buttons, 1320, kButtonHeight});
  view->at(new ButtonView(w.Command2, nullptr), {kMargin + 2040, buttons, 600, kButtonHeight});
  view->at(new CheckBoxView(w.Check1, nullptr), {kMargin + 2880, buttons, 1800, kButtonHeight});
  view->at(new ButtonView(w.ReverseBtn, nullptr),
           {width - kMargin - 1200, buttons + kButtonHeight + 120, 1200, kButtonHeight});
  new TakeTwinsPlace(host, w.twin(), view);
  return view;
}
}  // namespace

FormView* buildPatchWindow(WindowHost& host, Window& model) {
  auto& w = dynamic_cast<PatchDmxView&>(model);
  // 64 DMX channels in four columns of sixteen.
  FormView* view = build(host, w, {4, 16, 480, 600, kMenuHeight + 480, 300});
  const int top = view->heightTwips() - kButtonHeight - 120;
  view->at(new ButtonView(w.Command3, nullptr), {kMargin, top, 1200, kButtonHeight});
  view->at(new ButtonView(w.Command4, nullptr), {kMargin + 1320, top, 1200, kButtonHeight});
  return view;
}

FormView* buildInvPatchWindow(WindowHost& host, Window& model) {
  // 20 console channels in two columns of ten, each box wide enough for a list.
  return build(host, dynamic_cast<PatchConsoleView&>(model),
               {2, 10, 480, 2700, kMenuHeight + 480, 330});
}

}  // namespace q::gui
