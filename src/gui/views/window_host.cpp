#include "gui/views/window_host.h"

#include "engine/core/console.h"
#include "gui/desk/desk_context.h"

namespace q::gui {

WindowHost::WindowHost(DeskContext& ctx, QWidget* mainWindow)
    : QObject(mainWindow), ctx_(ctx), main_(mainWindow) {
  WindowCatalogue& windows = console().windows;
  loadedListener_ = windows.loaded.add([this](Window& w) { adopt(w); });
  for (const std::string& name : windows.loadedNames())
    if (Window* w = windows.find(name)) adopt(*w);
  connect(&ctx_, &DeskContext::reskinned, this, [this] {
    for (auto& [name, h] : hosted_)
      if (h.view) h.view->relayout();
  });
}

WindowHost::~WindowHost() {
  console().windows.loaded.remove(loadedListener_);
  while (!hosted_.empty()) release(hosted_.begin()->first);
}

Console& WindowHost::console() { return ctx_.console; }

void WindowHost::addBuilder(const std::string& window, Builder build) {
  builders_[window] = std::move(build);
  // A window loaded and shown before its builder came shows now.
  if (hosted_.count(window)) follow(window);
}

FormView* WindowHost::viewOf(const std::string& window) const {
  auto it = hosted_.find(window);
  return it == hosted_.end() ? nullptr : it->second.view.data();
}

void WindowHost::adopt(Window& w) {
  const std::string name = w.name();
  Hosted& h = hosted_[name];
  h.model = &w;
  h.changed = w.changed.add([this, name] { follow(name); });
  h.activated = w.activated.add([this, name] { bringToFront(name); });
  h.unloading = w.unloading.add([this, name] { release(name); });
  follow(name);
}

FormView* WindowHost::build(Hosted& h) {
  auto b = builders_.find(h.model->name());
  if (b == builders_.end()) return nullptr;
  FormView* view = b->second(*this, *h.model);
  if (!view) return nullptr;
  view->setParent(main_, Qt::Dialog);
  // Opened over the desk, near its centre.
  if (main_) {
    const QPoint centre = main_->geometry().center();
    view->move(centre - QPoint(view->width() / 2, view->height() / 2));
  }
  h.view = view;
  return view;
}

void WindowHost::follow(const std::string& name) {
  auto it = hosted_.find(name);
  if (it == hosted_.end()) return;
  Hosted& h = it->second;
  if (!h.model->isVisible()) {
    if (h.view) h.view->hide();
    return;
  }
  FormView* view = h.view ? h.view.data() : build(h);
  if (!view) return;
  view->setWindowTitle(QString::fromStdString(h.model->caption()));
  Qt::WindowFlags flags = Qt::Dialog;
  if (h.model->stayOnTop) flags |= Qt::WindowStaysOnTopHint;
  if (view->windowFlags() != flags) view->setWindowFlags(flags);
  view->setWindowModality(h.model->isModal() ? Qt::ApplicationModal : Qt::NonModal);
  if (!view->isVisible()) view->show();
}

void WindowHost::bringToFront(const std::string& name) {
  auto it = hosted_.find(name);
  if (it == hosted_.end() || !it->second.view) return;
  FormView* view = it->second.view;
  view->expectActivation();
  view->raise();
  view->activateWindow();
}

void WindowHost::release(const std::string& name) {
  auto it = hosted_.find(name);
  if (it == hosted_.end()) return;
  Hosted h = it->second;
  hosted_.erase(it);
  h.model->changed.remove(h.changed);
  h.model->activated.remove(h.activated);
  h.model->unloading.remove(h.unloading);
  if (h.view) {
    h.view->modelGone();
    h.view->hide();
    // Its own handler may be on the stack (an Ok button that unloads): it goes later.
    h.view->deleteLater();
  }
}

}  // namespace q::gui
