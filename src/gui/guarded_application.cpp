#include "gui/guarded_application.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMetaObject>
#include <QPointer>
#include <cstdio>
#include <exception>

namespace q::gui {

namespace {

bool choosesFromAMenu(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
      return qobject_cast<QMenu*>(receiver) != nullptr;
    default:
      return false;
  }
}

// What the operator was doing, in the names the desk shows: the caption of a
// menu choice, the console name of a control, else the nearest named window.
std::string whatFailed(const QPointer<QObject>& receiver, const QPointer<QAction>& choice) {
  if (choice) {
    QString caption = choice->text();
    caption.remove('&');
    return "The menu choice " + caption.toStdString();
  }
  for (QObject* o = receiver; o; o = o->parent())
    if (!o->objectName().isEmpty()) return o->objectName().toStdString();
  return "A desk event";
}

}  // namespace

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

GuardedApplication::~GuardedApplication() = default;

GuardedApplication* GuardedApplication::instance() {
  return qobject_cast<GuardedApplication*>(QCoreApplication::instance());
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  // The handler may close the very window it belongs to, and the menu
  // forgets its active choice while the choice runs. Only a widget is named:
  // the events that reach anything else (the timers') are kept cheap.
  const QPointer<QObject> target(receiver->isWidgetType() ? receiver : nullptr);
  QPointer<QAction> choice;
  if (choosesFromAMenu(receiver, event)) choice = static_cast<QMenu*>(receiver)->activeAction();
  std::string failure;
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& e) {
    failure = whatFailed(target, choice) + " failed: " + e.what();
  } catch (...) {
    failure = whatFailed(target, choice) + " failed";
  }
  // Told once this event is over, from the event loop: a box opened inside
  // a press or a menu would hold the mouse or the menu open.
  QMetaObject::invokeMethod(
      this, [this, failure] { tell(failure); }, Qt::QueuedConnection);
  return true;
}

void GuardedApplication::tell(const std::string& failure) {
  if (onFailure)
    onFailure(failure);
  else
    std::fprintf(stderr, "quintara: %s\n", failure.c_str());
}

}  // namespace q::gui
