#include "gui/desk/key_codes.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <string>

namespace q::gui {

namespace {

// X11 key codes (evdev + 8) of the four typing rows, left to right, and the
// codes the console gives those places.
struct Row {
  unsigned first;
  const char* codes;  // one character a key: the letter or digit of a US keyboard
};
constexpr Row kRows[] = {
    {10, "1234567890"},
    {24, "QWERTYUIOP"},
    {38, "ASDFGHJKL"},
    {52, "ZXCVBNM"},
};
constexpr unsigned kRightOfL = 47;         // code 192
constexpr unsigned kComma = 59;            // code 188
constexpr unsigned kFullStop = 60;         // code 190
constexpr unsigned kRightOfFullStop = 61;  // code 189

}  // namespace

int virtualKeyAtPlace(unsigned scan) {
  for (const Row& r : kRows) {
    const unsigned n = unsigned(std::char_traits<char>::length(r.codes));
    if (scan >= r.first && scan < r.first + n) return r.codes[scan - r.first];
  }
  switch (scan) {
    case kRightOfL:
      return 192;
    case kComma:
      return 188;
    case kFullStop:
      return 190;
    case kRightOfFullStop:
      return 189;
    default:
      return 0;
  }
}

int virtualKeyOf(int k) {
  if (k >= Qt::Key_A && k <= Qt::Key_Z) return 'A' + (k - Qt::Key_A);
  if (k >= Qt::Key_0 && k <= Qt::Key_9) return '0' + (k - Qt::Key_0);
  if (k >= Qt::Key_F1 && k <= Qt::Key_F24) return 112 + (k - Qt::Key_F1);
  switch (k) {
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Tab:
      return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Shift:
      return 16;
    case Qt::Key_Control:
      return 17;
    case Qt::Key_Alt:
      return 18;
    case Qt::Key_Pause:
      return 19;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return 35;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
    case Qt::Key_Semicolon:
      return 186;
    case Qt::Key_Equal:
    case Qt::Key_Plus:
      return 187;
    case Qt::Key_Comma:
      return 188;
    case Qt::Key_Minus:
      return 189;
    case Qt::Key_Period:
      return 190;
    case Qt::Key_Slash:
      return 191;
    case Qt::Key_QuoteLeft:
    case Qt::Key_Ntilde:
      return 192;
    case Qt::Key_BracketLeft:
      return 219;
    case Qt::Key_Backslash:
      return 220;
    case Qt::Key_BracketRight:
      return 221;
    case Qt::Key_Apostrophe:
      return 222;
    default:
      return 0;
  }
}

int virtualKey(const QKeyEvent& e) {
  // Only the X11 platform hands out key codes that say where the key is.
  static const bool placed = QGuiApplication::platformName() == QLatin1String("xcb");
  if (placed && e.nativeScanCode() != 0)
    if (int code = virtualKeyAtPlace(e.nativeScanCode())) return code;
  return virtualKeyOf(e.key());
}

}  // namespace q::gui
