#include "gui/desk/output_lamp_view.h"

#include <QPainter>

#include "engine/interfaces/output_lamp.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

namespace {
constexpr int kDot = 9;
constexpr int kGap = 6;
constexpr int kMargin = 8;
const QColor kSending(0x3C, 0xD0, 0x6A);
const QColor kNotReachable(0xE0, 0x3A, 0x2E);
const QColor kText(0xC9, 0xCF, 0xD8);
}  // namespace

OutputLampView::OutputLampView(OutputLamp* model, QWidget* parent) : QWidget(parent) {
  setObjectName("OutputLamp");
  binding_.bind(model, [this] { syncFromModel(); });
  syncFromModel();
}

QString OutputLampView::caption() const {
  const auto* m = binding_.as<OutputLamp>();
  const std::string* text = m ? m->captionText() : nullptr;
  return text ? QString::fromStdString(*text) : QString();
}

bool OutputLampView::lit() const {
  const auto* m = binding_.as<OutputLamp>();
  return m && !m->picture().empty();
}

void OutputLampView::syncFromModel() {
  const auto* m = binding_.as<OutputLamp>();
  setVisible(m && m->visible());
  setToolTip(QStringLiteral("DMX output: %1").arg(caption()));
  updateGeometry();
  pacedUpdate(this);
}

QSize OutputLampView::sizeHint() const {
  const int text = fontMetrics().horizontalAdvance(caption());
  return {kMargin + kDot + kGap + text + kMargin, fontMetrics().height() + 4};
}

void OutputLampView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor colour = lit() ? kSending : kNotReachable;
  const QRect dot(kMargin, (height() - kDot) / 2, kDot, kDot);
  p.setPen(colour.darker(150));
  p.setBrush(lit() ? colour : colour.darker(160));
  p.drawEllipse(dot);
  p.setPen(lit() ? kText : colour);
  const QRect text(dot.right() + kGap, 0, width() - dot.right() - kGap, height());
  p.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, caption());
}

}  // namespace q::gui
