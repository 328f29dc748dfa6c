// Boxes and choosers in the skin's colours, and file choosers that open where
// the shows are: a dark skin gives dark boxes with readable light text, a
// light one the reverse; a chooser opens in the folder the console asks for,
// else the last show's, else ~/Documents, else home.

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <QDir>
#include <QMessageBox>
#include <QPainter>
#include <QTemporaryDir>

#include "desk_fixture.h"
#include "gui/desk/desk_palette.h"
#include "gui/qt_dialogs.h"

namespace q::test {
namespace {

// A skin mostly of `ground`, with a band of `other` (a fader track, a lamp).
QImage skinOf(QColor ground, QColor other) {
  QImage img(200, 100, QImage::Format_RGB32);
  img.fill(ground);
  QPainter(&img).fillRect(0, 0, 200, 30, other);
  return img;
}

int contrast(QColor a, QColor b) { return std::abs(a.lightness() - b.lightness()); }

TEST(SkinPalette, BoxesTakeTheSkinsGroundWithTextThatReadsOnIt) {
  const QColor ground(0x1E, 0x22, 0x29);
  const QPalette dark = gui::paletteFromSkin(skinOf(ground, QColor(Qt::white)));
  EXPECT_EQ(dark.color(QPalette::Window), ground);
  EXPECT_GT(contrast(dark.color(QPalette::WindowText), ground), 150);
  EXPECT_GT(contrast(dark.color(QPalette::Text), dark.color(QPalette::Base)), 150);
  EXPECT_GT(contrast(dark.color(QPalette::ButtonText), dark.color(QPalette::Button)), 120);

  const QColor paper(0xE0, 0xDC, 0xD0);
  const QPalette light = gui::paletteFromSkin(skinOf(paper, QColor(Qt::black)));
  EXPECT_EQ(light.color(QPalette::Window), paper);
  EXPECT_LT(light.color(QPalette::WindowText).lightness(), 60);
}

TEST(SkinPalette, ABlackSkinStillShowsWhereTheButtonsAre) {
  const QPalette p = gui::paletteFromSkin(skinOf(Qt::black, Qt::red));
  EXPECT_NE(p.color(QPalette::Button), p.color(QPalette::Window));
  EXPECT_GT(contrast(p.color(QPalette::ButtonText), p.color(QPalette::Button)), 120);
}

TEST(SkinPalette, WithoutASkinTheBoxesAreTheDesksDarkOnes) {
  const QPalette p = gui::paletteFromSkin(QImage());
  EXPECT_LT(p.color(QPalette::Window).lightness(), 50);
  EXPECT_GT(p.color(QPalette::WindowText).lightness(), 200);
  // Greyed entries differ from live ones.
  EXPECT_NE(p.color(QPalette::Disabled, QPalette::ButtonText), p.color(QPalette::ButtonText));
}

TEST(SkinPalette, AMessageBoxOpenedAfterwardsWearsIt) {
  ensureApplication();
  const QColor ground(0x30, 0x18, 0x18);
  gui::applySkinPalette(skinOf(ground, Qt::yellow));
  QMessageBox box(QMessageBox::Critical, "ERROR", "Error loading file : a.qsh");
  EXPECT_EQ(box.palette().color(QPalette::Window), ground);
  EXPECT_GT(box.palette().color(QPalette::WindowText).lightness(), 200);
}

class StartFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    if (const char* h = std::getenv("HOME")) home_ = h;
    ::setenv("HOME", path("home").c_str(), 1);
    QDir(dir_.path()).mkpath("home");
    QDir(dir_.path()).mkpath("shows");
  }
  void TearDown() override { ::setenv("HOME", home_.c_str(), 1); }
  std::string path(const char* sub) const { return QDir(dir_.path()).filePath(sub).toStdString(); }
  QString qpath(const char* sub) const { return QDir(dir_.path()).filePath(sub); }

  QTemporaryDir dir_;
  std::string home_;
};

TEST_F(StartFolder, TheFolderTheConsoleAsksForComesFirst) {
  EXPECT_EQ(gui::startFolder(path("shows"), path("home/x.qsh")), qpath("shows"));
}

TEST_F(StartFolder, ThenTheLastShowsFolderThenDocumentsThenHome) {
  const std::string lastShow = path("shows") + "/opening.qsh";
  EXPECT_EQ(gui::startFolder("", lastShow), qpath("shows"));
  EXPECT_EQ(gui::startFolder(path("gone"), lastShow), qpath("shows"));
  // The recent list names a show whose folder has gone (a removed stick).
  EXPECT_EQ(gui::startFolder("", path("gone") + "/opening.qsh"), qpath("home"));
  QDir(dir_.path()).mkpath("home/Documents");
  EXPECT_EQ(gui::startFolder("", ""), qpath("home/Documents"));
}

}  // namespace
}  // namespace q::test
