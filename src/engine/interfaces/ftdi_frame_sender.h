#pragma once
// The FTDI frame senders (interfaces 1, 6 and 9) as the console drives them:
// started by startDMX, handed the frame at every output tick, closed at stop.
//
// With real devices the frames go on the wire from a WireThread, so the line
// is refreshed at the output rate whatever the console thread is doing; with
// fakes they go out inside the tick. A failed write means the adapter is
// gone (unplugged, or its USB link reset): the line stops, the chip is let
// go, and the operator is told once, without a box that waits for an
// answer. The sender then sets the chip up again quietly, at most once a
// second on the console's clock, and the frames resume from the tick of
// the try that finds it.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/interfaces/open_dmx.h"
#include "engine/interfaces/reconnect_policy.h"
#include "engine/interfaces/wire_thread.h"

namespace q {

class FtdiFrameSender {
 public:
  struct Options {
    bool wireThread = false;
    std::function<void()> prepareWireThread;
    int intervalMs = 100;
    // The console's clock; without it, the steady clock.
    std::function<int64_t()> nowMs;
    // Tells the operator of a loss without waiting for an answer; without
    // it, the adapter's message box.
    std::function<void(const std::string& text)> notice;
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
  OutputHealth health() const { return policy_.health(); }
  // The adapter's name as the setup window lists it, for the message of a loss.
  std::string adapterName = "Enttec Open DMX USB";

 private:
  int sendOnWire(const uint8_t* frame);
  void startLine();
  // The failure of a frame: the adapter is let go and, the first time, the operator told.
  void lose(const char* failure, int64_t nowMs);
  // A quiet set-up once the try is due; true when the adapter is back.
  bool comeBack(int64_t nowMs);
  int64_t now() const;

  std::unique_ptr<FtdiDevice> device_;
  OpenDmx dmx_;
  std::function<void(const std::string&)> message_;
  Options options_;
  std::unique_ptr<WireThread> wire_;
  ReconnectPolicy policy_;
};

}  // namespace q
