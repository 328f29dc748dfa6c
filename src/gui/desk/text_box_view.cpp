#include "gui/desk/text_box_view.h"

#include <QKeyEvent>
#include <QPainter>

#include "engine/controls/textbox.h"

namespace q::gui {

namespace {
constexpr int kText = 0xE8ECF2;
constexpr int kBack = 0x0B0D10;
}  // namespace

int keyAscii(const QKeyEvent& e) {
  switch (e.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Tab:
      return 9;
    default:
      break;
  }
  const QString t = e.text();
  if (t.size() != 1) return 0;
  const ushort u = t.at(0).unicode();
  return u >= 32 && u < 0x7F ? u : (u >= 0xA0 && u <= 0xFF ? u : 0);
}

TextBoxView::TextBoxView(DeskContext& ctx, TextBox& model, const look::DeskItem& item,
                         QWidget* parent)
    : QLineEdit(parent), ctx_(ctx), model_(model), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setFrame(false);
  setTextMargins(2, 0, 2, 0);
  setAlignment(item.align == look::Align::Center ? Qt::AlignCenter : Qt::AlignLeft);
  connect(this, &QLineEdit::textEdited, this,
          [this](const QString& t) { model_.setText(t.toStdString()); });
  binding_.bind(&model_, [this] { syncFromModel(); });
  syncFromModel();
}

void TextBoxView::syncFromModel() {
  const QString t = QString::fromStdString(model_.text());
  if (t != text()) {
    setText(t);
    // A name longer than its box shows its beginning.
    if (!hasFocus()) setCursorPosition(0);
  }
  setVisible(model_.visible());
  setEnabled(model_.enabled());
  setToolTip(QString::fromStdString(model_.toolTip));
  applyStyle();
}

void TextBoxView::applyStyle() {
  const TextStyle& s = model_.style;
  QFont f = ctx_.font(item_.fontPx, s.bold, item_.fontPx <= 9);
  if (!s.fontName.empty()) f.setFamily(QString::fromStdString(s.fontName));
  // A chosen size is in points, as the font dialog gives it; the desk scales it with the rest.
  if (s.fontSize > 0) f.setPixelSize(std::max(6, int(s.fontSize * 4.0 / 3.0 * ctx_.zoom())));
  f.setItalic(s.italic);
  f.setUnderline(s.underline);
  f.setStrikeOut(s.strikeout);
  if (f != font()) setFont(f);
  const QColor fg = DeskContext::colour(s.foreColor >= 0 ? s.foreColor : kText);
  const QColor bg = DeskContext::colour(s.backColor >= 0 ? s.backColor : kBack);
  // Colours through the palette: a style sheet on every box would slow the desk's start.
  QPalette pal = palette();
  pal.setColor(QPalette::Base, bg);
  pal.setColor(QPalette::Text, fg);
  pal.setColor(QPalette::Disabled, QPalette::Base, bg);
  pal.setColor(QPalette::Disabled, QPalette::Text, fg.darker(170));
  pal.setColor(QPalette::Highlight, QColor(0xFF, 0xB4, 0x20));
  pal.setColor(QPalette::HighlightedText, Qt::black);
  if (pal != palette()) setPalette(pal);
}

void TextBoxView::paintEvent(QPaintEvent* e) {
  QLineEdit::paintEvent(e);
  // The box that takes the keys is ringed in the desk's amber.
  QPainter p(this);
  p.setPen(hasFocus() ? QColor(0xFF, 0xB4, 0x20) : QColor(0x2A, 0x2F, 0x37));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TextBoxView::keyPressEvent(QKeyEvent* e) {
  int code = keyAscii(*e);
  if (code && model_.onKeyPress) {
    model_.onKeyPress(code);
    // The console swallowed the key.
    if (code == 0) return e->accept();
  }
  if (code == 13) return e->accept();
  QLineEdit::keyPressEvent(e);
}

void TextBoxView::focusInEvent(QFocusEvent* e) {
  QLineEdit::focusInEvent(e);
  if (model_.onGotFocus) model_.onGotFocus();
}

void TextBoxView::focusOutEvent(QFocusEvent* e) {
  QLineEdit::focusOutEvent(e);
  if (model_.onLostFocus) model_.onLostFocus();
}

void TextBoxView::mouseDoubleClickEvent(QMouseEvent* e) {
  QLineEdit::mouseDoubleClickEvent(e);
  model_.dblClick();
}

}  // namespace q::gui
