#pragma once
// The interface layer: one active output adapter chosen by InterfaceType,
// reached through three dispatches (start, send the frame, stop).

namespace q {

class Console;

class InterfaceLayer {
 public:
  explicit InterfaceLayer(Console& c) : c_(c) {}
  void startDMX();
  void stopDMX();
  // Called on every DMXTimer tick after the mix: the frame goes out whether or not it changed.
  void sendFrame();

 private:
  [[maybe_unused]] Console& c_;
};

}  // namespace q
