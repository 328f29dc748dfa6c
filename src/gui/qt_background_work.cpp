#include "gui/qt_background_work.h"

#include <QEventLoop>
#include <QMetaObject>

#include <exception>
#include <system_error>
#include <thread>

namespace q::gui {

void QtBackgroundWork::run(const std::function<void()>& job) {
  QEventLoop loop;
  std::exception_ptr failure;
  std::thread worker;
  try {
    worker = std::thread([&] {
      try {
        job();
      } catch (...) {
        failure = std::current_exception();
      }
      // Queued: delivered once the loop runs, even if the job ended before it started.
      QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
  } catch (const std::system_error&) {
    return job();  // no thread to be had: the read runs here
  }
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  worker.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace q::gui
