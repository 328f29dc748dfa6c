// The four setup dialogs on the desk: each opens from its menu item or
// control, shows its model, changes the model through its widgets and
// closes; a reset of the desk with every one of them open leaves no view on
// a model that is gone.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>

#include "engine/input/keypad.h"
#include "engine/input/midi_setup.h"
#include "engine/interfaces/refreshrate.h"
#include "engine/submasters/fader_config.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"
#include "gui/windows/window_fixture.h"

namespace q {
namespace {

class Dialogs : public test::WindowFixture {};

TEST_F(Dialogs, FaderConfigurationOpensOnTheStripAndAppliesItsChoice) {
  desk();
  form1().FaderFunc(5).setCaption("SMA");
  v().SubMidi[2] = 17;
  control("FaderCFG(5)").mouseDown(MouseButton::Right);
  ASSERT_TRUE(shown("Config"));
  EXPECT_EQ(view("Config")->windowTitle(), "SliderConfig");
  auto* list = child<QListWidget>("Config", "Tipus");
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->currentItem()->text(), "SUBMASTER MASTER");
  EXPECT_EQ(child<QLineEdit>("Config", "txtMidiChannel")->text(), "17");

  list->setCurrentRow(11);  // "CHASER 1 LEVEL"
  auto* box = child<QLineEdit>("Config", "txtMidiChannel");
  box->selectAll();
  QTest::keyClicks(box, "42");
  QTest::mouseClick(child<QWidget>("Config", "Knob(3)"), Qt::LeftButton);
  QTest::mouseClick(child<QAbstractButton>("Config", "APPLY"), Qt::LeftButton);
  EXPECT_EQ(form1().FaderFunc(5).caption(), "LV1");
  EXPECT_EQ(v().SubMidi[2], 42);
  EXPECT_EQ(v().SubKnob[2], 3);
  EXPECT_EQ(console().windows.find("Config"), nullptr) << "APPLY unloads the dialog";
  settle();
  EXPECT_EQ(view("Config"), nullptr);
}

TEST_F(Dialogs, MidiSetupTakesItsControllersOnOk) {
  desk();
  choose("mnuMidiSetup");
  ASSERT_TRUE(shown("MIDISetupForm"));
  EXPECT_EQ(view("MIDISetupForm")->windowTitle(), "MIDI Devices");
  auto* preset = child<QComboBox>("MIDISetupForm", "Combo1");
  ASSERT_NE(preset, nullptr);
  preset->setCurrentIndex(4);  // "1 to 1"
  EXPECT_EQ(child<QLineEdit>("MIDISetupForm", "txtMIDI(5)")->text(), "5");
  auto* channel = child<QComboBox>("MIDISetupForm", "ComboChannel");
  channel->setCurrentIndex(9);
  EXPECT_EQ(v().SubMidi[2], 0) << "nothing before OK";
  QTest::mouseClick(child<QAbstractButton>("MIDISetupForm", "CmdOk"), Qt::LeftButton);
  EXPECT_EQ(v().SubMidi[2], 5);
  EXPECT_EQ(v().MidiChannel, 10);
  settle();
  EXPECT_FALSE(shown("MIDISetupForm"));
}

TEST_F(Dialogs, TheKeypadTypesIntoTheCommandLineAndTakesKeys) {
  desk();
  choose("mnuTecles");
  ASSERT_TRUE(shown("Tecles"));
  EXPECT_EQ(view("Tecles")->windowTitle(), "Keyboard");
  EXPECT_TRUE(view("Tecles")->windowFlags() & Qt::WindowStaysOnTopHint);
  for (const char* key : {"BTN(1)", "BTN(2)", "BTN(10)"})
    QTest::mouseClick(child<QWidget>("Tecles", key), Qt::LeftButton);
  EXPECT_EQ(get("Direct"), "12a");
  QTest::keyClicks(view("Tecles"), "50");
  EXPECT_EQ(get("Direct"), "12a50");
  QTest::mouseClick(child<QWidget>("Tecles", "BTN(15)"), Qt::LeftButton);  // Enter
  EXPECT_EQ(v().chan(12, 0), 127);
  EXPECT_EQ(get("Direct"), "");
  // The key shows its pressed picture while it is held.
  QTest::mousePress(child<QWidget>("Tecles", "BTN(7)"), Qt::LeftButton);
  EXPECT_EQ(get("Tecles.BTN(7)"), "key7_down");
  QTest::mouseRelease(child<QWidget>("Tecles", "BTN(7)"), Qt::LeftButton);
  EXPECT_EQ(get("Tecles.BTN(7)"), "key7");
}

TEST_F(Dialogs, InterfaceSetupShowsTheSettingsAndSwitchesTheAdapter) {
  desk();
  v().MaxChans = 256;
  choose("mnuInterface");
  ASSERT_TRUE(shown("Refreshrate"));
  EXPECT_EQ(view("Refreshrate")->windowTitle(), "Interface setup");
  auto* rate = child<QScrollBar>("Refreshrate", "HScroll1");
  ASSERT_NE(rate, nullptr);
  EXPECT_EQ(rate->value(), form1().DMXTimer.interval());
  EXPECT_EQ(child<QComboBox>("Refreshrate", "Combo1")->currentText(), "256");
  rate->setValue(40);
  EXPECT_EQ(form1().DMXTimer.interval(), 40) << "the bar acts at once";
  EXPECT_EQ(child<QLineEdit>("Refreshrate", "Text1")->text(), "40");
  child<QComboBox>("Refreshrate", "ComboDevice")->setCurrentIndex(4);
  EXPECT_EQ(v().InterfaceType, 4);
  settle();
  EXPECT_TRUE(child<QWidget>("Refreshrate", "Frame3")->isVisible());
  QTest::mouseClick(child<QAbstractButton>("Refreshrate", "btnOk"), Qt::LeftButton);
  EXPECT_EQ(v().MaxChans, 64) << "the Tovan takes 64 channels";
  settle();
  EXPECT_FALSE(shown("Refreshrate"));
}

TEST_F(Dialogs, TheCloseBoxIsTheWindowsOwnAndAppliesNothingFurther) {
  desk();
  choose("mnuInterface");
  child<QComboBox>("Refreshrate", "ComboDevice")->setCurrentIndex(3);
  const int16_t chans = v().MaxChans;
  view("Refreshrate")->close();
  EXPECT_EQ(console().windows.find("Refreshrate"), nullptr);
  EXPECT_EQ(v().InterfaceType, 3);
  EXPECT_EQ(v().MaxChans, chans);
  settle();
  choose("mnuInterface");  // loaded afresh
  EXPECT_EQ(child<QComboBox>("Refreshrate", "ComboDevice")->currentIndex(), 3);
}

TEST_F(Dialogs, ResetDeskWithEveryDialogOpenLeavesNoDanglingView) {
  desk();
  control("FaderCFG(7)").mouseDown(MouseButton::Right);
  for (const char* item : {"mnuMidiSetup", "mnuTecles", "mnuInterface", "mnuAbout"}) choose(item);
  for (const char* w : {"Config", "MIDISetupForm", "Tecles", "Refreshrate", "frmAbout"})
    ASSERT_TRUE(shown(w)) << w;
  QPointer<gui::FormView> keypad = view("Tecles");
  dialogs.queueAnswer("OK");
  choose("mnuNew");
  for (const char* w : {"Config", "MIDISetupForm", "Tecles", "Refreshrate", "frmAbout"})
    EXPECT_EQ(console().windows.find(w), nullptr) << w;
  settle();
  EXPECT_TRUE(keypad.isNull());
  // Events and repaints after the reset touch nothing that is gone.
  desk().desk().repaintAll();
  QCoreApplication::processEvents();
  choose("mnuTecles");
  EXPECT_TRUE(shown("Tecles"));
}

}  // namespace
}  // namespace q
