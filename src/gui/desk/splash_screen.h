#pragma once
// frmSplash: stands on top while the console starts. A click or a key takes
// it away and brings the desk forward; so does the close question.

#include <QWidget>

namespace q::gui {

class SplashScreen : public QWidget {
  Q_OBJECT
 public:
  explicit SplashScreen(QWidget* parent = nullptr);

 signals:
  void dismissed();

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent*) override;
  void keyPressEvent(QKeyEvent*) override;
};

}  // namespace q::gui
