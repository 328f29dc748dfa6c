#include "engine/core/mixer.h"

#include <algorithm>
#include <cmath>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "engine/core/console.h"
#include "engine/interfaces/interface_list.h"

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

// The floor of a product of levels and weights, which are never negative:
// there the floor is the truncation, and the truncation needs no library call.
inline long floorOf(double x) { return long(x); }

// floor(weight x byte), the common truncating product of the mix.
const uint8_t* scaled(Mixer::LevelTable& t, int level) {
  const double w = weight(level);
  return tableFor(t, level, [w](int c) { return floorOf(w * c); });
}

// A table of zeros: pads the strips so they can be taken four at a time.
const std::array<uint8_t, 256> kNothing{};

// The highest byte of a row among the masked columns.
inline uint8_t highestMasked(const uint8_t* row, const uint8_t* mask) {
#if defined(__SSE2__)
  static_assert(kColumns == 24);
  auto load16 = [](const uint8_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  };
  auto load8 = [](const uint8_t* p) {
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
  };
  __m128i m = _mm_max_epu8(_mm_and_si128(load16(row), load16(mask)),
                           _mm_and_si128(load8(row + 16), load8(mask + 16)));
  m = _mm_max_epu8(m, _mm_srli_si128(m, 8));
  m = _mm_max_epu8(m, _mm_srli_si128(m, 4));
  m = _mm_max_epu8(m, _mm_srli_si128(m, 2));
  m = _mm_max_epu8(m, _mm_srli_si128(m, 1));
  return uint8_t(_mm_cvtsi128_si32(m));
#else
  uint8_t m = 0;
  for (int k = 0; k < kColumns; ++k) m = std::max<uint8_t>(m, row[k] & mask[k]);
  return m;
#endif
}
#if defined(__SSE2__)
constexpr bool kHasLanes = true;
// The multipliers and whole-column masks of the three vectors of strips.
struct Lanes {
  __m128i a[3], whole[3];
  Lanes(const uint16_t* multiplier, const uint16_t* wholeMask) {
    for (int k = 0; k < 3; ++k) {
      a[k] = _mm_load_si128(reinterpret_cast<const __m128i*>(multiplier + 8 * k));
      whole[k] = _mm_load_si128(reinterpret_cast<const __m128i*>(wholeMask + 8 * k));
    }
  }
};

// The highest product of the single strips on one channel's row: columns
// 2..9, 10..17 and 14..21 as three vectors of eight 16-bit lanes (the
// lanes of columns 14..17 in the third have multiplier 0).
inline int strongestStrip(const uint8_t* row, const Lanes& l) {
  const __m128i zero = _mm_setzero_si128();
  auto weigh = [&](int k, int column) {
    const __m128i c =
        _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(row + column)), zero);
    return _mm_or_si128(_mm_mulhi_epu16(c, l.a[k]), _mm_and_si128(c, l.whole[k]));
  };
  __m128i m = _mm_max_epi16(_mm_max_epi16(weigh(0, 2), weigh(1, 10)), weigh(2, 14));
  m = _mm_max_epi16(m, _mm_srli_si128(m, 8));
  m = _mm_max_epi16(m, _mm_srli_si128(m, 4));
  m = _mm_max_epi16(m, _mm_srli_si128(m, 2));
  return _mm_cvtsi128_si32(m) & 0xFFFF;
}
#else
constexpr bool kHasLanes = false;
struct Lanes {
  Lanes(const uint16_t*, const uint16_t*) {}
};
inline int strongestStrip(const uint8_t*, const Lanes&) { return 0; }
#endif
}  // namespace

Mixer::Mixer(Console& c) : c_(c) {
  mixOps_.reserve(kSubmasters);
  bypassOps_.reserve(kSubmasters);
  singles_.reserve(kSubmasters + 3);
  groups_.reserve(kSubmasters);
}

void Mixer::MixOutput() {
  Variables& v = c_.v;
  // Blackout only zeroes the master: the mix goes on, and bypass strips survive it.
  v.GrandMaster =
      v.BlackOut != kFalse ? 0 : uint8_t(std::clamp(255 - c_.form1.SMaster.position(), 0, 255));
  c_.liveDisplay.beginMix();
  const int channels = std::clamp<int>(v.MaxChans, 0, kChannels);
  readRoles();
  prepareTables();
  prepareStrips();
  if (hasInv_) {
    mixSources<true, false>(channels);
  } else if (kHasLanes && singleCount_ >= kManySingles) {
    prepareLanes();
    mixSources<false, true>(channels);
  } else {
    mixSources<false, false>(channels);
  }
  for (int k = 0; k < 2; ++k)
    if (c_.form1.FXTimer[k]->isEnabled()) addChaser(k, channels);
  if (v.PatchOn == kFalse) firstPassOutput(channels);
  v.I = int16_t(channels + 1);
  if (channels > 0) v.J = kSubmasters + 1;
  if (v.PatchOn != kFalse) patchPass();
  c_.liveDisplay.endMix();
  outputMixed.notify();
  v.MixDirty = kFalse;
}

// A strip's role is its function word; the words cannot change while a mix runs.
void Mixer::readRoles() {
  for (int j = 0; j < kSubmasters; ++j) {
    switch (c_.form1.stripWord(j + kFirstStrip)) {
      case StripWord::Sub:
        roles_[j] = Role::Sub;
        break;
      case StripWord::Inv:
        roles_[j] = Role::Inv;
        break;
      case StripWord::Byp:
        roles_[j] = Role::Byp;
        break;
      default:
        roles_[j] = Role::None;  // any other word takes no part in the mix
        break;
    }
  }
}

// Whether the adapter in use takes each channel from inside the mix.
bool Mixer::handsOverChannels() const {
  return perChannelOutput && interfaceEntry(c_.v.InterfaceType).has(kTakesChannelsInMix);
}

void Mixer::prepareTables() {
  const Variables& v = c_.v;
  scaled(stage_, v.StageLevel);
  scaled(prog_, v.ProgLevel);
  scaled(midi_, v.MidiLevel);
  const double gm = weight(v.GrandMaster);
  // The grand master is the one product that rounds (half to even) instead of truncating.
  tableFor(grand_, v.GrandMaster, [gm](int m) { return roundHalfEven(gm * m); });
}

void Mixer::prepareStrips() {
  const Variables& v = c_.v;
  const double master = weight(v.SubMasterLevel);
  mixOps_.clear();
  bypassOps_.clear();
  segmentStart_ = 0;
  hasInv_ = false;
  for (int j = 0; j < kSubmasters; ++j) {
    const uint8_t column = uint8_t(j + 2);
    const int level = v.SubLevel[j];
    switch (roles_[j]) {
      case Role::Sub: {
        const double w = weight(level);
        const int key = v.SubMasterLevel * 256 + level;
        // The master scales the column first, the strip's own level after.
        addStrip(Role::Sub, key, column,
                 tableFor(sub_[j], key, [=](int c) { return floorOf((master * c) * w); }));
        break;
      }
      case Role::Inv:
        addStrip(Role::Inv, level, column, scaled(plain_[j], level));
        break;
      case Role::Byp:
        bypassOps_.push_back({Role::Byp, level, column, scaled(plain_[j], level), false, {}});
        break;
      case Role::None:
        break;
    }
  }
  singles_.clear();
  groups_.clear();
  for (const StripOp& op : mixOps_) {
    if (op.grouped)
      groups_.push_back(&op);
    else
      singles_.push_back({op.column, op.table});
  }
  singleCount_ = singles_.size();
  while (singles_.size() % 4) singles_.push_back({kStageColumn, kNothing.data()});
}

// A strip whose product is 0 even for a full column changes nothing (a SUB
// cannot lower, an INV takes 0 away) and is left out. SUB strips between the
// same two INV strips only raise, so their order among themselves is free and
// those at equal weights are merged into one group.
void Mixer::addStrip(Role role, int key, uint8_t column, const uint8_t* table) {
  if (table[255] == 0) return;
  if (role == Role::Inv) {
    mixOps_.push_back({role, key, column, table, false, {}});
    segmentStart_ = mixOps_.size();
    hasInv_ = true;
    return;
  }
  for (size_t k = segmentStart_; k < mixOps_.size(); ++k) {
    StripOp& op = mixOps_[k];
    if (op.key != key) continue;
    if (!op.grouped) {
      op.grouped = true;
      op.mask.fill(0);
      op.mask[op.column] = 0xFF;
    }
    op.mask[column] = 0xFF;
    return;
  }
  mixOps_.push_back({role, key, column, table, false, {}});
}

// The strip's multiplier for the weights behind key, found once per weight:
// the product's own ratio rounded up, or one less, whichever gives the table
// for every byte; none for the few weights where the rounding of the
// division by 255 puts a product one below a whole number.
const Mixer::Multiplier& Mixer::multiplierOf(int strip, int key, const uint8_t* table) {
  Multiplier& m = multiplier_[strip];
  if (m.key == key) return m;
  m = {key, true, false, 0};
  for (int c = 0; c < 256 && m.whole; ++c) m.whole = table[c] == c;
  const long ratio = long(key >> 8) * (key & 0xFF);  // master x level, over 255 x 255
  const long up = (ratio * 65536 + 65024) / 65025;
  for (long a = up; a >= up - 1 && !m.whole && !m.exact; --a) {
    if (a < 0 || a > 0xFFFF) continue;
    bool fits = true;
    for (long c = 0; c < 256 && fits; ++c) fits = ((c * a) >> 16) == table[c];
    m.exact = fits;
    m.a = uint16_t(a);
  }
  return m;
}

// The lanes of the single strips: a multiplier, a whole column, or the
// table kept for a strip that no multiplier fits.
void Mixer::prepareLanes() {
  laneMultiplier_.fill(0);
  laneWhole_.fill(0);
  tabled_.clear();
  for (const StripOp& op : mixOps_) {
    if (op.grouped) continue;
    const int strip = op.column - 2;
    const int lane = strip < 16 ? strip : strip + 4;
    const Multiplier& m = multiplierOf(strip, op.key, op.table);
    if (m.whole)
      laneWhole_[lane] = 0xFFFF;
    else if (m.exact)
      laneMultiplier_[lane] = m.a;
    else
      tabled_.push_back({op.column, op.table});
  }
}

// Scenes, strips and MIDI into MixBuffer for channels 1..channels.
template <bool kWithInv, bool kEveryStrip>
void Mixer::mixSources(int channels) {
  Variables& v = c_.v;
  const uint8_t* stage = stage_.at.data();
  const uint8_t* prog = prog_.at.data();
  const uint8_t* midi = midi_.at.data();
  const Lanes lanes(laneMultiplier_.data(), laneWhole_.data());
  for (int i = 0; i < channels; ++i) {
    const uint8_t* row = v.ChanTable.row(i).data();
    // Prog and Stage add: a true crossfade sum, each share floored on its own.
    const int sum = prog[row[kProgColumn]] + stage[row[kStageColumn]];
    int mb = sum < 255 ? sum : 255;
    if constexpr (kWithInv) {
      for (const StripOp& op : mixOps_) {
        if (op.role == Role::Inv) {
          // An inverting strip takes away from what is mixed so far.
          const int rest = mb - op.table[row[op.column]];
          mb = rest <= -1 ? 0 : rest;
        } else {
          mb = std::max<int>(
              mb, op.table[op.grouped ? highestMasked(row, op.mask.data()) : row[op.column]]);
        }
      }
    } else if constexpr (kEveryStrip) {
      mb = std::max(mb, strongestStrip(row, lanes));
      for (const Single& t : tabled_) mb = std::max<int>(mb, t.table[row[t.column]]);
      for (const StripOp* g : groups_)
        mb = std::max<int>(mb, g->table[highestMasked(row, g->mask.data())]);
    } else {
      // Without INV strips every strip only raises: four chains of maxima at once.
      int m1 = 0, m2 = 0, m3 = 0;
      const Single* s = singles_.data();
      for (size_t k = 0, n = singles_.size(); k < n; k += 4) {
        mb = std::max<int>(mb, s[k].table[row[s[k].column]]);
        m1 = std::max<int>(m1, s[k + 1].table[row[s[k + 1].column]]);
        m2 = std::max<int>(m2, s[k + 2].table[row[s[k + 2].column]]);
        m3 = std::max<int>(m3, s[k + 3].table[row[s[k + 3].column]]);
      }
      mb = std::max(std::max(mb, m1), std::max(m2, m3));
      for (const StripOp* g : groups_)
        mb = std::max<int>(mb, g->table[highestMasked(row, g->mask.data())]);
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
  const int level = k == 0 ? v.FX1Level : v.FX2Level;
  ChaserLift& lift = chaser_[k];
  if (lift.data != &data || lift.version != data.version() || lift.step != row ||
      lift.level != level) {
    const double w = weight(level);
    std::array<uint8_t, kChannels> bytes;
    if (data.levelBytes(row, 1, kChannels, bytes.data())) {
      // A step of byte levels, as the editor and the chaser file store them
      // (an empty cell as 0): a byte times the weight of a byte level stays a byte.
      const uint8_t* product = scaled(chaserLevel_[k], level);
      for (int i = 0; i < kChannels; ++i) lift.at[i] = product[bytes[i]];
    } else {
      for (int ch = 1; ch <= kChannels; ++ch) {
        // A cell never stored counts as 0; a lift of 0 or less never raises a channel.
        const double c = std::floor(data.number(row, int16_t(ch)) * w);
        lift.at[ch - 1] = c > 0 ? (c < 255 ? uint8_t(c) : uint8_t(255)) : uint8_t(0);
      }
    }
    lift.data = &data;
    lift.version = data.version();
    lift.step = row;
    lift.level = level;
  }
  for (int i = 0; i < channels; ++i) v.MixBuffer[i] = std::max(v.MixBuffer[i], lift.at[i]);
}

// The bypass strips of a logical channel raise its level after the grand master.
uint8_t Mixer::bypassed(int logical, uint8_t level) const {
  const uint8_t* row = c_.v.ChanTable.row(logical - 1).data();
  for (const StripOp& op : bypassOps_) level = std::max(level, op.table[row[op.column]]);
  return level;
}

void Mixer::firstPassOutput(int channels) {
  Variables& v = c_.v;
  const uint8_t* grand = grand_.at.data();
  if (bypassOps_.empty())
    for (int i = 0; i < channels; ++i) v.DMXData[i] = grand[v.MixBuffer[i]];
  else
    for (int i = 0; i < channels; ++i) v.DMXData[i] = bypassed(i + 1, grand[v.MixBuffer[i]]);
  const bool handOver = handsOverChannels();
  LiveDisplay& live = c_.liveDisplay;
  for (int i = 1; i <= channels; ++i) {
    if (!live.full())
      live.ShowChannel(i);
    else if (!handOver)
      break;
    // This interface gets the mastered level without the bypass strips.
    if (handOver) perChannelOutput(i, grand[v.MixBuffer[i - 1]]);
  }
}

// One output of the patch pass: the mastered level of its logical channel,
// raised by the bypass strips. True when the output is patched.
bool Mixer::patchOutput(int out) {
  Variables& v = c_.v;
  const int logical = v.PatchMap.get(out);
  if (logical <= 0 || logical > kChannels) return false;
  const uint8_t mastered = grand_.at[v.MixBuffer[logical - 1]];
  v.DMXData[out - 1] = bypassOps_.empty() ? mastered : bypassed(logical, mastered);
  if (handsOverChannels()) perChannelOutput(out, mastered);
  return true;
}

// All 512 outputs through the patch. The counter is the shared I: the live
// display's label test can set it back to 30, and the pass then goes on from
// 31. Once the strip is full the display no longer touches I, and the rest of
// the pass runs on a counter of its own.
void Mixer::patchPass() {
  Variables& v = c_.v;
  LiveDisplay& live = c_.liveDisplay;
  bool patched = false;
  for (v.I = 1; v.I <= kChannels; ++v.I) {
    if (live.full()) break;
    patched |= patchOutput(v.I);
    live.ShowChannel(v.I);
  }
  if (bypassOps_.empty() && !handsOverChannels()) {
    const uint8_t* grand = grand_.at.data();
    for (int out = v.I; out <= kChannels; ++out) {
      const int logical = v.PatchMap.get(out);
      if (logical <= 0 || logical > kChannels) continue;
      v.DMXData[out - 1] = grand[v.MixBuffer[logical - 1]];
      patched = true;
    }
  } else {
    for (int out = v.I; out <= kChannels; ++out) patched |= patchOutput(out);
  }
  v.I = kChannels + 1;
  if (patched) v.J = kSubmasters + 1;
}

}  // namespace q
