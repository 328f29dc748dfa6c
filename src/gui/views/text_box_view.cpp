#include "gui/views/text_box_view.h"

#include <QKeyEvent>
#include <QPainter>

#include "engine/controls/textbox.h"

namespace q::gui {

namespace {
QColor rgb(int v) { return QColor::fromRgb(QRgb(0xFF000000u | unsigned(v))); }
constexpr int kText = 0xE8ECF2;
constexpr int kBack = 0x0B0D10;
}  // namespace

TextBoxView::TextBoxView(TextBox& model, QWidget* parent) : QLineEdit(parent) {
  setObjectName(QString::fromStdString(model.name()));
  setFrame(false);
  setTextMargins(2, 0, 2, 0);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& t) {
    if (TextBox* m = this->model()) m->setText(t.toStdString());
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  binding_.bindFocus([this] { setFocus(Qt::OtherFocusReason); });
  syncFromModel();
}

TextBox* TextBoxView::model() const { return binding_.as<TextBox>(); }

void TextBoxView::syncFromModel() {
  TextBox* m = model();
  if (!m) return;
  const QString t = QString::fromStdString(m->text());
  if (t != text()) {
    setText(t);
    // A name longer than its box shows its beginning.
    if (!hasFocus()) setCursorPosition(0);
  }
  setVisible(m->visible());
  setEnabled(m->enabled());
  setToolTip(QString::fromStdString(m->toolTip));
  applyStyle();
}

void TextBoxView::applyStyle() {
  TextBox* m = model();
  if (!m) return;
  const TextStyle& s = m->style;
  QFont f = baseFont();
  if (s.bold) f.setBold(true);
  if (!s.fontName.empty()) f.setFamily(QString::fromStdString(s.fontName));
  // A chosen size is in points, as the font dialog gives it.
  if (s.fontSize > 0) f.setPixelSize(std::max(6, int(s.fontSize * pixelsPerPoint())));
  f.setItalic(s.italic);
  f.setUnderline(s.underline);
  f.setStrikeOut(s.strikeout);
  if (f != font()) setFont(f);
  const QColor fg = rgb(s.foreColor >= 0 ? s.foreColor : kText);
  const QColor bg = rgb(s.backColor >= 0 ? s.backColor : kBack);
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
  TextBox* m = model();
  if (code && m && m->onKeyPress) {
    code = m->keyPress(code);
    // The console swallowed the key.
    if (code == 0) return e->accept();
  }
  if (code == 13) return e->accept();
  QLineEdit::keyPressEvent(e);
}

void TextBoxView::focusInEvent(QFocusEvent* e) {
  QLineEdit::focusInEvent(e);
  if (TextBox* m = model(); m && m->onGotFocus) m->onGotFocus();
}

void TextBoxView::focusOutEvent(QFocusEvent* e) {
  QLineEdit::focusOutEvent(e);
  if (TextBox* m = model(); m && m->onLostFocus) m->onLostFocus();
}

void TextBoxView::mouseDoubleClickEvent(QMouseEvent* e) {
  QLineEdit::mouseDoubleClickEvent(e);
  if (TextBox* m = model()) m->dblClick();
}

}  // namespace q::gui
