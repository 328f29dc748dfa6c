// The live display repaints only the cells that changed, merged to the pace
// of the screen: whatever the mixer drew, however fast, the pixels on the
// window end up as a fresh painting of the last drawing, and a burst of
// changes costs no more repaints than the screen shows.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QPaintEvent>
#include <QScreen>
#include <random>

#include "desk_fixture.h"
#include "engine/controls/picture.h"
#include "gui/views/repaint_pacer.h"

namespace q::test {
namespace {

class LiveDisplayPaintTest : public DeskFixture {
 protected:
  Picture& pic() { return form1().Picture1; }
  QWidget* view() { return widget("Picture1"); }

  // A strip as the mixer draws it: a channel number and a level per slot,
  // or a bar per channel.
  void draw(std::mt19937& rnd, bool bars) {
    pic().cls();
    const int count = int(rnd() % 31);
    const int first = 1 + int(rnd() % 4) * 7;
    for (int k = 0; k < count; ++k) {
      const int level = 1 + int(rnd() % (rnd() % 4 == 0 ? 255 : 4));
      if (bars) {
        pic().box(k * 2.5 + 2, 14, 3, -level / 10.0, 0x30A0FF);
        continue;
      }
      char number[16];
      std::snprintf(number, sizeof number, "%03d", first + k);
      pic().print(k * 25 + 2, 2, number, 0xFFC040);
      pic().print(k * 25 + 2, 18, std::to_string(level), 0xE0E0E0);
    }
    pic().refresh();
  }

  // Lets the pacer hand over what it holds and Qt paint it.
  static void settle() {
    auto& pacer = gui::RepaintPacer::instance();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pacer.pending(); }, 2000));
    QApplication::processEvents();
  }

  // The display as the window's backing store holds it, and as a fresh painting.
  QImage onScreen() {
    const QPoint at = view()->mapTo(view()->window(), QPoint(0, 0));
    const QPixmap whole = view()->screen()->grabWindow(view()->window()->winId());
    return whole.copy(QRect(at, view()->size())).toImage().convertToFormat(QImage::Format_RGB32);
  }
  QImage painted() { return view()->grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

// Records the regions the view is asked to paint.
class PaintSpy : public QObject {
 public:
  std::vector<QRegion> regions;
  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() == QEvent::Paint) regions.push_back(static_cast<QPaintEvent*>(e)->region());
    return false;
  }
};

TEST_F(LiveDisplayPaintTest, PixelsEndAsAFreshPaintingOfTheLastDrawing) {
  desk().show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(view()->window()));
  std::mt19937 rnd(20261123);
  for (int round = 0; round < 6; ++round) {
    const bool bars = round % 3 == 2;
    for (int change = 0; change < 40; ++change) {
      draw(rnd, bars);
      // Some changes are painted at once, some merged, some wait for the pacer.
      switch (rnd() % 4) {
        case 0:
          QApplication::processEvents();
          break;
        case 1:
          QTest::qWait(int(rnd() % 40));
          break;
        default:
          break;
      }
    }
    settle();
    ASSERT_EQ(onScreen(), painted()) << "round " << round;
  }
}

TEST_F(LiveDisplayPaintTest, ABurstOfChangesRepaintsAtTheScreensPaceAndOnlyTheChangedCell) {
  desk().show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(view()->window()));
  std::mt19937 rnd(7);
  draw(rnd, false);
  while (pic().items().size() < 8) draw(rnd, false);
  settle();
  PaintSpy spy;
  view()->installEventFilter(&spy);
  // The level of the third slot changes every 5 ms for a third of a second.
  std::vector<DrawItem> items = pic().items();
  QElapsedTimer burst;
  burst.start();
  for (int i = 0; burst.elapsed() < 330; ++i) {
    pic().cls();
    items[5].text = std::to_string(100 + i % 100);
    for (const DrawItem& it : items) pic().print(it.x, it.y, it.text, it.color);
    pic().refresh();
    QTest::qWait(5);
  }
  settle();
  view()->removeEventFilter(&spy);
  EXPECT_LE(int(spy.regions.size()), int(burst.elapsed() / gui::RepaintPacer::kFrameMs) + 2);
  ASSERT_FALSE(spy.regions.empty());
  const QRect sixthSlot = view()->rect().adjusted(view()->width() / 30 * 6, 0, 0, 0);
  for (const QRegion& r : spy.regions)
    EXPECT_FALSE(r.intersects(sixthSlot)) << r.boundingRect().x();
  EXPECT_EQ(onScreen(), painted());
}

}  // namespace
}  // namespace q::test
