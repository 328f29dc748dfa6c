#pragma once
// Work the console hands away from its own thread: the reading of a long
// show file. The console stays single-threaded: the job touches nothing of
// the console's and fills a result of its own, which the console takes in,
// in one short step on its own thread, once the job has ended.

#include <functional>

namespace q {

class BackgroundWork {
 public:
  virtual ~BackgroundWork() = default;
  // Runs job and returns once it has ended, its exception thrown again here.
  // Meanwhile the console's timers go on (the fades, the chasers, the
  // output); the operator's own input waits until the job has ended.
  virtual void run(const std::function<void()>& job) = 0;

 protected:
  // The one way a host runs a job beside the console: on a thread of its
  // own, whose last act is ended(), while wait() keeps the console going
  // until ended() has been called. A job's failure is thrown again here.
  // When the system gives no thread, the job runs in place.
  static void runBeside(const std::function<void()>& job, const std::function<void()>& ended,
                        const std::function<void()>& wait);
};

}  // namespace q
