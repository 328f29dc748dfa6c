#include "engine/remote/osc_setup.h"

#include <optional>

#include "engine/core/console.h"
#include "engine/core/value.h"
#include "engine/remote/msc.h"
#include "engine/remote/osc_link.h"

namespace q {

namespace {
std::optional<int> wholeIn(const std::string& text, int low, int high) {
  const auto n = parseNumber(text);
  if (!n || *n != double(long(*n)) || *n < low || *n > high) return std::nullopt;
  return int(*n);
}
}  // namespace

OscSetup::OscSetup(Console& c)
    : Window(c.registry, "OscSetup"),
      txtPort(add<TextBox>("txtPort")),
      txtAddress(add<TextBox>("txtAddress")),
      txtFeedbackHost(add<TextBox>("txtFeedbackHost")),
      txtFeedbackPort(add<TextBox>("txtFeedbackPort")),
      txtMscDevice(add<TextBox>("txtMscDevice")),
      lblStatus(add<Label>("lblStatus")),
      CmdOk(add<Label>("CmdOk", "OK")),
      CmdCancel(add<Label>("CmdCancel", "Cancel")),
      FrameOsc(add<Label>("FrameOsc", "OSC (0 = off)")),
      FrameMsc(add<Label>("FrameMsc", "MIDI SHOW CONTROL")),
      c_(c) {
  setCaption("OSC and Show Control");
  const char* names[] = {
      "Listen port :", "Listen address :", "Feedback host :", "Feedback port :", "MSC device ID :"};
  for (int i = 0; i < 5; ++i) captions.push_back(&add<Label>(indexed("lblCaption", i), names[i]));
  CmdOk.onClick = [this] { ok(); };
  CmdCancel.onClick = [this] { cancel(); };
  load();
}

void OscSetup::load() {
  const OscConfig& o = c_.osc.config();
  txtPort.setText(std::to_string(o.port));
  txtAddress.setText(o.address);
  txtFeedbackHost.setText(o.feedbackHost);
  txtFeedbackPort.setText(std::to_string(o.feedbackPort));
  txtMscDevice.setText(std::to_string(c_.midi.MscDeviceId));
  lblStatus.setCaption(c_.osc.status());
  backColor = c_.colors.SkinBackColor;
}

bool OscSetup::takePort(TextBox& box, const char* what, int& port) {
  const auto n = wholeIn(box.text(), 0, 65535);
  if (!n) {
    c_.dialogs().msgBox(caption(),
                        std::string(what) + " \"" + box.text() + "\" is not a port from 0 to 65535",
                        MsgButtons::OK, MsgIcon::Exclamation);
    return false;
  }
  port = *n;
  return true;
}

void OscSetup::ok() {
  OscConfig o;
  if (!takePort(txtPort, "Listen port", o.port)) return;
  if (!takePort(txtFeedbackPort, "Feedback port", o.feedbackPort)) return;
  o.address = txtAddress.text().empty() ? OscConfig{}.address : txtAddress.text();
  o.feedbackHost =
      txtFeedbackHost.text().empty() ? OscConfig{}.feedbackHost : txtFeedbackHost.text();
  const auto device = wholeIn(txtMscDevice.text(), 0, kMscDeviceLast);
  if (!device) {
    c_.dialogs().msgBox(caption(),
                        "MSC device ID \"" + txtMscDevice.text() + "\" is not a number from 0 to " +
                            std::to_string(kMscDeviceLast),
                        MsgButtons::OK, MsgIcon::Exclamation);
    return;
  }
  c_.midi.MscDeviceId = *device;
  IniFile& ini = c_.settings.ini();
  const bool kept =
      o.write(ini) && ini.write("MIDI", "MSCDeviceID", std::to_string(c_.midi.MscDeviceId));
  const bool applied = c_.osc.apply(o);
  lblStatus.setCaption(c_.osc.status());
  if (!applied) {
    c_.dialogs().msgBox(caption(), c_.osc.status(), MsgButtons::OK, MsgIcon::Exclamation);
    return;
  }
  if (!kept)
    c_.dialogs().msgBox(caption(),
                        "The choice is in force but could not be kept in " + c_.settings.path(),
                        MsgButtons::OK, MsgIcon::Exclamation);
  unload();
}

// Leaving forgets what was typed: the next opening loads the console's choice afresh.
void OscSetup::cancel() { unload(); }

}  // namespace q
