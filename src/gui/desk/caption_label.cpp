#include "gui/desk/caption_label.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPainter>

#include "engine/controls/label.h"
#include "engine/core/console.h"
#include "gui/desk/image_button.h"

namespace q::gui {

namespace {
bool startsWith(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }
constexpr int kPlainText = 0xC9CFD8;
}  // namespace

CaptionLabel::CaptionLabel(DeskContext& ctx, Label* model, const look::DeskItem& item,
                           QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  const bool takesMouse =
      model && (model->onMouseDown || model->onMouseUp || model->onClick || model->onDblClick);
  if (!takesMouse) setAttribute(Qt::WA_TransparentForMouseEvents);
  setAcceptDrops(model && model->onDrop);
  binding_.bind(model_, [this] { syncFromModel(); });
  syncFromModel();
}

void CaptionLabel::syncFromModel() {
  if (!model_) return;
  setVisible(model_->visible());
  setToolTip(QString::fromStdString(model_->toolTip));
  update();
}

QString CaptionLabel::text() const {
  return QString::fromStdString(model_ ? model_->caption() : item_.caption);
}

// Each kind of caption has its colour in the skin's colour strip.
QColor CaptionLabel::textColour() const {
  const Look& look = ctx_.console.look;
  const std::string& n = item_.control;
  if (startsWith(n, "SLevel")) return DeskContext::colour(look.levelTextColor);
  if (startsWith(n, "FxStep")) return DeskContext::colour(look.chaserStepColor);
  if (startsWith(n, "lbl")) return DeskContext::colour(look.buttonTextColor);
  return DeskContext::colour(kPlainText);
}

void CaptionLabel::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setFont(ctx_.font(item_.fontPx, item_.bold, true));
  p.setPen(textColour());
  int flags = Qt::AlignVCenter;
  flags |= item_.align == look::Align::Left    ? Qt::AlignLeft
           : item_.align == look::Align::Right ? Qt::AlignRight
                                               : Qt::AlignHCenter;
  const int pad = item_.align == look::Align::Center ? 0 : int(3 * ctx_.zoom());
  p.drawText(rect().adjusted(pad, 0, -pad, 0), flags, text());
}

void CaptionLabel::mousePressEvent(QMouseEvent* e) {
  if (int b = consoleButton(e->button())) model_->mouseDown(MouseButton(b));
}

void CaptionLabel::mouseReleaseEvent(QMouseEvent* e) {
  const int b = consoleButton(e->button());
  if (!b) return;
  model_->mouseUp(MouseButton(b));
  if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint())) model_->click();
}

void CaptionLabel::mouseDoubleClickEvent(QMouseEvent* e) {
  const int b = consoleButton(e->button());
  if (!b) return;
  model_->dblClick();
  model_->mouseDown(MouseButton(b));
}

void CaptionLabel::dragEnterEvent(QDragEnterEvent* e) {
  if (!droppedFile(e->mimeData()).empty()) e->acceptProposedAction();
}

void CaptionLabel::dropEvent(QDropEvent* e) {
  const std::string path = droppedFile(e->mimeData());
  if (path.empty()) return;
  model_->drop(path, MouseButton::Left);
  e->acceptProposedAction();
}

}  // namespace q::gui
