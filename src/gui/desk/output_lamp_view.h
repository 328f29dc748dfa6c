#pragma once
// OutputLamp on the desk: a small lamp and its caption ("sending", "not
// reachable") in the right-hand corner of the menu bar, where it stays in
// sight without taking a pixel from the skin's layout. Hidden while the
// chosen interface has no output to watch.

#include <QWidget>

#include "gui/views/view_binding.h"

namespace q {
class OutputLamp;
}

namespace q::gui {

class OutputLampView : public QWidget {
  Q_OBJECT
 public:
  OutputLampView(OutputLamp* model, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  void syncFromModel();
  QString caption() const;
  bool lit() const;

  ViewBinding binding_;
};

}  // namespace q::gui
