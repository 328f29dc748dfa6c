// The channels matrix and the twin patch windows on the desk: each opens
// from its menu, the mouse and the keys change what goes out, the windows
// close, and a reset of the desk with them open leaves no view on a model
// that is gone.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>

#include "engine/views/channels_matrix.h"
#include "engine/views/patch_dmx_view.h"
#include "gui/desk_fixture.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"

namespace q {
namespace {

class ChannelWindows : public test::DeskFixture {
 protected:
  gui::FormView* view(const std::string& window) { return desk().windows().viewOf(window); }
  template <class W>
  W* child(const std::string& window, const std::string& control) {
    gui::FormView* v = view(window);
    return v ? v->findChild<W*>(QString::fromStdString(window + "." + control)) : nullptr;
  }
  void choose(const char* item) { desk().menus().action(item)->trigger(); }
  static void settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  bool shown(const std::string& window) {
    gui::FormView* v = view(window);
    return v && v->isVisible();
  }
  static void mouse(QWidget* w, QEvent::Type type, QPoint at, Qt::MouseButtons held) {
    const Qt::MouseButton b = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent e(type, at, w->mapToGlobal(at), b, held, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
  }
  std::vector<uint8_t> frame(int from = 1, int to = 4) {
    v().MixDirty = kTrue;
    form1().DMXTimer.onTick();
    return {v().DMXData.begin() + from - 1, v().DMXData.begin() + to};
  }
  ChannelsMatrix& matrix() { return *console().windows.find<ChannelsMatrix>("frmSparseMatrix"); }
};

TEST_F(ChannelWindows, TheMatrixOpensFromItsMenuAndADragReachesTheFrame) {
  desk();
  choose("mnuMatrix");
  ASSERT_TRUE(shown("frmSparseMatrix"));
  EXPECT_EQ(view("frmSparseMatrix")->windowTitle(), "Channels Matrix");
  auto* grid = child<gui::CellGridView>("frmSparseMatrix", "Picture1");
  ASSERT_NE(grid, nullptr);
  // Channel 3 on Stage: press in its cell and drag upwards, one level a step.
  const QPoint cell = grid->cellRect(0, 2).center();
  mouse(grid, QEvent::MouseButtonPress, cell, Qt::LeftButton);
  for (int step = 1; step <= 5; ++step)
    mouse(grid, QEvent::MouseMove, cell - QPoint(0, step), Qt::LeftButton);
  mouse(grid, QEvent::MouseButtonRelease, cell - QPoint(0, 5), Qt::NoButton);
  EXPECT_EQ(v().chan(3, 0), 4) << "the first step compares with Y 0 and goes down";
  EXPECT_EQ(frame(), (std::vector<uint8_t>{0, 0, 4, 0}));
  // The strip under the grid shows the byte that went out.
  EXPECT_EQ(matrix().Picture3.cell(0, 2).text, "4");
  view("frmSparseMatrix")->close();
  EXPECT_EQ(console().windows.find("frmSparseMatrix"), nullptr);
  settle();
  EXPECT_EQ(view("frmSparseMatrix"), nullptr);
}

TEST_F(ChannelWindows, ADoubleClickOpensTheCellEditorWithItsLevelSelected) {
  desk();
  v().chan(2, 1) = 77;
  choose("mnuMatrix");
  auto* grid = child<gui::CellGridView>("frmSparseMatrix", "Picture1");
  const QPoint cell = grid->cellRect(1, 1).center();
  QTest::mouseClick(grid, Qt::LeftButton, {}, cell);
  QTest::mouseDClick(grid, Qt::LeftButton, {}, cell);
  settle();
  auto* editor = child<QLineEdit>("frmSparseMatrix", "txtedit");
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->isVisible());
  EXPECT_EQ(editor->selectedText(), "77");
  EXPECT_EQ(editor->geometry().topLeft(),
            grid->geometry().topLeft() + grid->cellRect(1, 1).topLeft());
  QTest::keyClicks(editor, "ff");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_EQ(v().chan(2, 1), 255);
  EXPECT_FALSE(editor->isVisible());
}

TEST_F(ChannelWindows, TheMatrixFollowsItsWindowsSizeAndItsScrollBars) {
  desk();
  v().MaxChans = 512;
  choose("mnuMatrix");
  gui::FormView* w = view("frmSparseMatrix");
  w->resize(w->width() / 2, w->height() / 2);
  settle();
  EXPECT_EQ(matrix().width(), w->widthTwips());
  EXPECT_LT(matrix().Picture1.columns, 20);
  EXPECT_EQ(child<QWidget>("frmSparseMatrix", "Picture1")->width(),
            w->px(matrix().layout().picture1.width));
  // Taller than the window may be in its normal state: it is held.
  w->resize(w->width(), w->px(20000));
  settle();
  EXPECT_EQ(w->height(), w->px(MatrixLayout::kMaxHeight));
  child<QScrollBar>("frmSparseMatrix", "hscScroll")->setValue(50);
  EXPECT_EQ(matrix().leftChannel, 50);
  EXPECT_EQ(matrix().Picture2.cell(0, 0).text, "50");
}

TEST_F(ChannelWindows, ThePatchTwinsOpenTurnAndWriteThePatch) {
  desk();
  v().chan(1, 0) = 180;
  choose("mnuPatch");
  ASSERT_TRUE(shown("frmPatch"));
  EXPECT_EQ(view("frmPatch")->windowTitle(), "Patch");
  auto* bar = view("frmPatch")->findChild<QMenuBar*>();
  ASSERT_NE(bar, nullptr);
  QStringList menus;
  for (QAction* a : bar->actions()) menus << a->text();
  EXPECT_EQ(menus, QStringList({"File", "View", "Edit"}));
  // DMX channel 40 fed by console channel 1, through the box as it is typed.
  auto* box = child<QLineEdit>("frmPatch", "txtPatch(40)");
  box->selectAll();
  QTest::keyClicks(box, "1");
  EXPECT_EQ(v().PatchMap.get(40), 1);
  QTest::mouseClick(child<QCheckBox>("frmPatch", "Check1"), Qt::LeftButton);
  EXPECT_EQ(v().PatchOn, kTrue);
  EXPECT_EQ(frame(39, 41), (std::vector<uint8_t>{0, 180, 0}));

  const QPoint where = view("frmPatch")->pos();
  QTest::mouseClick(child<QAbstractButton>("frmPatch", "ReverseBtn"), Qt::LeftButton);
  settle();
  ASSERT_TRUE(shown("frmInvPatch"));
  EXPECT_FALSE(shown("frmPatch"));
  EXPECT_EQ(view("frmInvPatch")->pos(), where) << "the twin takes the place of the one it replaces";
  auto* list = child<QLineEdit>("frmInvPatch", "txtPatch(1)");
  EXPECT_EQ(list->text(), "1,40,");
  list->end(false);
  QTest::keyClicks(list, "45");
  EXPECT_EQ(v().PatchMap.get(45), 45) << "nothing before Enter";
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(list->text(), "1,40,45,");
  EXPECT_EQ(frame(44, 46), (std::vector<uint8_t>{0, 180, 0}));
  // The menu's own entries: Delete all, then 1 to 1.
  gui::MenuView* menusOfInv = view("frmInvPatch")->findChild<gui::MenuView*>();
  ASSERT_NE(menusOfInv, nullptr);
  menusOfInv->action("frmInvPatch.mnuDeleteAll")->trigger();
  EXPECT_EQ(list->text(), "");
  menusOfInv->action("frmInvPatch.mnuOnetoOne")->trigger();
  EXPECT_EQ(list->text(), "1,");
  view("frmInvPatch")->close();
  EXPECT_EQ(console().windows.find("frmInvPatch"), nullptr);
}

TEST_F(ChannelWindows, ResetDeskWithTheWindowsOpenLeavesNoDanglingView) {
  desk();
  choose("mnuMatrix");
  choose("mnuPatch");
  ASSERT_TRUE(shown("frmSparseMatrix"));
  ASSERT_TRUE(shown("frmPatch"));
  QPointer<gui::FormView> grid = view("frmSparseMatrix");
  dialogs.queueAnswer("OK");
  choose("mnuNew");
  EXPECT_EQ(console().windows.find("frmSparseMatrix"), nullptr);
  EXPECT_NE(console().windows.find("frmPatch"), nullptr) << "the patch stays through the unload";
  settle();
  EXPECT_TRUE(grid.isNull());
  EXPECT_TRUE(shown("frmPatch"));
  // Mixes, events and repaints after the reset touch nothing that is gone.
  v().MixDirty = kTrue;
  form1().DMXTimer.onTick();
  desk().desk().repaintAll();
  QCoreApplication::processEvents();
  choose("mnuMatrix");
  EXPECT_TRUE(shown("frmSparseMatrix"));
  auto* box = child<QLineEdit>("frmPatch", "txtPatch(2)");
  box->selectAll();
  QTest::keyClicks(box, "20");
  EXPECT_EQ(v().PatchMap.get(2), 20);
}

}  // namespace
}  // namespace q
