// The channels panel, the simple view and the X/Y control on the desk: each
// opens from the Window menu, a fader, the wheel or the pad moved with the
// mouse reaches the next output frame, each closes by its close box, and a
// reset of the desk with all three open leaves no view on a model that is gone.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QMouseEvent>

#include "engine/views/channels_panel.h"
#include "engine/views/simple_view.h"
#include "engine/views/xy_control.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"
#include "gui/windows/simple_window.h"
#include "gui/windows/window_fixture.h"

namespace q {
namespace {

class ChannelViews : public test::WindowFixture {
 protected:
  // A press at one point, moves to the next ones with the button held, and the release.
  static void drag(QWidget* w, std::initializer_list<QPointF> points,
                   Qt::MouseButton button = Qt::LeftButton) {
    const QPointF* p = points.begin();
    auto send = [w](QEvent::Type type, QPointF at, Qt::MouseButton b, Qt::MouseButtons held) {
      QMouseEvent e(type, at, w->mapToGlobal(at), b, held, Qt::NoModifier);
      QApplication::sendEvent(w, &e);
    };
    send(QEvent::MouseButtonPress, *p, button, button);
    for (++p; p != points.end(); ++p) send(QEvent::MouseMove, *p, Qt::NoButton, button);
    send(QEvent::MouseButtonRelease, *(p - 1), button, Qt::NoButton);
  }
  // One output tick: the frame as it goes out.
  uint8_t frame(int channel) {
    advance(v().DMXRate);
    return v().DMXData[channel - 1];
  }
};

TEST_F(ChannelViews, AllThreeOpenFromTheWindowMenu) {
  desk();
  for (const char* item : {"mnuChanWin", "mnuSimple", "mnuMobile"})
    EXPECT_TRUE(desk().menus().action(item)->isEnabled()) << item;
  choose("mnuChanWin");
  choose("mnuSimple");
  choose("mnuMobile");
  for (const char* w : {"Canals", "Simple", "Mobile"}) ASSERT_TRUE(shown(w)) << w;
  EXPECT_EQ(view("Canals")->windowTitle(), "Channels Stage");
  EXPECT_EQ(view("Simple")->windowTitle(), "Simple");
  EXPECT_EQ(view("Mobile")->windowTitle(), "X-Y Control");
}

TEST_F(ChannelViews, AFaderOfThePanelDraggedReachesTheFrame) {
  desk();
  choose("mnuChanWin");
  QWidget* fader = child("Canals", "Fader(4)");
  ASSERT_NE(fader, nullptr);
  EXPECT_EQ(fader->height(), 220) << "the strips' height";
  const int x = fader->width() / 2;
  drag(fader, {QPointF(x, fader->height() - 5), QPointF(x, fader->height() / 2.0), QPointF(x, 1)});
  EXPECT_EQ(v().chan(5, 0), 255);
  EXPECT_EQ(get("Canals.SLevel(4)"), "100");
  EXPECT_EQ(frame(5), 255);

  // The second page writes its own channels.
  QTest::mouseClick(child("Canals", "Pagina(1)"), Qt::LeftButton);
  EXPECT_EQ(get("Canals.Slabel(0)"), "33");
  drag(fader, {QPointF(x, 1), QPointF(x, 1)});
  EXPECT_EQ(frame(37), 255);

  // A flash key holds its fader full while pressed.
  QWidget* flash = child("Canals", "Flash(2)");
  QTest::mousePress(flash, Qt::LeftButton);
  EXPECT_EQ(frame(35), 255);
  QTest::mouseRelease(flash, Qt::LeftButton);
  EXPECT_EQ(frame(35), 0);

  view("Canals")->close();
  EXPECT_EQ(console().windows.find("Canals"), nullptr);
  settle();
  EXPECT_EQ(view("Canals"), nullptr);
}

TEST_F(ChannelViews, TheWheelOfTheSimpleViewMovesTheSelectionIntoTheFrame) {
  v().chan(3, 0) = 100;
  desk();
  choose("mnuSimple");
  auto* cells = static_cast<gui::SimpleCellsView*>(child("Simple", "Canal"));
  ASSERT_NE(cells, nullptr);
  EXPECT_EQ(get("Simple.Canal(3)"), "100");
  EXPECT_EQ(cells->channelAt(cells->cellRect(3).center()), 3);
  QTest::mouseClick(cells, Qt::LeftButton, {}, cells->cellRect(3).center());
  EXPECT_EQ(child("Simple", "Text1")->property("text").toString(), "3");
  QWidget* wheel = child("Simple", "Picture4");
  ASSERT_NE(wheel, nullptr);
  // The wheel's own units are pixels of the desk at its natural size.
  drag(wheel, {QPointF(20, 60), QPointF(20, 50), QPointF(20, 40)});
  EXPECT_EQ(v().chan(3, 0), 120);
  EXPECT_EQ(frame(3), 120);

  // A double click switches a cell between off and full, and the colour it leaves stands.
  const QPoint other = cells->cellRect(8).center();
  QTest::mouseClick(cells, Qt::LeftButton, {}, other);
  QTest::mouseDClick(cells, Qt::LeftButton, {}, other);
  EXPECT_EQ(frame(8), 255);
  QTest::mouseDClick(cells, Qt::LeftButton, {}, other);
  EXPECT_EQ(frame(8), 0);
  EXPECT_FALSE(console().windows.find<Simple>("Simple")->Canal(8).selected());
  // A right press adds a cell to the selection; a press between cells picks none.
  QTest::mouseClick(cells, Qt::RightButton, {}, cells->cellRect(40).center());
  EXPECT_TRUE(console().windows.find<Simple>("Simple")->Canal(40).selected());
  EXPECT_EQ(cells->channelAt(cells->cellRect(40).topRight() + QPoint(1, 0)), 0);
  EXPECT_EQ(cells->channelAt(cells->cellRect(129).center()), 0) << "beyond MaxChans";

  // Folded, the window keeps its top only.
  const int unfolded = view("Simple")->height();
  QTest::mouseClick(qobject_cast<QAbstractButton*>(child("Simple", "Command1(1)")), Qt::LeftButton);
  EXPECT_LT(view("Simple")->height(), unfolded / 4);
  QTest::mouseClick(qobject_cast<QAbstractButton*>(child("Simple", "Command1(0)")), Qt::LeftButton);
  EXPECT_EQ(view("Simple")->height(), unfolded);

  view("Simple")->close();
  EXPECT_EQ(console().windows.find("Simple"), nullptr);
}

TEST_F(ChannelViews, ThePadDrivesTwoChannelsInItsOwnUnits) {
  desk();
  choose("mnuMobile");
  QWidget* pad = child("Mobile", "Picture1");
  ASSERT_NE(pad, nullptr);
  EXPECT_EQ(pad->width(), 255);
  drag(pad, {QPointF(10, 10), QPointF(200, 40), QPointF(300, 55)});
  EXPECT_EQ(get("Mobile.Label1"), "255");
  EXPECT_EQ(get("Mobile.Label2"), "55");
  EXPECT_EQ(frame(1), 255);
  EXPECT_EQ(frame(2), 55);

  // Another target, typed and entered in its box.
  auto* target = qobject_cast<QLineEdit*>(child("Mobile", "YChan"));
  ASSERT_NE(target, nullptr);
  target->selectAll();
  QTest::keyClicks(target, "S02");
  QTest::keyClick(target, Qt::Key_Return);
  drag(pad, {QPointF(0, 0), QPointF(20, 100)});
  EXPECT_EQ(form1().Fader(4).position(), 155);
  EXPECT_EQ(v().SubLevel[1], 100);

  view("Mobile")->close();
  EXPECT_EQ(console().windows.find("Mobile"), nullptr);
}

TEST_F(ChannelViews, ResetDeskWithEveryViewOpenLeavesNoDanglingView) {
  desk();
  for (const char* item : {"mnuChanWin", "mnuSimple", "mnuMobile"}) choose(item);
  QPointer<gui::FormView> simple = view("Simple");
  dialogs.queueAnswer("OK");
  choose("mnuNew");
  for (const char* w : {"Canals", "Simple", "Mobile"})
    EXPECT_EQ(console().windows.find(w), nullptr) << w;
  settle();
  EXPECT_TRUE(simple.isNull());
  desk().desk().repaintAll();
  QCoreApplication::processEvents();
  choose("mnuChanWin");
  EXPECT_TRUE(shown("Canals"));
  EXPECT_EQ(get("Canals.SLevel(0)"), "00");
}

}  // namespace
}  // namespace q
