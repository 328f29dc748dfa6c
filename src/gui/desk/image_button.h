#pragma once
// A button or lamp of the desk: the skin under it is its unlit face, and it
// shows the picture its control names (`imgGo`, `Led_On2`, `led_ON` ...)
// over it. Mouse presses, releases, clicks, double clicks and file drops go
// to the control as they are; what they mean is the console's business.

#include <QWidget>
#include <string>

class QMimeData;

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"

namespace q::gui {

class ImageButton : public QWidget {
  Q_OBJECT
 public:
  // model may be null: the face is then drawn and nothing else happens.
  ImageButton(DeskContext& ctx, Control* model, const look::DeskItem& item, QWidget* parent);

  Control* model() const { return model_; }

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;

 private:
  void syncFromModel();

  DeskContext& ctx_;
  Control* model_;
  const look::DeskItem& item_;
  ViewBinding binding_;
};

// The mouse button as the console counts it; 0 for one it doesn't know.
int consoleButton(Qt::MouseButton b);
// The first local file of a drop, or "" when the drop carries none.
std::string droppedFile(const QMimeData* data);

}  // namespace q::gui
