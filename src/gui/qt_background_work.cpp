#include "gui/qt_background_work.h"

#include <QEventLoop>
#include <QMetaObject>

namespace q::gui {

void QtBackgroundWork::run(const std::function<void()>& job) {
  QEventLoop loop;
  runBeside(
      job,
      // Queued: delivered once the loop runs, even if the job ended before it started.
      [&loop] { QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection); },
      [&loop] { loop.exec(QEventLoop::ExcludeUserInputEvents); });
}

}  // namespace q::gui
