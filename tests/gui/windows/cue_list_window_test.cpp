// The cue list on the desk: opened from its menu, a row selected and a level
// edited in place with the mouse and the keys, the list sorted from its
// menu, a cue's properties opened and changed, a special cue added through
// its modal dialog, the window sized by the operator, and the list printed
// into a PDF file.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>

#include "engine/cuelist/cue_grid.h"
#include "engine/playback/cue_record.h"
#include "gui/desk_fixture.h"
#include "gui/print/qt_page_printer.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"

namespace q {
namespace {

class CueListWindow : public test::DeskFixture {
 protected:
  gui::FormView* view(const std::string& window) { return desk().windows().viewOf(window); }
  template <class W>
  W* child(const std::string& window, const std::string& control) {
    gui::FormView* v = view(window);
    return v ? v->findChild<W*>(QString::fromStdString(window + "." + control)) : nullptr;
  }
  static void settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  gui::CellGridView* pane(const char* name) { return child<gui::CellGridView>("Cuewin", name); }
  // The pixel centre of a cell of a pane.
  QPoint centre(const char* name, int row, int column) {
    return pane(name)->cellRect(row, column).center();
  }
  // The action of a window's menu item, as its menu bar holds it.
  QAction* action(const std::string& window, const std::string& item) {
    auto* menus = view(window)->findChild<gui::MenuView*>();
    return menus ? menus->action(window + "." + item) : nullptr;
  }
  void chooseIn(const std::string& window, const std::string& item) {
    QAction* a = action(window, item);
    ASSERT_NE(a, nullptr) << item;
    a->trigger();
  }
  Cuewin& openList() {
    desk();
    desk().menus().action("mnuCueList")->trigger();
    return *console().windows.find<Cuewin>("Cuewin");
  }
  void addCue(const std::string& number, const std::string& name) {
    const int16_t row = ++v().CueCount;
    v().Cues.setCell(row, cue::kNumber, number);
    v().Cues.setCell(row, cue::kFunction, std::string("1"));
    v().Cues.setCell(row, cue::kName, name);
  }
  std::string cue(int row, int column) {
    return toText(v().Cues.Cell(int16_t(row), int16_t(column)));
  }
};

TEST_F(CueListWindow, OpensFromTheMenuWithItsMenusAndPanes) {
  addCue("1", "House");
  openList();
  ASSERT_NE(view("Cuewin"), nullptr);
  EXPECT_TRUE(view("Cuewin")->isVisible());
  EXPECT_EQ(view("Cuewin")->windowTitle(), "Cue List");
  for (const char* p : {"Picture1", "Picture2", "Picture3", "Picture4", "Picture5", "Picture6"})
    EXPECT_NE(pane(p), nullptr) << p;
  EXPECT_EQ(child<QLineEdit>("Cuewin", "txt_Show")->text(), "Unnamed");
  QAction* sort = action("Cuewin", "mnuSort");
  ASSERT_NE(sort, nullptr);
  EXPECT_EQ(sort->text(), "Sort by Cue number");
  EXPECT_TRUE(sort->isEnabled());
}

TEST_F(CueListWindow, APressSelectsAndADoubleClickEditsTheLevelInPlace) {
  addCue("1", "a");
  addCue("2", "b");
  Cuewin& w = openList();
  QTest::mouseClick(pane("Picture1"), Qt::LeftButton, {}, centre("Picture1", 1, 2));
  EXPECT_EQ(v().SelectedCue, 2);
  EXPECT_EQ(w.EditChannel, 3);
  QTest::mouseDClick(pane("Picture1"), Qt::LeftButton, {}, centre("Picture1", 1, 2));
  auto* editor = child<QLineEdit>("Cuewin", "txtedit");
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->isVisible());
  QTest::keyClicks(editor, "ff");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_EQ(cue(2, 3), "255");
  EXPECT_FALSE(editor->isVisible());
  // Typed over a level, the old text is replaced, not added to.
  QTest::mouseClick(pane("Picture1"), Qt::LeftButton, {}, centre("Picture1", 1, 2));
  QTest::mouseDClick(pane("Picture1"), Qt::LeftButton, {}, centre("Picture1", 1, 2));
  QTest::keyClicks(editor, "12.5");
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_EQ(cue(2, 3), "12.5");
}

TEST_F(CueListWindow, SortsFromItsMenuAndThePanesShowTheNewOrder) {
  addCue("3", "c");
  addCue("1", "a");
  addCue("2", "b");
  Cuewin& w = openList();
  chooseIn("Cuewin", "mnuSort");
  EXPECT_EQ(cue(1, cue::kName), "a");
  EXPECT_EQ(cue(3, cue::kName), "c");
  EXPECT_EQ(w.Picture6.cell(0, 0).text, "a");
  settle();
}

TEST_F(CueListWindow, TheCuePropertiesOpenOnARowAndTakeANewTime) {
  addCue("1", "a");
  addCue("2", "b");
  openList();
  QTest::mouseClick(pane("Picture4"), Qt::LeftButton, {}, centre("Picture4", 1, 0));
  QTest::mouseDClick(pane("Picture4"), Qt::LeftButton, {}, centre("Picture4", 1, 0));
  ASSERT_NE(view("CueProps"), nullptr);
  EXPECT_TRUE(view("CueProps")->isVisible());
  EXPECT_EQ(view("CueProps")->windowModality(), Qt::NonModal);
  auto* up = child<QLineEdit>("CueProps", "txtTimeUp");
  ASSERT_NE(up, nullptr);
  up->selectAll();
  QTest::keyClicks(up, "45");
  QTest::mouseClick(child<QAbstractButton>("CueProps", "btn_Ok"), Qt::LeftButton);
  EXPECT_EQ(cue(2, cue::kUpTime), "45");
  EXPECT_EQ(console().windows.find("CueProps"), nullptr);
  settle();
  EXPECT_EQ(view("CueProps"), nullptr);
}

TEST_F(CueListWindow, ASpecialCueIsAddedThroughItsModalDialog) {
  addCue("1", "a");
  openList();
  chooseIn("Cuewin", "mnuSpecialCue");
  ASSERT_NE(view("SpCue"), nullptr);
  EXPECT_TRUE(view("SpCue")->isVisible());
  EXPECT_EQ(view("SpCue")->windowModality(), Qt::ApplicationModal);
  EXPECT_EQ(view("SpCue")->windowTitle(), "Add a special cue:");
  auto* type = child<QComboBox>("SpCue", "Tipus");
  ASSERT_NE(type, nullptr);
  type->setCurrentIndex(3);  // "07: Show message"
  EXPECT_FALSE(child<QWidget>("SpCue", "btn_Busca")->isVisible());
  QTest::mouseClick(child<QAbstractButton>("SpCue", "btn_Ok"), Qt::LeftButton);
  EXPECT_EQ(v().CueCount, 2);
  EXPECT_EQ(cue(2, cue::kFunction), "07");
  EXPECT_EQ(cue(2, cue::kName), "No Cue name");
  settle();
  EXPECT_EQ(view("SpCue"), nullptr);
}

TEST_F(CueListWindow, SizedByTheOperatorThePanesFollow) {
  Cuewin& w = openList();
  gui::FormView* v = view("Cuewin");
  const double before = w.Picture1.width;
  const int oldRows = w.Picture1.rows;
  v->resize(v->width() + 200, v->height() + 100);
  EXPECT_GT(w.Picture1.width, before + 1000);
  EXPECT_GT(w.Picture1.rows, oldRows);
  settle();
  EXPECT_GT(pane("Picture1")->width(), int(before * v->scale()) + 150);
}

TEST_F(CueListWindow, PrintsIntoAPdfFileWhereThereIsNoPrinter) {
  gui::QtPagePrinter pdf(gui::QtPagePrinter::Target::PdfOnly);
  printer = &pdf;
  addCue("1", "House");
  openList();
  chooseIn("Cuewin", "mnuPrint");
  EXPECT_TRUE(dialogs.shown.empty()) << dialogs.shown.front();
  QFile file(QString::fromStdString(path("CueList.pdf")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.read(5).startsWith("%PDF-"));
  EXPECT_TRUE(QFile::exists(QString::fromStdString(path("temp.qcl"))));
  EXPECT_FALSE(QFile::exists(QString::fromStdString(path("CueList.pdf.part"))));
}

TEST_F(CueListWindow, AResetOfTheDeskWithTheListAndItsPropertiesOpenLeavesNoDanglingView) {
  addCue("1", "a");
  openList();
  QTest::mouseClick(pane("Picture3"), Qt::LeftButton, {}, centre("Picture3", 0, 0));
  QTest::mouseDClick(pane("Picture3"), Qt::LeftButton, {}, centre("Picture3", 0, 0));
  ASSERT_NE(view("CueProps"), nullptr);
  QPointer<gui::FormView> list = view("Cuewin");
  dialogs.queueAnswer("OK");
  desk().menus().action("mnuNew")->trigger();
  EXPECT_EQ(console().windows.find("Cuewin"), nullptr);
  EXPECT_EQ(console().windows.find("CueProps"), nullptr);
  settle();
  EXPECT_TRUE(list.isNull());
  // The table the panes showed changes on, with no view left to hear it.
  v().Cues.setCell(1, 1, uint8_t(9));
  QCoreApplication::processEvents();
  openList();
  EXPECT_TRUE(view("Cuewin")->isVisible());
}

}  // namespace
}  // namespace q
