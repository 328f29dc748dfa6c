#include <gtest/gtest.h>

#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QWheelEvent>

#include "desk_fixture.h"
#include "engine/look/bitmap.h"
#include "engine/playback/cue_record.h"
#include "gui/desk/fader_widget.h"
#include "gui/views/menu_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q {
namespace {

class DeskTest : public test::DeskFixture {};

QStringList captionsOf(const QList<QAction*>& actions) {
  QStringList out;
  for (QAction* a : actions) out << (a->isSeparator() ? QStringLiteral("-") : a->text());
  return out;
}

TEST_F(DeskTest, MenuBarHoldsTheConsoleMenusInOrder) {
  QMenuBar* bar = desk().menuBar();
  EXPECT_EQ(captionsOf(bar->actions()), QStringList({"File", "Window", "Channels", "Setup",
                                                     "Screen", "View", "Help", "Label Menu"}));
  EXPECT_FALSE(bar->actions().back()->isVisible()) << "the label menu is a popup";
  auto items = [&](const char* menu) {
    QStringList out;
    for (QAction* a : desk().menus().menu(menu)->actions())
      if (a->isVisible()) out << (a->isSeparator() ? QStringLiteral("-") : a->text());
    return out;
  };
  EXPECT_EQ(items("mnuFile"), QStringList({"New (Reset)", "Open ...", "Save Show as ...",
                                           "Save Submasters as ...", "-", "Exit"}));
  EXPECT_EQ(items("mnuWindow"), QStringList({"Cue List", "Matrix", "X/Y Control", "Channels",
                                             "Simple", "Keyboard", "Patch"}));
  EXPECT_EQ(items("mnuChannels"), QStringList({"Copy", "Cut", "Paste", "Load channels file",
                                               "Save Channels File As ...", "All to Zero"}));
  EXPECT_EQ(items("mnuSetup"),
            QStringList({"Keyboard Control", "Space Key GO", "Interface ...", "Midi Setup ...",
                         "OSC ...", "Max. Channels", "Change Background"}));
  EXPECT_EQ(items("mnuScreen"), QStringList({"Output", "Live (DMX Output)", "Selected"}));
  EXPECT_EQ(items("mnuView"), QStringList({"Percent", "Value", "Bars"}));
  EXPECT_EQ(items("mnuHelp"), QStringList({"About ..."}));
  EXPECT_EQ(items("mnuLabel"),
            QStringList({"Change Font", "Change Font Color", "Change Back Color"}));
}

TEST_F(DeskTest, MenuItemsFollowTheConsoleAndWindowsToComeStayDisabled) {
  gui::MenuView& m = desk().menus();
  EXPECT_TRUE(m.action("mnuNew")->isEnabled());
  EXPECT_TRUE(m.action("mnuBackground")->isEnabled());
  for (const char* w : {"mnuInterface", "mnuMidiSetup", "mnuTecles", "mnuAbout", "mnuCueList",
                        "mnuMatrix", "mnuPatch"})
    EXPECT_TRUE(m.action(w)->isEnabled()) << w;
  EXPECT_TRUE(m.action("mnuScreenOutput")->isChecked());
  m.action("mnuValue(2)")->trigger();
  EXPECT_EQ(v().ValuesMode, 2);
  EXPECT_TRUE(m.action("mnuValue(2)")->isChecked());
  EXPECT_FALSE(m.action("mnuValue(0)")->isChecked());
  // Choosing the checked item again leaves it checked, as the console keeps it.
  m.action("mnuValue(2)")->trigger();
  EXPECT_TRUE(m.action("mnuValue(2)")->isChecked());
  form1().mnuRecent(1).setCaption("/shows/a.qsh");
  form1().mnuRecent(1).setVisible(true);
  EXPECT_TRUE(m.action("mnuRecent(1)")->isVisible());
  EXPECT_EQ(m.action("mnuRecent(1)")->text(), "/shows/a.qsh");
}

TEST_F(DeskTest, ClickOnGoStartsTheFadeTheTransportRuns) {
  desk();
  v().CueCount = 1;
  v().Cues.setCell(1, cue::kNumber, std::string("1"));
  v().Cues.setCell(1, cue::kFunction, std::string("1"));
  for (int col = cue::kWaitUp; col <= cue::kDownTime; ++col)
    v().Cues.setCell(1, int16_t(col), std::string("0"));
  v().Cues.setCell(1, 7, uint8_t{200});
  QWidget* go = widget("GOButton");
  ASSERT_NE(go, nullptr);
  QTest::mousePress(go, Qt::LeftButton);
  EXPECT_EQ(get("GOButton"), "imgGo");
  QTest::mouseRelease(go, Qt::LeftButton);
  EXPECT_EQ(get("GOButton"), "");
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  EXPECT_EQ(get("MemTimer"), "-1");
  advance(100);  // row 0 holds nothing: cue 1 comes into Prog
  EXPECT_EQ(console().registry.find<Label>("NextCue")->caption(), "1");
  advance(100);  // a cue of no time fades in one tick
  EXPECT_EQ(v().chan(7, kStageColumn), 200);
  EXPECT_EQ(get("MemTimer"), "0");
  EXPECT_EQ(get("Led_GO"), "");
}

TEST_F(DeskTest, DraggingAFaderSetsTheStripLevel) {
  auto* f = widget<gui::FaderWidget>("Fader(3)");
  ASSERT_NE(f, nullptr);
  const QRect knob = f->knobRect();
  EXPECT_EQ(knob.bottom(), f->height() - 1) << "level 0 rests at the bottom";
  QTest::mousePress(f, Qt::LeftButton, {}, knob.center());
  QTest::mouseMove(f, QPoint(knob.center().x(), knob.center().y() - f->height() / 2));
  const int half = form1().Fader(3).position();
  EXPECT_GT(half, 60);
  EXPECT_LT(half, 200);
  QTest::mouseMove(f, QPoint(knob.center().x(), -50));
  QTest::mouseRelease(f, Qt::LeftButton, {}, QPoint(knob.center().x(), -50));
  EXPECT_EQ(form1().Fader(3).position(), 0);
  EXPECT_EQ(v().SubLevel[0], 255);
  EXPECT_EQ(form1().SLevel(3).caption(), "100");
  EXPECT_EQ(f->knobRect().top(), 0);
}

TEST_F(DeskTest, WheelAndArrowKeysMoveAFocusedFader) {
  auto* f = widget<gui::FaderWidget>("Fader(10)");
  ASSERT_NE(f, nullptr);
  QWheelEvent up(QPointF(5, 5), f->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 240),
                 Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(f, &up);
  EXPECT_EQ(form1().Fader(10).position(), 245) << "two notches up, five a notch";
  QTest::keyClick(f, Qt::Key_Up);
  EXPECT_EQ(form1().Fader(10).position(), 244);
  QTest::keyClick(f, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(form1().Fader(10).position(), 254);
  QTest::keyClick(f, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(form1().Fader(10).position(), 255) << "held at the end of the travel";
}

TEST_F(DeskTest, AFaderMovedByTheConsoleOnlyRepaints) {
  auto* f = widget<gui::FaderWidget>("Fader(4)");
  int changes = 0;
  auto engine = form1().Fader(4).onChange;
  form1().Fader(4).onChange = [&] {
    ++changes;
    engine();
  };
  form1().Fader(4).setPosition(100);
  EXPECT_EQ(changes, 1) << "the widget fed nothing back";
  EXPECT_NEAR(f->positionAt(f->knobRect().center().y()), 100, 1) << "the knob went there";
  EXPECT_EQ(v().SubLevel[1], 155);
}

TEST_F(DeskTest, EnterInDirectWritesTheSelectedColumn) {
  auto* direct = widget<gui::TextBoxView>("Direct");
  ASSERT_NE(direct, nullptr);
  QTest::mouseClick(widget("FaderCFG(2)"), Qt::LeftButton);
  EXPECT_EQ(v().EditColumn, 2);
  QTest::keyClicks(direct, "1/10aff");
  EXPECT_EQ(console().registry.find<TextBox>("Direct")->text(), "1/10aff");
  QTest::keyClick(direct, Qt::Key_Return);
  for (int ch = 1; ch <= 10; ++ch) EXPECT_EQ(v().chan(ch, kProgColumn), 255) << ch;
  EXPECT_EQ(v().chan(11, kProgColumn), 0);
  EXPECT_EQ(v().chan(1, kStageColumn), 0);
}

TEST_F(DeskTest, SpaceFiresGoAndTheKeyboardDeskMovesFaders) {
  desk();
  if (QWidget* w = QApplication::focusWidget()) w->clearFocus();
  QTest::keyClick(form.get(), Qt::Key_Space);
  EXPECT_EQ(get("MemTimer"), "0") << "Space is no GO until the menu says so";
  desk().menus().action("mnuSpaceGO")->trigger();
  QTest::keyClick(form.get(), Qt::Key_Space);
  EXPECT_EQ(get("MemTimer"), "-1");
  desk().menus().action("mnukeyboard")->trigger();
  QTest::keyClick(form.get(), Qt::Key_1);
  EXPECT_EQ(form1().Fader(3).position(), 250);
  QTest::keyClick(form.get(), Qt::Key_PageDown);
  EXPECT_EQ(form1().SMaster.position(), 5);
  // Keyboard control off: the command line takes the keys again.
  form->activateWindow();
  desk().menus().action("mnukeyboard")->trigger();
  QApplication::processEvents();
  EXPECT_EQ(QApplication::focusWidget(), widget("Direct"));
}

TEST_F(DeskTest, WhatIsTypedInATextBoxStaysInIt) {
  desk().menus().action("mnuSpaceGO")->trigger();
  auto* name = widget<gui::TextBoxView>("PROGName");
  name->setFocus();
  QTest::keyClicks(name, "Act 1");
  EXPECT_EQ(console().registry.find<TextBox>("PROGName")->text(), "Act 1");
  EXPECT_EQ(get("MemTimer"), "0");
}

TEST_F(DeskTest, FilesDroppedOnTheWindowAndOnAStripLoad) {
  desk();
  v().chan(3, kStageColumn) = 77;
  console().files.save("channels", path("look.qch"));
  v().chan(3, kStageColumn) = 0;
  ASSERT_TRUE(dropFile(form.get(), path("look.qch")));
  EXPECT_EQ(v().chan(3, kStageColumn), 77);
  ASSERT_TRUE(dropFile(widget("FaderCFG(6)"), path("look.qch")));
  EXPECT_EQ(v().EditColumn, 6);
  EXPECT_EQ(v().chan(3, 5), 77);
  EXPECT_EQ(get("FaderCFG(6)"), "led_ON");
}

TEST_F(DeskTest, ChangingTheSkinCutsThePiecesAgain) {
  desk();
  look::Bitmap skin(860, 600, 0x202020);
  const look::PixelRect led = look::pieceRect("led_ON");
  for (int y = led.top; y < led.bottom(); ++y)
    for (int x = led.left; x < led.right(); ++x) skin.setPixel(x, y, 0x00FF00);
  ASSERT_TRUE(skin.save(path("green.bmp")));
  const QSize size(led.width, led.height);
  EXPECT_NE(ctx->sheet.picture("led_ON", size).toImage().pixelColor(13, 12), QColor(0, 255, 0));
  dialogs.queueAnswer(path("green.bmp"));
  desk().menus().action("mnuBackground")->trigger();
  EXPECT_EQ(console().look.skinPath(), path("green.bmp"));
  EXPECT_EQ(ctx->sheet.picture("led_ON", size).toImage().pixelColor(13, 12), QColor(0, 255, 0));
  EXPECT_EQ(console().settings.ini().read("Setup", "Skin", ""), path("green.bmp"));
}

TEST_F(DeskTest, DoubleClickOnAStripNamePopsUpTheLabelMenu) {
  auto* name = widget<gui::TextBoxView>("Slabel(9)");
  ASSERT_NE(name, nullptr);
  QTest::mouseDClick(name, Qt::LeftButton);
  EXPECT_EQ(v().EditColumn, 9);
  EXPECT_TRUE(desk().menus().menu("mnuLabel")->isVisible());
  desk().menus().menu("mnuLabel")->hide();
}

TEST_F(DeskTest, AStripNameShowsTheFontAndColoursTheConsoleGaveIt) {
  auto* name = widget<gui::TextBoxView>("Slabel(5)");
  TextStyle s;
  s.fontName = "DejaVu Serif";
  s.fontSize = 9;
  s.bold = true;
  s.italic = true;
  s.foreColor = 0xFF2000;
  s.backColor = 0x002040;
  form1().Slabel(5).setStyle(s);
  EXPECT_EQ(name->font().family(), "DejaVu Serif");
  EXPECT_TRUE(name->font().bold());
  EXPECT_TRUE(name->font().italic());
  EXPECT_EQ(name->palette().color(QPalette::Text), QColor(0xFF, 0x20, 0x00));
  EXPECT_EQ(name->palette().color(QPalette::Base), QColor(0x00, 0x20, 0x40));
  form1().Slabel(5).setStyle(TextStyle{});  // back to the desk's own look
  EXPECT_FALSE(name->font().bold());
  EXPECT_NE(name->palette().color(QPalette::Text), QColor(0xFF, 0x20, 0x00));
}

TEST_F(DeskTest, ResetKeepsTheDeskStandingAndShowsTheResetStrips) {
  auto* f = widget<gui::FaderWidget>("Fader(7)");
  form1().Fader(7).setPosition(0);
  form1().Slabel(7).setText("Spot");
  const int generation = console().look.generation();
  dialogs.queueAnswer("OK");
  desk().menus().action("mnuNew")->trigger();
  EXPECT_EQ(console().look.generation(), generation + 1) << "the reload skins the desk again";
  EXPECT_FALSE(console().closed());
  EXPECT_EQ(f->knobRect().bottom(), f->height() - 1);
  EXPECT_EQ(widget<gui::TextBoxView>("Slabel(7)")->text(), "");
  EXPECT_TRUE(form1().isVisible());
}

TEST_F(DeskTest, TheCloseQuestionDecides) {
  desk();
  dialogs.queueAnswer("No");
  EXPECT_FALSE(form->close());
  EXPECT_FALSE(console().closed());
  dialogs.queueAnswer("Yes");
  EXPECT_TRUE(form->close());
  EXPECT_TRUE(console().closed());
}

TEST_F(DeskTest, TheDeskScalesAsAWhole) {
  desk();
  QWidget* fader = widget("Fader(3)");
  const QRect at1 = fader->geometry();
  form->setZoomOverride(2);
  EXPECT_EQ(fader->geometry(), QRect(at1.topLeft() * 2, at1.size() * 2));
  EXPECT_EQ(desk().desk().size(), QSize(look::kDeskWidth * 2, look::kDeskHeight * 2));
}

TEST_F(DeskTest, NoticesUnderTheDeskGrowTheWindowAndLeaveTheDeskWhole) {
  desk();
  form->show();
  form->setZoomOverride(1);
  const int before = form->height();
  form->showNotices({"No MIDI here.", "No sound here."});
  ASSERT_NE(form->findChild<QStatusBar*>(), nullptr);
  auto* line = form->findChild<QStatusBar*>()->findChild<QLabel*>();
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->text(), "No MIDI here.\nNo sound here.");
  EXPECT_GE(form->height() - before, 2 * line->fontMetrics().height());
  EXPECT_EQ(desk().desk().size(), QSize(look::kDeskWidth, look::kDeskHeight));
}

TEST_F(DeskTest, WithTheAutomaticZoomTheDeskFollowsTheWindow) {
  desk();
  form->show();
  form->setZoomOverride(0);
  form->resize(look::kDeskWidth * 2, look::kDeskHeight * 2 + form->menuBar()->height());
  EXPECT_TRUE(QTest::qWaitFor([&] { return ctx->zoom() == 2.0; }, 2000)) << ctx->zoom();
  console().look.setZoom(1.25);  // a chosen zoom holds whatever the window's size
  EXPECT_EQ(ctx->zoom(), 1.25);
  EXPECT_EQ(console().settings.ini().read("Setup", "Zoom", ""), "1.25");
}

TEST_F(DeskTest, TheLiveDisplayRepaintsWhenTheMixDrawsIt) {
  auto* display = widget("Picture1");
  ASSERT_NE(display, nullptr);
  v().chan(5, kStageColumn) = 255;
  v().MixDirty = kTrue;
  advance(100);
  ASSERT_FALSE(form1().Picture1.items().empty());
  EXPECT_EQ(form1().Picture1.items().front().text, "005");
  // A right click asks the console, which pops up the screen menu.
  QTest::mousePress(display, Qt::RightButton);
  EXPECT_TRUE(desk().menus().menu("mnuScreen")->isVisible());
  desk().menus().menu("mnuScreen")->hide();
}

}  // namespace
}  // namespace q
