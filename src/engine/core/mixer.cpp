#include "engine/core/mixer.h"

#include <algorithm>
#include <cmath>

#include "engine/core/console.h"

namespace q {

namespace {
// Fills a table once per weight: product(c) for every source byte c.
template <class Product>
const uint8_t* tableFor(Mixer::LevelTable& t, int key, Product product) {
  if (t.key != key) {
    for (int c = 0; c < 256; ++c) t.at[c] = uint8_t(product(c));
    t.key = key;
  }
  return t.at.data();
}

// A level as a weight: divided by 255 before it multiplies anything.
double weight(int level) { return level / 255.0; }

// floor(weight x byte), the common truncating product of the mix.
const uint8_t* scaled(Mixer::LevelTable& t, int level) {
  const double w = weight(level);
  return tableFor(t, level, [w](int c) { return std::floor(w * c); });
}
}  // namespace

Mixer::Mixer(Console& c) : c_(c) {
  mixOps_.reserve(kSubmasters);
  bypassOps_.reserve(kSubmasters);
}

void Mixer::MixOutput() {
  Variables& v = c_.v;
  // Blackout only zeroes the master: the mix goes on, and bypass strips survive it.
  v.GrandMaster = v.BlackOut != kFalse ? 0 : uint8_t(std::clamp(255 - c_.form1.SMaster.position(), 0, 255));
  c_.liveDisplay.beginMix();
  const int channels = std::clamp<int>(v.MaxChans, 0, kChannels);
  readRoles();
  prepareTables();
  mixSources(channels);
  for (int k = 0; k < 2; ++k)
    if (c_.form1.FXTimer[k]->isEnabled()) addChaser(k, channels);
  if (v.PatchOn == kFalse) firstPassOutput(channels);
  v.I = int16_t(channels + 1);
  if (channels > 0) v.J = kSubmasters + 1;
  if (v.PatchOn != kFalse) patchPass();
  c_.liveDisplay.endMix();
  if (onOutputStripRepaint) onOutputStripRepaint();
  v.MixDirty = kFalse;
}

// A strip's role is its function word; the words cannot change while a mix runs.
void Mixer::readRoles() {
  for (int j = 0; j < kSubmasters; ++j) {
    const std::string& word = c_.form1.FaderFunc(j + kFirstStrip).caption();
    roles_[j] = word == "SUB" ? Role::Sub : word == "INV" ? Role::Inv : word == "BYP" ? Role::Byp : Role::None;
  }
}

void Mixer::prepareTables() {
  const Variables& v = c_.v;
  const double master = weight(v.SubMasterLevel);
  mixOps_.clear();
  bypassOps_.clear();
  hasInv_ = false;
  for (int j = 0; j < kSubmasters; ++j) {
    const uint8_t column = uint8_t(j + 2);
    const int level = v.SubLevel[j];
    switch (roles_[j]) {
      case Role::Sub: {
        const double w = weight(level);
        const int key = v.SubMasterLevel * 256 + level;
        // The master scales the column first, the strip's own level after.
        mixOps_.push_back({Role::Sub, column,
                           tableFor(sub_[j], key, [=](int c) { return std::floor((master * c) * w); })});
        break;
      }
      case Role::Inv:
        mixOps_.push_back({Role::Inv, column, scaled(plain_[j], level)});
        hasInv_ = true;
        break;
      case Role::Byp: bypassOps_.push_back({Role::Byp, column, scaled(plain_[j], level)}); break;
      case Role::None: break;
    }
  }
  scaled(stage_, v.StageLevel);
  scaled(prog_, v.ProgLevel);
  scaled(midi_, v.MidiLevel);
  const double gm = weight(v.GrandMaster);
  // The grand master is the one product that rounds (half to even) instead of truncating.
  tableFor(grand_, v.GrandMaster, [gm](int m) { return roundHalfEven(gm * m); });
  for (int k = 0; k < 2; ++k) {
    const double w = weight(k == 0 ? v.FX1Level : v.FX2Level);
    tableFor(chaser_[k], k == 0 ? v.FX1Level : v.FX2Level, [w](int c) { return std::floor(c * w); });
  }
}

// Scenes, strips and MIDI into MixBuffer for channels 1..channels.
void Mixer::mixSources(int channels) {
  Variables& v = c_.v;
  const uint8_t* stage = stage_.at.data();
  const uint8_t* prog = prog_.at.data();
  const uint8_t* midi = midi_.at.data();
  for (int i = 0; i < channels; ++i) {
    const uint8_t* row = v.ChanTable[i].data();
    // Prog and Stage add: a true crossfade sum, each share floored on its own.
    const int sum = prog[row[kProgColumn]] + stage[row[kStageColumn]];
    int mb = sum < 255 ? sum : 255;
    for (const StripOp& op : mixOps_) {
      const int t = op.table[row[op.column]];
      if (op.role == Role::Sub) {
        if (t > mb) mb = t;
      } else {
        // An inverting strip takes away from what is mixed so far.
        const int rest = mb - t;
        mb = rest <= -1 ? 0 : rest;
      }
    }
    const int m = midi[row[kMidiColumn]];
    v.MixBuffer[i] = uint8_t(m > mb ? m : mb);
  }
}

void Mixer::addChaser(int k, int channels) {
  Variables& v = c_.v;
  const double step = leadingNumber(c_.form1.FxStep[k]->caption());
  if (!(step >= -32768 && step <= 32767)) return;  // no such step: nothing lit
  const int16_t row = int16_t(std::lrint(step));
  const CSparseMatrix& data = v.fxData(k);
  const uint8_t* table = chaser_[k].at.data();
  const double w = weight(k == 0 ? v.FX1Level : v.FX2Level);
  for (int i = 0; i < channels; ++i) {
    const double cell = data.number(row, int16_t(i + 1));
    double c;
    if (cell >= 0 && cell <= 255 && cell == double(int(cell)))
      c = table[int(cell)];
    else
      c = std::floor(cell * w);  // a hand-edited step: computed as it stands
    if (c > v.MixBuffer[i]) v.MixBuffer[i] = uint8_t(std::min(c, 255.0));
  }
}

// The bypass strips of a logical channel raise its level after the grand master.
uint8_t Mixer::bypassed(int logical, uint8_t level) const {
  const uint8_t* row = c_.v.ChanTable[logical - 1].data();
  for (const StripOp& op : bypassOps_) level = std::max(level, op.table[row[op.column]]);
  return level;
}

void Mixer::firstPassOutput(int channels) {
  Variables& v = c_.v;
  const uint8_t* grand = grand_.at.data();
  for (int i = 0; i < channels; ++i) v.DMXData[i] = bypassed(i + 1, grand[v.MixBuffer[i]]);
  const bool handOver = v.InterfaceType == 8 && perChannelOutput;
  LiveDisplay& live = c_.liveDisplay;
  for (int i = 1; i <= channels; ++i) {
    live.ShowChannel(i);
    // This interface gets the mastered level without the bypass strips.
    if (handOver) perChannelOutput(i, grand[v.MixBuffer[i - 1]]);
  }
}

// All 512 outputs through the patch. The counter is the shared I: the live
// display's label test can set it back to 30, and the pass then goes on from 31.
void Mixer::patchPass() {
  Variables& v = c_.v;
  const uint8_t* grand = grand_.at.data();
  const bool handOver = v.InterfaceType == 8 && perChannelOutput;
  for (v.I = 1; v.I <= kChannels; ++v.I) {
    const int out = v.I;
    const int logical = v.PatchMap[out - 1];
    if (logical > 0 && logical <= kChannels) {
      const uint8_t mastered = grand[v.MixBuffer[logical - 1]];
      v.DMXData[out - 1] = bypassed(logical, mastered);
      v.J = kSubmasters + 1;
      if (handOver) perChannelOutput(out, mastered);
    }
    c_.liveDisplay.ShowChannel(out);
  }
}

}  // namespace q
