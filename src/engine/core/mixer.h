#pragma once
// MixOutput: turns the source table into the outgoing frame.
//
// Every level product of the mix takes one byte of a source and a handful of
// weights that change far less often than the output rate, so each product is
// kept as a 256-entry table per weight, rebuilt only when its weight changes.
// A table entry is the product exactly as the mix evaluates it (same operands,
// same order, same floor or rounding), so the frame is the same bit for bit.

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace q {

class Console;

class Mixer {
 public:
  explicit Mixer(Console& c);
  void MixOutput();

  // Interface 8 takes each channel from inside the mix, as the mix makes it.
  std::function<void(int channel, uint8_t value)> perChannelOutput;
  // Asks the matrix view to repaint its output strip (only when it is in normal state).
  std::function<void()> onOutputStripRepaint;

  // One product per source byte for a given set of weights; key -1 = not built.
  struct LevelTable {
    int key = -1;
    std::array<uint8_t, 256> at{};
  };

 private:
  enum class Role : uint8_t { None, Sub, Inv, Byp };
  // What one strip does to a channel in this mix.
  struct StripOp {
    Role role;
    uint8_t column;       // source column in ChanTable
    const uint8_t* table;  // the strip's product for each column byte
  };

  void readRoles();
  void prepareTables();
  void mixSources(int channels);
  void addChaser(int k, int channels);
  uint8_t bypassed(int logical, uint8_t level) const;
  void firstPassOutput(int channels);
  void patchPass();

  Console& c_;
  std::array<Role, 20> roles_{};
  std::vector<StripOp> mixOps_;     // SUB and INV strips, in strip order
  std::vector<StripOp> bypassOps_;  // BYP strips, in strip order
  bool hasInv_ = false;

  LevelTable stage_, prog_, midi_, grand_;
  std::array<LevelTable, 20> sub_{};    // floor(((SubMasterLevel/255) x col) x (SubLevel/255))
  std::array<LevelTable, 20> plain_{};  // floor((SubLevel/255) x col): INV and BYP
  std::array<LevelTable, 2> chaser_{};  // floor(cell x (FXnLevel/255)) for whole cells 0..255
};

}  // namespace q
