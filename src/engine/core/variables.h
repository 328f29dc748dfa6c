#pragma once
// Variables: the console's shared state, one instance for the life of the
// process. Every input path writes straight into it and then raises
// MixDirty; the mixer reads it on the output tick. One thread, no locks.
// Booleans are 16-bit, -1 for true and 0 for false, and nothing else is stored in them.

#include <array>
#include <cstdint>
#include <string>

#include "engine/core/channel_tables.h"
#include "engine/core/sparse_matrix.h"

namespace q {

using VBool = int16_t;
constexpr VBool kTrue = -1;
constexpr VBool kFalse = 0;
inline VBool vbool(bool b) { return b ? kTrue : kFalse; }

constexpr int kSubmasters = 20;
constexpr int kStageColumn = 0;
constexpr int kProgColumn = 1;
constexpr int kMidiColumn = 23;

struct Variables {
  // Per channel, indexed by channel - 1.
  ChannelTable ChanTable;
  std::array<uint8_t, kChannels> MixBuffer{};
  std::array<uint8_t, kChannels> DMXData{};
  PatchTable PatchMap;
  std::array<uint8_t, kSubmasters> SubLevel{};  // submaster n at n - 1

  // Masters and weights.
  uint8_t GrandMaster = 255;
  VBool BlackOut = kFalse;
  uint8_t StageLevel = 255;
  uint8_t ProgLevel = 0;
  uint8_t SubMasterLevel = 255;
  uint8_t FX1Level = 255;
  uint8_t FX2Level = 255;
  uint8_t MidiLevel = 255;

  // Configuration and editing state.
  int16_t MaxChans = 128;
  uint8_t InterfaceType = 0;
  int16_t EditColumn = 1;
  uint8_t ValuesMode = 0;
  VBool PatchOn = kFalse;
  VBool MixDirty = kFalse;
  VBool ChannelsRefreshing = kFalse;
  int16_t DisplaySlot = 0;
  int DMXRate = 100;

  // The shared loop counters; the live display and the patch pass share I.
  int16_t I = 0;
  int16_t J = 0;

  // Strips.
  std::array<uint8_t, kSubmasters> SubKnob{};  // ten times the colour index plus the knob index
  std::array<uint8_t, kSubmasters> SubMidi{};  // MIDI controller of each strip, 0 for none
  uint8_t FlashHeldLevel = 0;
  double Player1Rate = 1;
  double Player2Rate = 1;

  // Cue list and chasers.
  int16_t CueCount = 0;
  int16_t SelectedCue = 0;
  std::array<int16_t, 2> FXStepCount{};
  std::array<VBool, 2> FXRandom{};

  // Show identity, in every show file's header.
  std::string ShowName = "Unnamed";
  std::string ShowDate = "No save date";

  // Operator input.
  std::string DirectText;
  std::array<VBool, 251> KeyHeld{};  // by virtual key code, true while the key is down
  int MidiChannel = 1;

  // Parallel port of the LPT adapters.
  int PortBase = 888;
  int DataPresentLoop = 50;
  int HighClockLoop = 20;
  int LowClockLoop = 20;

  // The shared sparse tables.
  CSparseMatrix Cues;
  CSparseMatrix FX1Data;
  CSparseMatrix FX2Data;

  CSparseMatrix& fxData(int chaser) { return chaser == 0 ? FX1Data : FX2Data; }
  ChannelTable::Cell chan(int channel, int column) { return {ChanTable, channel, column}; }
  uint8_t chan(int channel, int column) const { return ChanTable.get(channel, column); }
};

}  // namespace q
