// Mobile, the X/Y control: the pad on top, and under it each axis with its
// value and the target it drives.

#include "gui/windows/window_builders.h"

#include <QLabel>

#include "engine/views/xy_control.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// Places in twips: the pad is a pixel a unit at the desk's natural size.
constexpr int kMargin = 120;
constexpr int kPad = Mobile::kPadSize * 15;
constexpr int kRows = kMargin + kPad + 180;
constexpr int kRowPitch = 450;

void axisRow(FormView* view, int row, const QString& name, Label& value, TextBox& target) {
  const int top = kRows + row * kRowPitch;
  auto* axis = new QLabel(name);
  axis->setProperty("fontBold", true);
  view->at(axis, {kMargin, top, 360, 330});
  auto* shown = new LabelView(&value, nullptr);
  shown->alignment = Qt::AlignRight | Qt::AlignVCenter;
  shown->foreground = QColor(0xFF, 0xC8, 0x60);
  shown->setProperty("fontPoints", 10);
  view->at(shown, {kMargin + 300, top, 600, 330});
  view->at(new QLabel(QObject::tr("target")), {kMargin + 1200, top, 720, 330});
  view->at(new TextBoxView(target, nullptr), {kMargin + 1980, top - 15, kPad - 1980, 360});
}
}  // namespace

FormView* buildXYWindow(WindowHost& host, Window& model) {
  auto& m = dynamic_cast<Mobile&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(2 * kMargin + kPad, kRows + 2 * kRowPitch + kMargin);
  view->at(new PictureView(m.Picture1, nullptr), {kMargin, kMargin, kPad, kPad});
  axisRow(view, 0, QObject::tr("X"), m.Label1, m.XChan);
  axisRow(view, 1, QObject::tr("Y"), m.Label2, m.YChan);
  return view;
}

}  // namespace q::gui
