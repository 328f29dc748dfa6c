// Mouse commands that carry a point, and the commands that act on whole windows.

#include <gtest/gtest.h>

#include "engine/input/keypad.h"
#include "engine/submasters/fader_config.h"
#include "headless/interpreter_fixture.h"

namespace q::test {

namespace {

class PointingTest : public InterpreterTest {
 protected:
  // A pad on the main window that logs every mouse event as "down R 1.5,-2".
  Lamp& pad() {
    if (pad_) return *pad_;
    pad_ = &form1().add<Lamp>("TestPad");
    auto logAs = [this](const char* what) {
      return [this, what](const MouseEvent& e) {
        const char* b = e.button == MouseButton::Left    ? "L"
                        : e.button == MouseButton::Right ? "R"
                                                         : "-";
        log.push_back(std::string(what) + " " + b + " " + toText(Value(e.x)) + "," +
                      toText(Value(e.y)));
      };
    };
    pad_->onMouseDown = logAs("down");
    pad_->onMouseUp = logAs("up");
    pad_->onMouseMove = logAs("move");
    pad_->onDblClick = logAs("dbl");
    pad_->onClick = [this] { log.push_back("click"); };
    return *pad_;
  }
  std::vector<std::string> events(const std::vector<std::string>& lines) {
    pad();
    log.clear();
    EXPECT_EQ(run(lines), "");
    return log;
  }

  std::vector<std::string> log;
  Lamp* pad_ = nullptr;
};

using Events = std::vector<std::string>;

// --- the point and the button ---------------------------------------------------

TEST_F(PointingTest, MouseCommandsCarryTheButtonAndThePoint) {
  EXPECT_EQ(events({"down TestPad 12 34", "up TestPad right 0.5 -7.25", "dblclick TestPad 3 4"}),
            (Events{"down L 12,34", "up R 0.5,-7.25", "dbl L 3,4"}));
  EXPECT_EQ(events({"press TestPad right -1 2"}), (Events{"down R -1,2", "up R -1,2", "click"}));
  // Beyond the control's size, a long fraction, a plus sign.
  EXPECT_EQ(events({"down TestPad left 99999.125 +.5"}), (Events{"down L 99999.125,0.5"}));
}

TEST_F(PointingTest, WithoutAPointTheEventIsAtTheOrigin) {
  EXPECT_EQ(events({"down TestPad", "up TestPad right", "press TestPad", "dblclick TestPad"}),
            (Events{"down L 0,0", "up R 0,0", "down L 0,0", "up L 0,0", "click", "dbl L 0,0"}));
}

TEST_F(PointingTest, AMoveCarriesTheButtonHeldOnThatControlOnly) {
  auto& other = form1().add<Lamp>("TestOther");
  other.onMouseDown = [](const MouseEvent&) {};
  EXPECT_EQ(events({"move TestPad 1 1",                // nothing held
                    "down TestPad right 5 5",          // captured by the pad
                    "move TestPad -20 300.5",          // far outside it: still captured
                    "down TestOther", "up TestOther",  // another control's release
                    "move TestPad 2 2", "up TestPad 3 3", "move TestPad 4 4"}),
            (Events{"move - 1,1", "down R 5,5", "move R -20,300.5", "move R 2,2", "up L 3,3",
                    "move - 4,4"}));
  // A press is a whole click: nothing stays held after it.
  EXPECT_EQ(events({"down TestPad", "press TestPad right", "move TestPad 1 2"}),
            (Events{"down L 0,0", "down R 0,0", "up R 0,0", "click", "move - 1,2"}));
}

TEST_F(PointingTest, BadPointsAreErrorsAndDeliverNothing) {
  pad();
  const std::vector<std::string> bad = {
      "down TestPad 5",        "down TestPad left 5",       "move TestPad 5",
      "move TestPad",          "down TestPad 1 2 3",        "down TestPad 1e3 0",
      "move TestPad nan 0",    "move TestPad 0 inf",        "down TestPad right 1e309 0",
      "dblclick TestPad left", "up TestPad 0x10 0",         "move TestPad 1.2.3 0",
      "move TestPad - 0",      "down TestPad 2000000000 0", "press TestPad middle 1 2",
      "click TestPad 1 2",
  };
  for (const auto& line : bad) {
    SCOPED_TRACE(line);
    const std::string out = run(line.c_str());
    EXPECT_EQ(out.rfind("ERROR line ", 0), 0u) << out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(PointingTest, ADownHandlerThatClosesItsWindowEndsThePress) {
  Tecles& keypad = console().keypad.window();
  keypad.show();
  int after = 0;
  keypad.BTN(3).onMouseDown = [&](const MouseEvent&) { keypad.closeBox(); };
  keypad.BTN(3).onMouseUp = [&](const MouseEvent&) { ++after; };
  keypad.BTN(3).onClick = [&] { ++after; };
  EXPECT_EQ(run("press Tecles.BTN(3) 10 10"), "");
  EXPECT_EQ(after, 0);
  EXPECT_EQ(console().windows.find("Tecles"), nullptr);
}

// --- whole windows ----------------------------------------------------------------

TEST_F(PointingTest, ActivateShowsTheWindowAndRunsItsActivationEachTime) {
  EXPECT_EQ(run("activate Tecles"), "");
  Window* keypad = console().windows.find("Tecles");
  ASSERT_NE(keypad, nullptr);
  EXPECT_TRUE(keypad->isVisible());
  int activations = 0;
  keypad->onActivate = [&] { ++activations; };
  keypad->setVisible(false);
  run({"activate Tecles", "activate Tecles"});
  EXPECT_TRUE(keypad->isVisible());
  EXPECT_EQ(activations, 2);
  // Mouse and key commands bring no window to the front.
  run({"press Tecles.BTN(1)", "key Tecles 50"});
  EXPECT_EQ(activations, 2);
  EXPECT_EQ(run("get Direct"), "Direct = 12\n");
}

TEST_F(PointingTest, CloseRunsTheClosingAndUnloadHandlingAndTheNextUseLoadsAfresh) {
  run({"activate Tecles", "press Tecles.BTN(10)"});  // the at-key: "a" typed, waiting for a second
  Tecles* keypad = console().windows.find<Tecles>("Tecles");
  ASSERT_NE(keypad, nullptr);
  EXPECT_EQ(keypad->AtPressed, kTrue);
  std::vector<std::string> seen;
  bool keep = true;
  keypad->onQueryUnload = [&] { return seen.push_back("query"), !keep; };
  keypad->onUnload = [&] { seen.push_back("unload"); };
  run("close Tecles");  // the closing handling keeps it open
  EXPECT_TRUE(keypad->isVisible());
  keep = false;
  run("close Tecles");
  EXPECT_EQ(seen, (std::vector<std::string>{"query", "query", "unload"}));
  EXPECT_EQ(console().windows.find("Tecles"), nullptr);
  EXPECT_EQ(run({"close Tecles", "get Tecles.Visible"}), "Tecles.Visible = 0\n");
  EXPECT_EQ(console().windows.find("Tecles"), nullptr);  // closing a closed window loads nothing
  run("activate Tecles");
  EXPECT_EQ(console().windows.find<Tecles>("Tecles")->AtPressed, kFalse);
}

TEST_F(PointingTest, ClosingTheFaderConfigurationAppliesNothing) {
  EXPECT_EQ(
      run({"press FaderCFG(4) right", "get Config.Visible", "set Config.Tipus 11",
           "type Config.Tooltip lamps", "close Config", "get Config.Visible", "get FaderFunc(4)"}),
      "Config.Visible = -1\nConfig.Visible = 0\nFaderFunc(4) = SUB\n");
  EXPECT_EQ(form1().Fader(4).toolTip, "");
  // Opened again, it reads the strip afresh; APPLY is its other way out.
  EXPECT_EQ(run({"press FaderCFG(4) right", "get Config.Tipus.Text", "set Config.Tipus 11",
                 "click Config.APPLY", "get Config.Visible", "get FaderFunc(4)"}),
            "Config.Tipus.Text = SUBMASTER\nConfig.Visible = 0\nFaderFunc(4) = LV1\n");
}

TEST_F(PointingTest, ClosingAModalWindowResumesWhatOpenedIt) {
  bool resumed = false;
  console().keypad.window().showModal([&] { resumed = true; });
  EXPECT_EQ(run({"get Direct", "close Tecles"}), "Direct = \n");
  EXPECT_TRUE(resumed);
}

TEST_F(PointingTest, ClosingTheMainWindowAsksFirst) {
  console().start();
  EXPECT_EQ(run({"answer No", "close Form1"}),
            "MSGBOX Confirmation | Are you sure you want to exit this program?\n");
  EXPECT_FALSE(console().closed());
  run("close Form1");
  EXPECT_TRUE(console().closed());
}

TEST_F(PointingTest, OnlyWindowsCanBeActivatedOrClosed) {
  for (const char* line :
       {"activate", "close", "activate Nowhere", "close Nowhere", "activate SMaster",
        "close Tecles.BTN(1)", "close Tecles now", "activate Tecles now"}) {
    SCOPED_TRACE(line);
    const std::string out = run(line);
    EXPECT_EQ(out.rfind("ERROR line ", 0), 0u) << out;
  }
  EXPECT_EQ(console().windows.find("Tecles"), nullptr);
}

}  // namespace
}  // namespace q::test
