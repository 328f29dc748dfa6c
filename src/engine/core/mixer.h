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

#include "engine/controls/listeners.h"
#include "engine/core/variables.h"

namespace q {

class Console;

class Mixer {
 public:
  explicit Mixer(Console& c);
  void MixOutput();

  // An adapter that takes its channels from inside the mix (the Velleman)
  // gets each one here as the mix makes it.
  std::function<void(int channel, uint8_t value)> perChannelOutput;
  // Told after every mix, once MixBuffer and DMXData hold the new frame: the
  // matrix view repaints its output strip (when it is in normal state).
  Listeners<> outputMixed;

  // One product per source byte for a given set of weights; key -1 = not built.
  struct LevelTable {
    int key = -1;
    std::array<uint8_t, 256> at{};
  };

 private:
  enum class Role : uint8_t { None, Sub, Inv, Byp };
  // What one strip, or several SUB strips at the same weights, do to a channel.
  struct StripOp {
    Role role;
    int key;               // the weights behind the table
    uint8_t column;        // source column in ChanTable (single strip)
    const uint8_t* table;  // the product for each column byte
    // SUB strips at the same weights share one product table, and a product
    // never falls as its column rises, so the highest of their columns
    // decides: a mask over the row marks the columns of the group.
    bool grouped;
    std::array<uint8_t, kColumns> mask;
  };
  // A chaser's current step as it lifts each channel, kept until the step,
  // its level or the chaser's table change.
  struct ChaserLift {
    uint64_t version = 0;
    int step = -1;
    int level = -1;
    const CSparseMatrix* data = nullptr;
    std::array<uint8_t, kChannels> at{};
  };

  void readRoles();
  bool handsOverChannels() const;
  void prepareStrips();
  void addStrip(Role role, int key, uint8_t column, const uint8_t* table);
  void prepareTables();
  void prepareLanes();
  template <bool kWithInv, bool kEveryStrip>
  void mixSources(int channels);
  void addChaser(int k, int channels);
  uint8_t bypassed(int logical, uint8_t level) const;
  void firstPassOutput(int channels);
  bool patchOutput(int out);
  void patchPass();

  Console& c_;
  std::array<Role, kSubmasters> roles_{};
  std::vector<StripOp> mixOps_;     // SUB and INV strips, in strip order
  std::vector<StripOp> bypassOps_;  // BYP strips, in strip order
  // Without INV strips: the single strips, padded to a multiple of four, and the groups.
  struct Single {
    uint8_t column;
    const uint8_t* table;
  };
  std::vector<Single> singles_;
  std::vector<const StripOp*> groups_;
  size_t segmentStart_ = 0;  // first op after the latest INV
  bool hasInv_ = false;
  // Without INV strips and with several single strips up, a SUB strip's
  // product is taken as a 16-bit multiplier, floor(byte x a / 65536), and a
  // channel's twenty strips are weighed at once, eight to a vector. A
  // multiplier stands in for a table only where it gives the table's product
  // for every byte (a strip at full with the master at full passes its column
  // whole); a strip that no multiplier fits keeps its table.
  struct Multiplier {
    int key = -1;
    bool whole = false;  // the product is the byte itself
    bool exact = false;  // a gives the product of every byte
    uint16_t a = 0;
  };
  static constexpr size_t kManySingles = 4;
  const Multiplier& multiplierOf(int strip, int key, const uint8_t* table);
  std::array<Multiplier, kSubmasters> multiplier_{};
  // By lane: strips 1..8, 9..16, then four unused lanes and strips 17..20.
  alignas(16) std::array<uint16_t, 24> laneMultiplier_{};
  alignas(16) std::array<uint16_t, 24> laneWhole_{};  // 0xFFFF: the column passes whole
  std::vector<Single> tabled_;                        // single strips no multiplier fits
  size_t singleCount_ = 0;

  LevelTable stage_, prog_, midi_, grand_;
  std::array<LevelTable, kSubmasters>
      sub_{};  // floor(((SubMasterLevel/255) x col) x (SubLevel/255))
  std::array<LevelTable, kSubmasters> plain_{};  // floor((SubLevel/255) x col): INV and BYP
  std::array<ChaserLift, 2> chaser_{};
  std::array<LevelTable, 2> chaserLevel_{};  // floor((FXnLevel/255) x byte)
};

}  // namespace q
