#pragma once
// How a Qt event becomes a console event: the mouse button as the console
// counts it, the point in the control's own units, the character code of a
// key, the file a drop carries. A press, a release and a double click are
// delivered in the order the console's handlers expect from a real mouse.

#include <QPointF>
#include <string>

#include "engine/controls/control.h"

class QKeyEvent;
class QMimeData;
class QMouseEvent;
class QWidget;

namespace q::gui {

// The mouse button as the console counts it; 0 for one it doesn't know.
int consoleButton(Qt::MouseButton b);
// Shift 1, Ctrl 2, Alt 4.
int consoleShift(Qt::KeyboardModifiers m);
// The first local file of a drop, or "" when the drop carries none.
std::string droppedFile(const QMimeData* data);
// The character code a key press gives the console (13 for Enter, 8 for
// Backspace ...); 0 for a key that types nothing.
int keyAscii(const QKeyEvent& e);

// Turns a widget's mouse events into its control's: the point is scaled by
// unitsPerPixel (twips per pixel for a pane measured in twips).
class MouseForwarder {
 public:
  explicit MouseForwarder(double unitsPerPixel = 1) : unitsPerPixel_(unitsPerPixel) {}
  void setUnitsPerPixel(double u) { unitsPerPixel_ = u; }
  double unitsPerPixel() const { return unitsPerPixel_; }

  MouseEvent event(const QMouseEvent& e, MouseButton button) const;
  // Down. Returns false for a button the console doesn't know.
  bool press(Control& c, const QMouseEvent& e);
  // Up, then a click when the left button is let go over the widget.
  void release(Control& c, const QMouseEvent& e, const QWidget& over);
  // The double click stands in place of the second press: the second down still comes.
  void doubleClick(Control& c, const QMouseEvent& e);
  // A move carries the button held down, if any.
  void move(Control& c, const QMouseEvent& e);

 private:
  double unitsPerPixel_;
};

}  // namespace q::gui
