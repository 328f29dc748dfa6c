#pragma once
// The desk on the offscreen platform over a console on a virtual clock:
// events go to the real widgets, and the tests look at the console.

#include <QApplication>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <memory>

#include "gui/desk/desk_context.h"
#include "gui/desk/desk_surface.h"
#include "gui/desk/form1.h"
#include "gui/guarded_application.h"
#include "support/console_fixture.h"

namespace q::test {

// One application for the whole test program, on the offscreen platform,
// guarded as the desk's is.
inline void ensureApplication() {
  if (qApp) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "test_gui";
  static char* argv[] = {name, nullptr};
  new gui::GuardedApplication(argc, argv);
}

class DeskFixture : public ConsoleFixture {
 protected:
  static void SetUpTestSuite() { ensureApplication(); }

  void TearDown() override {
    if (auto* app = gui::GuardedApplication::instance()) app->onFailure = nullptr;
    form.reset();
    ctx.reset();
  }

  // Builds the desk and starts the console, which skins and shows it.
  gui::Form1& desk() {
    if (!form) {
      ctx = std::make_unique<gui::DeskContext>(console());
      console().look.setPicture(&ctx->sheet);
      form = std::make_unique<gui::Form1>(*ctx);
      form->setZoomOverride(1);
      // What fails in an event is told in the console's failure box, as on the desk.
      if (auto* app = gui::GuardedApplication::instance())
        app->onFailure = [this](const std::string& f) { console().failures.report(f); };
      console().start();
    }
    return *form;
  }

  template <class W = QWidget>
  W* widget(const std::string& control) {
    return qobject_cast<W*>(desk().desk().widgetFor(control));
  }

  // Drags a file from outside and lets it go over w.
  static bool dropFile(QWidget* w, const std::string& file) {
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
    const QPoint at = w->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &drop);
    return drop.isAccepted();
  }

  std::unique_ptr<gui::DeskContext> ctx;
  std::unique_ptr<gui::Form1> form;
};

}  // namespace q::test
