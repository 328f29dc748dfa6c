#include "engine/core/background_work.h"

#include <exception>
#include <system_error>
#include <thread>

namespace q {

void BackgroundWork::runBeside(const std::function<void()>& job, const std::function<void()>& ended,
                               const std::function<void()>& wait) {
  std::exception_ptr failure;
  std::thread worker;
  try {
    worker = std::thread([&] {
      try {
        job();
      } catch (...) {
        failure = std::current_exception();
      }
      ended();
    });
  } catch (const std::system_error&) {
    return job();  // no thread to be had: the read runs here
  }
  wait();
  worker.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace q
