#include "gui/qt_dialogs.h"

#include <gtest/gtest.h>

namespace q {
namespace {

TEST(SaveDialog, ANameWithoutExtensionTakesTheFirstFiltersOne) {
  EXPECT_EQ(gui::defaultSuffix("Quintara Save File (*.Qsh)|*.qsh"), "qsh");
  EXPECT_EQ(gui::defaultSuffix("Orvaldi Patch file  (*.qpf)|*.qpf|Text File  (*.txt)|*.txt"),
            "qpf");
  EXPECT_EQ(gui::defaultSuffix("All files (*.*)|*.*"), "");
  EXPECT_EQ(gui::defaultSuffix(""), "");
}

}  // namespace
}  // namespace q
