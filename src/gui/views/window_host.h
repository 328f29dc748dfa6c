#pragma once
// Opens, raises and closes the Qt window of each secondary console window as
// its model is shown, activated, hidden and unloaded. The desk gives a
// builder for each window it can show; the Qt window is built the first time
// its model shows, and destroyed when the model unloads, before the model
// itself goes, so no view ever touches a model that is gone.

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <string>

#include "gui/views/form_view.h"

namespace q {
class Console;
class Window;
}  // namespace q

namespace q::gui {

class DeskContext;

class WindowHost : public QObject {
  Q_OBJECT
 public:
  using Builder = std::function<FormView*(WindowHost&, Window&)>;

  // mainWindow: the desk's window, over which the others open.
  WindowHost(DeskContext& ctx, QWidget* mainWindow);
  ~WindowHost() override;

  void addBuilder(const std::string& window, Builder build);
  bool canShow(const std::string& window) const { return builders_.count(window) > 0; }
  // The Qt window of a loaded console window, once built; null otherwise.
  FormView* viewOf(const std::string& window) const;
  DeskContext& ctx() { return ctx_; }
  Console& console();
  QWidget* mainWindow() const { return main_; }

 private:
  struct Hosted {
    Window* model = nullptr;
    QPointer<FormView> view;
    int changed = 0, activated = 0, unloading = 0;
  };
  void adopt(Window& w);
  void follow(const std::string& name);
  void bringToFront(const std::string& name);
  void release(const std::string& name);
  FormView* build(Hosted& h);

  DeskContext& ctx_;
  QWidget* main_;
  std::map<std::string, Builder> builders_;
  std::map<std::string, Hosted> hosted_;
  int loadedListener_ = 0;
};

}  // namespace q::gui
