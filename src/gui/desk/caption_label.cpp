#include "gui/desk/caption_label.h"

#include "engine/controls/label.h"
#include "engine/core/console.h"

namespace q::gui {

namespace {
bool startsWith(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }
constexpr int kPlainText = 0xC9CFD8;
}  // namespace

CaptionLabel::CaptionLabel(DeskContext& ctx, Label* model, const look::DeskItem& item,
                           QWidget* parent)
    : LabelView(model, parent), ctx_(ctx), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  alignment = Qt::AlignVCenter | (item.align == look::Align::Left    ? Qt::AlignLeft
                                  : item.align == look::Align::Right ? Qt::AlignRight
                                                                     : Qt::AlignHCenter);
}

QString CaptionLabel::text() const {
  return model() ? LabelView::text() : QString::fromStdString(item_.caption);
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

QFont CaptionLabel::textFont() const { return ctx_.font(item_.fontPx, item_.bold, true); }

int CaptionLabel::padding() const {
  return item_.align == look::Align::Center ? 0 : int(3 * ctx_.zoom());
}

}  // namespace q::gui
