// The chaser editor and the players on the desk: the editor opens from EDIT,
// a step edited in its grid changes what the running chaser sends, the step
// that plays is marked; a sound file dropped on a player's LOAD key opens in
// the background and the desk shows its name, its state and its time.
//
// With QUINTARA_SCREENSHOTS=DIR the tests leave pictures of what they show there.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QScrollBar>
#include <cmath>
#include <fstream>
#include <functional>

#include "engine/chasers/chaser_editor.h"
#include "gui/desk/desk_player.h"
#include "gui/desk_fixture.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"
#include "platform/media/gst_media_player.h"

namespace q {
namespace {

// The picture is taken at the zoom of the docs' other pictures.
void screenshot(gui::Form1& desk, const std::function<QWidget*()>& shown, const char* name) {
  const QByteArray dir = qgetenv("QUINTARA_SCREENSHOTS");
  if (dir.isEmpty()) return;
  desk.setZoomOverride(1.5);
  QCoreApplication::processEvents();
  if (QWidget* w = shown()) w->grab().save(QString::fromUtf8(dir) + "/" + name, "PNG");
  desk.setZoomOverride(1);
}

class ChaserEditorDesk : public test::DeskFixture {
 protected:
  gui::FormView* editor() { return desk().windows().viewOf("FX1Config"); }
  template <class W>
  W* child(const std::string& control) {
    gui::FormView* v = editor();
    return v ? v->findChild<W*>(QString::fromStdString("FX1Config." + control)) : nullptr;
  }
  int dmx(int channel) {
    console().outputTick();
    return v().DMXData[size_t(channel - 1)];
  }
};

TEST_F(ChaserEditorDesk, OpensFromEditAndAStepEditedInItsGridChangesTheLight) {
  desk();
  QWidget* edit = widget("btnFXConfig(0)");
  ASSERT_NE(edit, nullptr);
  QTest::mouseClick(edit, Qt::LeftButton);
  ASSERT_NE(editor(), nullptr);
  EXPECT_TRUE(editor()->isVisible());
  EXPECT_EQ(editor()->windowTitle(), "Chaser 1 Config");

  // The first cell of channel 3, step 1: the press makes a one-step chaser.
  auto* grid = child<gui::CellGridView>("Picture1");
  ASSERT_NE(grid, nullptr);
  QTest::mouseClick(grid, Qt::LeftButton, {}, grid->cellRect(0, 2).center());
  EXPECT_EQ(child<QLineEdit>("txtStep")->text(), "1");
  EXPECT_EQ(child<QLineEdit>("txtChannel")->text(), "3");
  EXPECT_EQ(v().FXStepCount[0], 1);

  QTest::mouseClick(widget("FXbutton(0)"), Qt::LeftButton);
  ASSERT_TRUE(form1().FXTimer[0]->isEnabled());
  EXPECT_EQ(dmx(3), 0);
  QTest::mouseClick(child<QAbstractButton>("Flash"), Qt::LeftButton);
  EXPECT_EQ(v().FX1Data.Cell(1, 3), Value(uint8_t(255)));
  EXPECT_EQ(dmx(3), 0);  // the editor raises nothing: it shows at the chaser's next step
  advance(1000);
  EXPECT_EQ(dmx(3), 255);
  EXPECT_EQ(console().windows.find<ChaserEditor>("FX1Config")->playingStep(), 1);
  screenshot(
      desk(), [this] { return editor(); }, "FX1Config-running.png");

  QTest::mouseClick(child<QAbstractButton>("Flash"), Qt::LeftButton);
  advance(1000);
  EXPECT_EQ(dmx(3), 0);
}

TEST_F(ChaserEditorDesk, TheWindowIsSkinnedAndItsLevelReachesTheChaser) {
  desk();
  control("btnFXConfig(0)").click();
  ASSERT_NE(editor(), nullptr);
  const QColor back = gui::DeskContext::colour(console().colors.SkinBackColor);
  EXPECT_EQ(editor()->grab().toImage().pixelColor(editor()->width() - 3, editor()->height() - 3),
            back);
  auto* random = child<QAbstractButton>("ChkRandom");
  ASSERT_NE(random, nullptr);
  EXPECT_EQ(random->palette().color(QPalette::Window), back);
  random->click();
  EXPECT_EQ(v().FXRandom[0], kTrue);
}

TEST_F(ChaserEditorDesk, ItsMenusHoldTheirItemsAndNewEmptiesTheChaser) {
  desk();
  control("btnFXConfig(0)").click();
  ASSERT_NE(editor(), nullptr);
  auto* menus = editor()->findChild<gui::MenuView*>();
  ASSERT_NE(menus, nullptr);
  for (const char* item :
       {"mnuNew", "mnuOpen", "mnuSaveAs", "mnuInsert", "mnuClear", "mnuClearAll"})
    EXPECT_NE(menus->action(std::string("FX1Config.") + item), nullptr) << item;
  v().FXStepCount[0] = 3;
  menus->action("FX1Config.mnuNew")->trigger();
  EXPECT_EQ(v().FXStepCount[0], 0);
}

// Made before the console and gone after it: the console holds it as WMP(0).
struct RealPlayer {
  GstMediaPlayer player;
};

class PlayerDesk : public RealPlayer, public test::DeskFixture {
 protected:
  PlayerDesk() {
    qputenv(GstMediaPlayer::kSinkVariable, "fakesink sync=true");
    players[0] = &player;
  }
  ~PlayerDesk() override { qunsetenv(GstMediaPlayer::kSinkVariable); }

  // Two seconds of silence as a 16-bit stereo WAV.
  std::string quietWav() {
    const std::string file = path("quiet.wav");
    std::ofstream f(file, std::ios::binary);
    const uint32_t bytes = 2 * 44100 * 4;
    auto u32 = [&](uint32_t x) { f.write(reinterpret_cast<const char*>(&x), 4); };
    auto u16 = [&](uint16_t x) { f.write(reinterpret_cast<const char*>(&x), 2); };
    f.write("RIFF", 4);
    u32(36 + bytes);
    f.write("WAVEfmt ", 8);
    u32(16);
    u16(1);
    u16(2);
    u32(44100);
    u32(44100 * 4);
    u16(4);
    u16(16);
    f.write("data", 4);
    u32(bytes);
    f << std::string(bytes, '\0');
    return file;
  }
};

TEST_F(PlayerDesk, AFileDroppedOnLoadOpensAndItsStateShows) {
  desk();
  gui::PlayerPump pump(player, nullptr);
  auto* view = qobject_cast<gui::PlayerView*>(widget("WMP(0)"));
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->text(), QStringLiteral("\u2014"));

  ASSERT_TRUE(dropFile(widget("MpLoad(0)"), quietWav()));
  EXPECT_EQ(player.fileName(), path("quiet.wav"));
  EXPECT_TRUE(view->text().endsWith("quiet.wav"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return player.ready(); }, 10000));
  EXPECT_EQ(view->timeText(), "0:00 / 0:02");
  EXPECT_TRUE(view->text().startsWith(QStringLiteral("\u25A0")));  // stopped

  QTest::mouseClick(widget("MpPlay(0)"), Qt::LeftButton);
  ASSERT_TRUE(QTest::qWaitFor([&] { return player.playState() == 2; }, 10000));
  EXPECT_TRUE(view->text().startsWith(QStringLiteral("\u25B6")));  // playing
  ASSERT_TRUE(QTest::qWaitFor([&] { return player.position() >= 0.5; }, 10000));
  EXPECT_TRUE(view->timeText().endsWith("/ 0:02")) << view->timeText().toStdString();
  screenshot(
      desk(), [this] { return &desk(); }, "desk-player.png");
  QTest::mouseClick(widget("MpPlay(0)"), Qt::LeftButton);
  ASSERT_TRUE(QTest::qWaitFor([&] { return player.playState() == 1; }, 10000));
  EXPECT_TRUE(view->text().startsWith(QStringLiteral("\u2759")));  // paused
}

TEST_F(PlayerDesk, AFileThatCantPlayIsToldAndShownNotReady) {
  desk();
  gui::PlayerPump pump(player, nullptr);
  ASSERT_TRUE(dropFile(widget("MpLoad(0)"), path("missing.wav")));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !dialogs.shown.empty(); }, 10000));
  EXPECT_EQ(dialogs.shown.back(), "MSGBOX Quintara | Media Player 1 can't play " +
                                      path("missing.wav") + ": the file can't be found");
  auto* view = qobject_cast<gui::PlayerView*>(widget("WMP(0)"));
  EXPECT_EQ(view->timeText(), "not ready");
}

}  // namespace
}  // namespace q
