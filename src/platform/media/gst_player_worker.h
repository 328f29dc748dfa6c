#pragma once
// The GStreamer side of one player. Every GStreamer call of the player is
// made on this worker's own thread, so that opening a file, a state change
// that waits for a sound device or a stuck sink never holds up the console.
// The console hands it commands; it hands back reports, and makes its wake-up
// descriptor readable whenever a report waits. The pipeline's bus is read
// here too: its messages are taken in the thread that posts them and passed
// to the worker, never to the console.
//
// Every load starts a new generation; commands and reports carry the
// generation they belong to, so that news of a medium that was replaced
// meanwhile is dropped.

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

typedef struct _GstElement GstElement;
typedef struct _GstMessage GstMessage;

namespace q {

struct PlayerCommand {
  enum class Kind { Load, Unload, Play, Pause, Stop, Volume, Pan, Rate, Quit };
  Kind kind = Kind::Quit;
  uint64_t generation = 0;
  std::string path, sink;  // Load
  double value = 0;        // Volume (linear gain), Pan (-1..1), Rate (factor)
};

struct PlayerReport {
  enum class Kind { Ready, Failed, State, Position };
  Kind kind = Kind::Position;
  uint64_t generation = 0;
  int state = 0;                    // State: 0 stopped, 1 paused, 2 playing
  double position = 0, length = 0;  // seconds
  std::string reason;               // Failed
};

class GstPlayerWorker {
 public:
  GstPlayerWorker();
  ~GstPlayerWorker();
  GstPlayerWorker(const GstPlayerWorker&) = delete;
  GstPlayerWorker& operator=(const GstPlayerWorker&) = delete;

  // From the console thread; never waits for GStreamer.
  void send(PlayerCommand c);
  // The reports that wait, oldest first; the wake-up descriptor is cleared.
  std::vector<PlayerReport> take();
  int wakeFd() const { return wakeFd_; }

  // Called on GStreamer's own threads by the bus: the message is queued for the worker.
  void posted(GstMessage* m);

 private:
  enum class Phase { Empty, Loading, Ready, Failed };

  void run();
  void handle(const PlayerCommand& c);
  void handle(GstMessage* m);
  void load(const PlayerCommand& c);
  void teardown();
  void prerolled();
  void play();
  void pause();
  void stop();
  void setRate(double r);
  void seekTo(int64_t ns);
  void reachedEnd();
  void failed(const std::string& reason);
  void report(PlayerReport r);
  void reportState(int s);
  void reportPosition();
  bool pollingPosition() const { return state_ == 2; }

  // Shared with the console thread and the bus.
  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<PlayerCommand> commands_;
  std::deque<GstMessage*> messages_;
  std::vector<PlayerReport> reports_;
  int wakeFd_ = -1;

  // The worker's own.
  GstElement* pipeline_ = nullptr;
  GstElement* pan_ = nullptr;
  Phase phase_ = Phase::Empty;
  uint64_t generation_ = 0;
  int state_ = 0;
  bool playWhenReady_ = false;
  bool atEnd_ = false;  // played to its end, not yet played again
  double gain_ = 1, panValue_ = 0, rate_ = 1, appliedRate_ = 1;
  std::thread thread_;
};

// Why a medium can't be played, in the operator's words, from a GStreamer error.
std::string describeGstError(unsigned domainQuark, int code, const std::string& message);

}  // namespace q
