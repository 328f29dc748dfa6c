#pragma once
// MixOutput: turns the source table into the outgoing frame.

#include <cstdint>
#include <functional>

namespace q {

class Console;

class Mixer {
 public:
  explicit Mixer(Console& c) : c_(c) {}
  void MixOutput();

  // Interface 8 takes each channel from inside the mix, as the mix makes it.
  std::function<void(int channel, uint8_t value)> perChannelOutput;
  // Asks the matrix view to repaint its output strip (only when it is in normal state).
  std::function<void()> onOutputStripRepaint;

 private:
  Console& c_;
};

}  // namespace q
