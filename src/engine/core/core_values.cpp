// The shared variables of the console core, readable by name.

#include <string>

#include "engine/core/console.h"

namespace q {

namespace {
std::string num(long v) { return std::to_string(v); }

bool channelOk(int ch) { return ch >= 1 && ch <= kChannels; }

std::string cell(const CSparseMatrix& m, const std::vector<int>& i) {
  return toText(m.Cell(int16_t(i[0]), int16_t(i[1])));
}
bool int16Ok(const std::vector<int>& i) {
  for (int x : i)
    if (x < -32768 || x > 32767) return false;
  return true;
}
}  // namespace

void registerCoreValues(Console& c) {
  Variables& v = c.v;
  NamedValues& n = c.names;
  n.add("GrandMaster", [&v] { return num(v.GrandMaster); });
  n.add("BlackOut", [&v] { return num(v.BlackOut); });
  n.add("StageLevel", [&v] { return num(v.StageLevel); });
  n.add("ProgLevel", [&v] { return num(v.ProgLevel); });
  n.add("SubMasterLevel", [&v] { return num(v.SubMasterLevel); });
  n.add("FX1Level", [&v] { return num(v.FX1Level); });
  n.add("FX2Level", [&v] { return num(v.FX2Level); });
  n.add("MidiLevel", [&v] { return num(v.MidiLevel); });
  n.add("MaxChans", [&v] { return num(v.MaxChans); });
  n.add("InterfaceType", [&v] { return num(v.InterfaceType); });
  n.add("EditColumn", [&v] { return num(v.EditColumn); });
  n.add("ValuesMode", [&v] { return num(v.ValuesMode); });
  n.add("PatchOn", [&v] { return num(v.PatchOn); });
  n.add("MixDirty", [&v] { return num(v.MixDirty); });
  n.add("ChannelsRefreshing", [&v] { return num(v.ChannelsRefreshing); });
  n.add("DisplaySlot", [&v] { return num(v.DisplaySlot); });
  n.add("DMXRate", [&v] { return num(v.DMXRate); });
  n.add("I", [&v] { return num(v.I); });
  n.add("J", [&v] { return num(v.J); });
  n.add("FlashHeldLevel", [&v] { return num(v.FlashHeldLevel); });
  n.add("CueCount", [&v] { return num(v.CueCount); });
  n.add("SelectedCue", [&v] { return num(v.SelectedCue); });
  n.add("ShowName", [&v] { return v.ShowName; });
  n.add("ShowDate", [&v] { return v.ShowDate; });
  n.add("DirectText", [&v] { return v.DirectText; });
  n.addIndexed("KeyHeld", 1, [&v](const std::vector<int>& i) -> std::optional<std::string> {
    if (i[0] < 0 || i[0] >= int(v.KeyHeld.size())) return std::nullopt;
    return num(v.KeyHeld[i[0]]);
  });
  n.add("MidiChannel", [&v] { return num(v.MidiChannel); });
  // The parallel port of the LPT adapters: its base address (888 for LPT1,
  // 632 for LPT2) and the three timing loops, as the settings file keeps them.
  n.add("LptBase", [&v] { return num(v.PortBase); });
  n.add("DataPresentLoop", [&v] { return num(v.DataPresentLoop); });
  n.add("HighClockLoop", [&v] { return num(v.HighClockLoop); });
  n.add("LowClockLoop", [&v] { return num(v.LowClockLoop); });
  // The settings key of Space as GO; the menu item's check mark is its store.
  n.add("SpaceKeyGo", [&c] { return num(vbool(c.form1.menu("mnuSpaceGO").checked())); });

  n.addIndexed("ChanTable", 2, [&v](const std::vector<int>& i) -> std::optional<std::string> {
    if (!channelOk(i[0]) || i[1] < 0 || i[1] >= kColumns) return std::nullopt;
    return num(v.ChanTable.get(i[0], i[1]));
  });
  auto perChannel = [&n](const char* name, auto getter) {
    n.addIndexed(name, 1, [getter](const std::vector<int>& i) -> std::optional<std::string> {
      if (!channelOk(i[0])) return std::nullopt;
      return num(getter(i[0] - 1));
    });
  };
  perChannel("MixBuffer", [&v](int k) { return v.MixBuffer[k]; });
  perChannel("DMXData", [&v](int k) { return v.DMXData[k]; });
  perChannel("PatchMap", [&v](int k) { return v.PatchMap.get(k + 1); });
  auto perSub = [&n](const char* name, auto getter) {
    n.addIndexed(name, 1, [getter](const std::vector<int>& i) -> std::optional<std::string> {
      if (i[0] < 1 || i[0] > kSubmasters) return std::nullopt;
      return num(getter(i[0] - 1));
    });
  };
  perSub("SubLevel", [&v](int k) { return v.SubLevel[k]; });
  perSub("SubKnob", [&v](int k) { return v.SubKnob[k]; });
  perSub("SubMidi", [&v](int k) { return v.SubMidi[k]; });
  auto table = [&n](const char* name, const CSparseMatrix& m) {
    n.addIndexed(name, 2, [&m](const std::vector<int>& i) -> std::optional<std::string> {
      if (!int16Ok(i)) return std::nullopt;
      return cell(m, i);
    });
  };
  table("Cues", v.Cues);
  table("FX1Data", v.FX1Data);
  table("FX2Data", v.FX2Data);
  for (int k = 0; k < 2; ++k) {
    n.add("FXStepCount(" + std::to_string(k) + ")", [&v, k] { return num(v.FXStepCount[k]); });
    n.add("FXRandom(" + std::to_string(k) + ")", [&v, k] { return num(v.FXRandom[k]); });
  }
}

}  // namespace q
