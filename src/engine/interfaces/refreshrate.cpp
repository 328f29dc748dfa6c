#include "engine/interfaces/refreshrate.h"

#include <algorithm>

#include "engine/core/console.h"
#include "engine/interfaces/interface_list.h"
#include "engine/interfaces/output_lamp.h"

namespace q {

namespace {
constexpr int kLpt1Base = 888;
constexpr int kLpt2Base = 632;
const char* const kChannelChoices[] = {"512", "256", "128", "64", "32", "16", "8"};
}  // namespace

Refreshrate::Refreshrate(Console& c)
    : Window(c.registry, "Refreshrate"),
      ComboDevice(add<ListBox>("ComboDevice")),
      Image2(add<Lamp>("Image2")),
      lblWeb(add<Label>("lblWeb")),
      Frame4(add<Label>("Frame4", "SELECT OUTPUT")),
      CmbLPT(add<ListBox>("CmbLPT")),
      Frame3(add<Label>("Frame3", "DMX PROCEDURE TIMING LOOPS")),
      HScroll1(add<Scroller>("HScroll1", 1, 750, 100)),
      Text1(add<TextBox>("Text1")),
      HScroll2(add<Scroller>("HScroll2", 0, 1500, 50)),
      HScroll3(add<Scroller>("HScroll3", 0, 1500, 20)),
      HScroll4(add<Scroller>("HScroll4", 0, 1500, 20)),
      Text2(add<TextBox>("Text2")),
      Text3(add<TextBox>("Text3")),
      Text4(add<TextBox>("Text4")),
      Combo1(add<ComboText>("Combo1")),
      btnOk(add<Label>("btnOk", "Ok")),
      c_(c) {
  setCaption("Interface setup");
  for (int k = 0; k < kAdapterCount; ++k) {
    ComboDevice.addItem(kInterfaces[k].name);
    Image1.push_back(&add<Lamp>(indexed("Image1", k), "Device" + std::to_string(k)));
  }
  for (const char* lpt : {"LPT1", "LPT2", "LPT3", "LPT4"}) CmbLPT.addItem(lpt);
  Combo1.items.assign(std::begin(kChannelChoices), std::end(kChannelChoices));
  const char* captions[] = {"Device", "Refresh rate (ms)", "Channels"};
  for (int i = 0; i < 3; ++i) Label2[size_t(i)] = &add<Label>(indexed("Label2", i), captions[i]);
  wire();
  load();
}

void Refreshrate::wire() {
  ComboDevice.onClick = [this] { deviceChosen(); };
  HScroll1.onChange = [this] {
    const int ms = HScroll1.position();
    Text1.setText(std::to_string(ms));
    if (!loaded_) return;
    c_.v.DMXRate = ms;
    c_.form1.DMXTimer.setInterval(ms);
  };
  HScroll2.onChange = [this] { loopMoved(HScroll2, Text2, c_.v.DataPresentLoop); };
  HScroll3.onChange = [this] { loopMoved(HScroll3, Text3, c_.v.HighClockLoop); };
  HScroll4.onChange = [this] { loopMoved(HScroll4, Text4, c_.v.LowClockLoop); };
  Combo1.onChange = [this] {
    const double n = leadingNumber(Combo1.text());
    if (n > 512) Combo1.setText("512");
    if (n < 8) Combo1.setText("8");
  };
  btnOk.onClick = [this] { ok(); };
  lblWeb.onClick = [this] {
    if (c_.interfaces.openLink) c_.interfaces.openLink(lblWeb.caption());
  };
}

void Refreshrate::loopMoved(Scroller& bar, TextBox& text, int& setting) {
  text.setText(std::to_string(bar.position()));
  if (loaded_) setting = bar.position();
}

// While the window takes the console's values, the bars only show them: a
// value beyond a bar's range (an edited settings file) stays in force.
void Refreshrate::load() {
  Variables& v = c_.v;
  loaded_ = false;
  openedInterface = v.InterfaceType;
  HScroll1.setPosition(std::clamp(c_.form1.DMXTimer.interval(), HScroll1.min(), HScroll1.max()));
  Text1.setText(std::to_string(c_.form1.DMXTimer.interval()));
  HScroll2.setPosition(std::clamp(v.DataPresentLoop, 0, 1500));
  HScroll3.setPosition(std::clamp(v.HighClockLoop, 0, 1500));
  HScroll4.setPosition(std::clamp(v.LowClockLoop, 0, 1500));
  Text2.setText(std::to_string(v.DataPresentLoop) + " loop1");
  Text3.setText(std::to_string(v.HighClockLoop) + " loop2");
  Text4.setText(std::to_string(v.LowClockLoop) + " loop3");
  loaded_ = true;
  ComboDevice.setListIndex(-1);
  ComboDevice.setListIndex(isInterfaceType(v.InterfaceType) ? v.InterfaceType : 0);
  Combo1.setText(std::to_string(v.MaxChans));
  CmbLPT.setListIndex(v.PortBase == kLpt2Base ? 1 : 0);
  frameBackColor = c_.colors.SkinBackColor;
  backColor = c_.colors.SkinBackColor;
}

void Refreshrate::deviceChosen() {
  const int k = ComboDevice.listIndex();
  if (k < 0) return;
  Image2.setPicture(Image1[size_t(k)]->picture());
  const InterfaceEntry& adapter = interfaceEntry(k);
  lblWeb.setCaption(adapter.link);
  const bool parallel = adapter.family == AdapterFamily::ParallelPort;
  for (Control* ctl : std::initializer_list<Control*>{&Frame3, &HScroll2, &HScroll3, &HScroll4,
                                                      &Text2, &Text3, &Text4})
    ctl->setVisible(parallel);
  // From now on the tick sends through the chosen adapter, started or not.
  if (loaded_) c_.v.InterfaceType = uint8_t(k);
}

void Refreshrate::ok() {
  Variables& v = c_.v;
  switch (CmbLPT.listIndex()) {
    case 0:
      v.PortBase = kLpt1Base;
      break;
    case 1:
      v.PortBase = kLpt2Base;
      break;
    case 2:
      c_.dialogs().msgBox("Quintara", "Under development LPT3");
      break;
    case 3:
      c_.dialogs().msgBox("Quintara", "Under development LPT4");
      break;
    default:
      break;
  }
  const int chosen = std::max(0, ComboDevice.listIndex());
  v.InterfaceType = uint8_t(chosen);
  v.MaxChans = int16_t(std::clamp<long>(roundHalfEven(leadingNumber(Combo1.text())), 8, 512));
  v.MixDirty = kTrue;
  // The same adapter chosen again is left alone while it sends; one that
  // cannot be reached (plugged in after the start, or lost) is started anew.
  const bool unreachable = c_.interfaces.outputLamp().health() == OutputHealth::NotReachable;
  if (chosen != openedInterface || unreachable) {
    c_.interfaces.stop(openedInterface, true);
    c_.interfaces.start(chosen);
    const int limit = interfaceEntry(chosen).channelLimit;
    if (limit > 0 && v.MaxChans > limit) v.MaxChans = int16_t(limit);
  }
  unload();
}

}  // namespace q
