// A console handler that throws inside a desk event (a menu choice, a press
// on a fader) is caught by the application: the operator sees one box
// naming what failed, and the desk goes on.

#include <gtest/gtest.h>

#include <QMenu>
#include <stdexcept>

#include "desk_fixture.h"
#include "gui/desk/fader_widget.h"
#include "gui/views/menu_view.h"

namespace q::test {
namespace {

class GuardedApplicationTest : public DeskFixture {
 protected:
  // The failure is told from the event loop, once its event is over.
  void letTheLoopRun() { QCoreApplication::processEvents(); }
};

TEST_F(GuardedApplicationTest, AFailingMenuChoiceShowsOneBoxAndTheDeskGoesOn) {
  desk();
  form1().menu("mnuMaxchans").onClick = [] { throw std::runtime_error("no channels"); };
  QMenu* setup = desk().menus().menu("mnuSetup");
  setup->popup(QPoint(10, 10));
  setup->setActiveAction(desk().menus().action("mnuMaxchans"));
  QTest::keyClick(setup, Qt::Key_Return);
  letTheLoopRun();
  EXPECT_EQ(dialogs.shown,
            std::vector<std::string>{
                "MSGBOX Quintara | The menu choice Max. Channels failed: no channels"});

  // The desk goes on: the output ticks, and the next choice works.
  v().chan(1, kStageColumn) = 255;
  v().MixDirty = kTrue;
  advance(100);
  EXPECT_EQ(v().DMXData[0], 255);
  setup->popup(QPoint(10, 10));
  setup->setActiveAction(desk().menus().action("mnuSpaceGO"));
  QTest::keyClick(setup, Qt::Key_Return);
  letTheLoopRun();
  EXPECT_TRUE(form1().menu("mnuSpaceGO").checked());
  EXPECT_EQ(dialogs.shown.size(), 1u);
}

TEST_F(GuardedApplicationTest, AFailingFaderEventShowsOneBoxWhileItKeepsFailing) {
  auto* f = widget<gui::FaderWidget>("Fader(3)");
  ASSERT_NE(f, nullptr);
  form1().Fader(3).onChange = [] { throw std::runtime_error("strip jammed"); };
  // The operator reads the box for a while and presses again meanwhile: the
  // failures under the open box are counted, not shown.
  int presses = 0;
  dialogs.onShow = [&](const std::string&) {
    for (; presses < 3; ++presses) QTest::keyClick(f, Qt::Key_Up);
    letTheLoopRun();
  };
  QTest::keyClick(f, Qt::Key_Up);
  letTheLoopRun();
  EXPECT_EQ(dialogs.shown,
            std::vector<std::string>{"MSGBOX Quintara | Fader(3) failed: strip jammed"});
  EXPECT_EQ(console().failures.untold(), 3);
  EXPECT_EQ(form1().Fader(3).position(), 251) << "each key moved the fader before the handler";
  advance(100);
  EXPECT_TRUE(form1().DMXTimer.isEnabled());
  dialogs.onShow = nullptr;
}

}  // namespace
}  // namespace q::test
