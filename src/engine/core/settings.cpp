#include "engine/core/settings.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "engine/core/console.h"
#include "engine/interfaces/interface_list.h"
#include "engine/remote/msc.h"

namespace q {

namespace {
constexpr int kLpt1Base = 888;
constexpr int kLpt2Base = 632;
}  // namespace

Settings::Settings(Console& c) : c_(c), ini_(c.homeDir() + "/Quintara.INI") {
  skinFile = defaultSkinFile();
  audioSink.clear();
}

std::string Settings::defaultSkinFile() const { return c_.homeDir() + "/skins/default.bmp"; }

int Settings::readInt(const std::string& section, const std::string& key, int defaultValue) const {
  auto n = parseNumber(ini_.read(section, key, std::to_string(defaultValue)));
  if (!n) return defaultValue;
  const double d = std::clamp(*n, double(INT_MIN), double(INT_MAX));
  return static_cast<int>(roundHalfEven(d));
}

void Settings::applyDefaults() {
  Variables& v = c_.v;
  v.MaxChans = 128;
  v.InterfaceType = 0;
  v.DMXRate = 100;
  v.PortBase = kLpt1Base;
  v.DataPresentLoop = 50;
  v.HighClockLoop = 20;
  v.LowClockLoop = 20;
  v.MidiChannel = 1;
  v.MidiLevel = 255;
  c_.midi.MscDeviceId = 1;
  skinFile = defaultSkinFile();
}

void Settings::readAtStart(bool useDefaults) {
  Variables& v = c_.v;
  MainWindow& f = c_.form1;
  applyDefaults();
  if (!useDefaults) {
    // A value that would stop the console (no channels, a timer that never
    // fires) is brought to the nearest safe one.
    v.MaxChans = int16_t(std::clamp(readInt("Setup", "MaxChans", 128), 1, kChannels));
    // An adapter the table doesn't list reads as none.
    const int iface = readInt("Setup", "Interface", 0);
    v.InterfaceType = uint8_t(isInterfaceType(iface) ? iface : 0);
    v.DMXRate = std::clamp(readInt("Setup", "DMXRate", 100), 1, 60000);
    v.PortBase = ini_.read("Setup", "Port", "LPT1") == "LPT1" ? kLpt1Base : kLpt2Base;
    v.DataPresentLoop = std::max(0, readInt("Setup", "DataPresentLoop", 50));
    v.HighClockLoop = std::max(0, readInt("Setup", "HighClockLoop", 20));
    v.LowClockLoop = std::max(0, readInt("Setup", "LowClockLoop", 20));
    const int mode = readInt("Setup", "ValuesMode", 0);
    v.ValuesMode = uint8_t(mode >= 0 && mode <= 2 ? mode : 0);
    f.menu("mnuSpaceGO").setChecked(readInt("Setup", "SpaceKeyGo", 0) != 0);
    skinFile = ini_.read("Setup", "Skin", defaultSkinFile());
    // Where the players' sound goes: a GStreamer sink description; empty for the desktop's own.
    audioSink = ini_.read("Setup", "AudioSink", "");
    v.MidiChannel = std::clamp(readInt("Midi", "Channel", 1), 1, 16);
    v.MidiLevel = uint8_t(std::clamp(readInt("Midi", "Level", 255), 0, 255));
    const int msc = readInt("MIDI", "MSCDeviceID", 1);
    c_.midi.MscDeviceId = msc >= 0 && msc <= kMscDeviceLast ? msc : 1;
  }
  for (int i = 0; i < 3; ++i) f.mnuValue(i).setChecked(i == v.ValuesMode);
  f.DMXTimer.setInterval(v.DMXRate);
  for (int k = 0; k < 2; ++k) c_.WMP(k).setAudioSink(audioSink);
  c_.interfaces.readSettings(ini_, useDefaults);
}

void Settings::writeAtExit() {
  const Variables& v = c_.v;
  ini_.write("Setup", "MaxChans", std::to_string(v.MaxChans));
  ini_.write("Setup", "Interface", std::to_string(v.InterfaceType));
  ini_.write("Setup", "DMXRate", std::to_string(v.DMXRate));
  ini_.write("Setup", "Port", v.PortBase == kLpt1Base ? "LPT1" : "LPT2");
  ini_.write("Setup", "DataPresentLoop", std::to_string(v.DataPresentLoop));
  ini_.write("Setup", "HighClockLoop", std::to_string(v.HighClockLoop));
  ini_.write("Setup", "LowClockLoop", std::to_string(v.LowClockLoop));
  ini_.write("Setup", "PercentValues", "0");
  ini_.write("Setup", "SpaceKeyGo", c_.form1.menu("mnuSpaceGO").checked() ? "1" : "0");
  ini_.write("Midi", "Channel", std::to_string(v.MidiChannel));
  c_.interfaces.writeSettings(ini_);
}

void Settings::readRecentFiles() {
  for (int i = 0; i < 5; ++i) {
    MenuItem& m = c_.form1.mnuRecent(i);
    m.setCaption(ini_.read("Recent", "Snap" + std::to_string(i), ""));
    m.setVisible(!m.caption().empty());
  }
}

}  // namespace q
