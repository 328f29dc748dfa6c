#pragma once
// The FTDI frame senders (interfaces 1, 6 and 9) as the console drives them:
// started by startDMX, handed the frame at every output tick, closed at stop.
//
// With real devices the frames go on the wire from a WireThread, so the line
// is refreshed at the output rate whatever the console thread is doing; with
// fakes they go out inside the tick. Either way a write that keeps failing
// shows its message once, not a box on every frame: the message comes back
// only after a frame has gone out again.

#include <functional>
#include <memory>

#include "engine/interfaces/open_dmx.h"
#include "engine/interfaces/wire_thread.h"

namespace q {

class FtdiFrameSender {
 public:
  struct Options {
    bool wireThread = false;
    std::function<void()> prepareWireThread;
    int intervalMs = 100;
  };

  FtdiFrameSender(std::unique_ptr<FtdiDevice> device, OpenDmx::Hooks hooks, Options options);
  ~FtdiFrameSender();

  // Opens and sets up the adapter and sets the start code to 0. The caller
  // clears the frame.
  bool startDMX();
  // Console thread, at each output tick.
  void sendFrame(const uint8_t* frame, int intervalMs);
  // Stops the line and closes the adapter.
  void close();

  OpenDmx& openDmx() { return dmx_; }
  const WireThread* wire() const { return wire_.get(); }

 private:
  int sendOnWire(const uint8_t* frame);
  void report(const char* failure);

  std::unique_ptr<FtdiDevice> device_;
  OpenDmx dmx_;
  std::function<void(const std::string&)> message_;
  Options options_;
  std::unique_ptr<WireThread> wire_;
  bool failureShown_ = false;
};

}  // namespace q
