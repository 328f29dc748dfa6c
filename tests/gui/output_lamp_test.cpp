// The output's health on the desk: the lamp in the menu bar's corner follows
// OutputLamp, and the box of a lost adapter leaves the desk running.

#include <gtest/gtest.h>

#include <QMenuBar>
#include <QMessageBox>
#include <fstream>

#include "desk_fixture.h"
#include "engine/interfaces/output_lamp.h"
#include "gui/qt_dialogs.h"

namespace q {
namespace {

class OutputLampOnTheDesk : public test::DeskFixture {
 protected:
  QWidget* lampView() { return desk().menuBar()->cornerWidget(Qt::TopRightCorner); }
};

TEST_F(OutputLampOnTheDesk, ShowsTheChosenAdaptersHealthBesideTheMenus) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\r\nInterface=10\r\n";
  desk().show();
  QWidget* lamp = lampView();
  ASSERT_NE(lamp, nullptr);
  EXPECT_EQ(lamp->objectName(), "OutputLamp");
  // No olad here: the lamp says so, in sight without a click.
  EXPECT_TRUE(lamp->isVisible());
  EXPECT_EQ(lamp->toolTip(), "DMX output: not reachable");
  const QSize deskSize = desk().desk().size();

  console().interfaces.stopDMX();
  v().InterfaceType = 0;
  console().interfaces.startDMX();
  EXPECT_FALSE(lamp->isVisible()) << "nothing to watch without an interface";
  EXPECT_EQ(desk().desk().size(), deskSize) << "the skin's layout stays as it is";
}

TEST(NoticeBox, StaysUpWithoutHoldingTheCallerAndIsNotStacked) {
  test::ensureApplication();
  gui::QtDialogs dialogs;
  dialogs.notice("Quintara", "The Enttec DMXUSB PRO does not answer");
  EXPECT_FALSE(dialogs.open()) << "no modal dialog counts as open";
  dialogs.notice("Quintara", "The Enttec DMXUSB PRO does not answer again");
  int boxes = 0;
  for (QWidget* w : QApplication::topLevelWidgets()) {
    auto* box = qobject_cast<QMessageBox*>(w);
    if (!box || !box->isVisible()) continue;
    ++boxes;
    EXPECT_EQ(box->text(), "The Enttec DMXUSB PRO does not answer again");
    EXPECT_FALSE(box->isModal());
    box->close();
  }
  EXPECT_EQ(boxes, 1);
}

}  // namespace
}  // namespace q
