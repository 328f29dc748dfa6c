#pragma once
// The Qt window of a secondary console window. It is laid out in twips, as
// the window's handlers count, and scales with the desk's zoom: every view
// placed on it keeps its place in twips and is put in pixels again at each
// zoom. Its close box is the window's own (the console decides whether it
// closes), keys typed at it go to the window's key handler, and bringing it
// to the front runs the window's activation.

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

namespace q {
class Window;
}

namespace q::gui {

class WindowHost;

struct Twips {
  int left, top, width, height;
};

class FormView : public QWidget {
  Q_OBJECT
 public:
  FormView(WindowHost& host, Window& model);

  // Null once the window has unloaded.
  Window* model() const { return model_; }
  WindowHost& host() { return host_; }
  // Pixels per twip at the desk's zoom.
  double scale() const;
  int px(double twips) const;
  QRect pixels(const Twips& t) const;
  // The window's client area in twips.
  void setSizeTwips(int width, int height);
  int widthTwips() const { return widthTwips_; }
  int heightTwips() const { return heightTwips_; }
  // A window the operator may size (the cue list): its client area follows
  // the Qt window, and onResized hears the new size in twips.
  void setResizable(bool resizable);
  std::function<void(int widthTwips, int heightTwips)> onResized;
  // Puts a view at its place in twips; it follows the zoom from then on.
  template <class W>
  W* at(W* view, Twips place) {
    view->setParent(this);
    placed_.push_back({view, place});
    put(view, place);
    return view;
  }
  // Moves a view put with at() to another place in twips.
  void moveTo(QWidget* view, Twips place);
  // Puts every view in its place again at the present zoom.
  void relayout();
  // The console's type at a size in points, at the zoom.
  QFont windowFont(double points = 8, bool bold = false) const;

  // The host tells the view its window has unloaded.
  void modelGone() { model_ = nullptr; }
  // The next activation of the Qt window is the console's own doing.
  void expectActivation() { expectActivation_ = true; }

 protected:
  void closeEvent(QCloseEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void changeEvent(QEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  struct Placed {
    QPointer<QWidget> view;
    Twips place;
  };
  void put(QWidget* view, const Twips& place);
  void applySize();

  WindowHost& host_;
  Window* model_;
  int widthTwips_ = 4800, heightTwips_ = 3600;
  std::vector<Placed> placed_;
  bool expectActivation_ = false;
  bool resizable_ = false;
  bool sizing_ = false;
};

}  // namespace q::gui
