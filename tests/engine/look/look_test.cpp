#include <gtest/gtest.h>

#include <fstream>

#include "engine/look/bitmap.h"
#include "engine/look/desk_layout.h"
#include "engine/look/skin_pieces.h"
#include "support/console_fixture.h"

namespace q {
namespace {

using look::Bitmap;
using look::PixelRect;

bool overlap(const PixelRect& a, const PixelRect& b) {
  return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

// A skin that is plain grey but for a lit selector and the colour strip.
Bitmap plainSkin(uint32_t labelColour) {
  Bitmap b(860, 600, 0x202020);
  const PixelRect led = look::pieceRect("led_ON");
  for (int y = led.top; y < led.bottom(); ++y)
    for (int x = led.left; x < led.right(); ++x) b.setPixel(x, y, 0x00FF00);
  for (int c = 1; c <= look::kSkinColourCount; ++c) {
    const look::PixelPoint p = look::colourPixel(look::SkinColour(c));
    b.setPixel(p.x, p.y, 0x010101 * uint32_t(c));
  }
  const look::PixelPoint label = look::colourPixel(look::SkinColour::Label);
  b.setPixel(label.x, label.y, labelColour);
  return b;
}

TEST(Bitmap, SavedPicturesReadBackPixelForPixel) {
  const std::string path = testing::TempDir() + "/roundtrip.bmp";
  Bitmap b(5, 3, 0x102030);  // 5 pixels: rows padded to four bytes
  b.setPixel(4, 0, 0xABCDEF);
  b.setPixel(0, 2, 0x010203);
  ASSERT_TRUE(b.save(path));
  Bitmap r;
  std::string error;
  ASSERT_TRUE(r.load(path, error)) << error;
  EXPECT_EQ(r.width(), 5);
  EXPECT_EQ(r.height(), 3);
  EXPECT_EQ(r.pixel(4, 0), 0xABCDEFu);
  EXPECT_EQ(r.pixel(0, 2), 0x010203u);
  EXPECT_EQ(r.pixel(2, 1), 0x102030u);
  EXPECT_EQ(r.pixel(9, 9), 0u) << "outside the picture reads black";
}

TEST(Bitmap, ReadsPalettedTopDownPictures) {
  // 2 x 2, 8 bits a pixel, top-down (negative height), two palette entries.
  std::vector<uint8_t> f(14 + 40 + 8 + 8, 0);
  auto put32 = [&f](size_t at, uint32_t v) {
    for (int i = 0; i < 4; ++i) f[at + size_t(i)] = uint8_t(v >> (8 * i));
  };
  f[0] = 'B', f[1] = 'M';
  put32(2, uint32_t(f.size()));
  put32(10, 14 + 40 + 8);
  put32(14, 40);
  put32(18, 2);
  put32(22, uint32_t(-2));
  f[26] = 1;
  f[28] = 8;
  put32(46, 2);
  put32(54, 0x00FF0000);  // entry 0: red (stored B, G, R, 0)
  put32(58, 0x000000FF);  // entry 1: blue
  f[62] = 1, f[63] = 0;   // top row: blue, red
  f[66] = 0, f[67] = 1;   // bottom row: red, blue
  const std::string path = testing::TempDir() + "/paletted.bmp";
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<char*>(f.data()), long(f.size()));
  Bitmap b;
  std::string error;
  ASSERT_TRUE(b.load(path, error)) << error;
  EXPECT_EQ(b.pixel(0, 0), 0x0000FFu);
  EXPECT_EQ(b.pixel(1, 0), 0xFF0000u);
  EXPECT_EQ(b.pixel(0, 1), 0xFF0000u);
}

TEST(Bitmap, BrokenFilesFailAndLeaveThePictureAsItWas) {
  const std::string path = testing::TempDir() + "/short.bmp";
  Bitmap good(4, 4, 0x112233);
  ASSERT_TRUE(good.save(path));
  std::filesystem::resize_file(path, 60);  // the header promises more than the file holds
  Bitmap b(1, 1, 0x445566);
  std::string error;
  EXPECT_FALSE(b.load(path, error));
  EXPECT_FALSE(error.empty());
  EXPECT_EQ(b.pixel(0, 0), 0x445566u);
  EXPECT_FALSE(b.load(testing::TempDir() + "/missing.bmp", error));
  std::ofstream(path, std::ios::binary) << "not a picture at all";
  EXPECT_FALSE(b.load(path, error));
}

TEST(SkinPieces, KnobsNameTheirColourAndShape) {
  EXPECT_EQ(look::knobRect(1), (PixelRect{769, 0, 22, 52}));
  EXPECT_EQ(look::knobRect(11), (PixelRect{769, 52, 22, 52}));
  EXPECT_EQ(look::knobRect(44), (PixelRect{835, 208, 22, 52}));
  for (int none : {0, 5, 10, 20, 45, 50, 51, -1}) EXPECT_EQ(look::knobRect(none).width, 0) << none;
  EXPECT_EQ(look::knobElements().size(), 20u);
}

TEST(SkinPieces, EveryPieceLiesInsideTheSmallestSkinAndNoneOverlaps) {
  std::vector<PixelRect> all;
  for (const auto& p : look::kFixedPieces) all.push_back(p.rect);
  for (int k : look::knobElements()) all.push_back(look::knobRect(k));
  all.push_back(look::kSMasterKnob);
  all.push_back(look::kXfaderKnob);
  all.push_back(look::kColourStrip);
  for (size_t i = 0; i < all.size(); ++i) {
    EXPECT_LE(all[i].right(), look::kMinSkinWidth) << i;
    EXPECT_LE(all[i].bottom(), look::kMinSkinHeight) << i;
    // The desk itself must stay clear of the parts sheet.
    EXPECT_GE(all[i].left, look::kDeskWidth) << i;
    for (size_t j = i + 1; j < all.size(); ++j)
      EXPECT_FALSE(overlap(all[i], all[j])) << i << " " << j;
  }
}

class LookTest : public test::ConsoleFixture {
 protected:
  std::string writeSkin(const std::string& name, uint32_t labelColour) {
    std::filesystem::create_directories(path("skins"));
    const std::string p = path("skins/" + name);
    EXPECT_TRUE(plainSkin(labelColour).save(p));
    return p;
  }
};

TEST_F(LookTest, EveryControlOfTheDeskLayoutIsAConsoleControl) {
  for (const look::DeskItem& it : look::deskLayout()) {
    if (it.control.empty() || it.kind == look::ItemKind::Player) continue;
    EXPECT_NE(console().registry.find(it.control), nullptr) << it.control;
    EXPECT_LE(it.rect.right(), look::kDeskWidth) << it.control;
    EXPECT_LE(it.rect.bottom(), look::kDeskHeight) << it.control;
  }
}

TEST_F(LookTest, ControlsOfTheDeskDoNotCoverEachOther) {
  std::vector<const look::DeskItem*> bound;
  for (const look::DeskItem& it : look::deskLayout())
    // A key's caption label lies on its key by design.
    if (!it.control.empty() && it.control.rfind("lbl", 0) != 0) bound.push_back(&it);
  for (size_t i = 0; i < bound.size(); ++i)
    for (size_t j = i + 1; j < bound.size(); ++j)
      EXPECT_FALSE(overlap(bound[i]->rect, bound[j]->rect))
          << bound[i]->control << " and " << bound[j]->control;
}

TEST_F(LookTest, StartUpReadsTheColoursOfTheChosenSkin) {
  const std::string skin = writeSkin("mine.bmp", 0x123456);
  std::ofstream(path("Quintara.INI")) << "[Setup]\r\nSkin=" << skin << "\r\n";
  console().start();
  EXPECT_EQ(console().look.skinPath(), skin);
  EXPECT_EQ(console().colors.LabelColor, 0x123456);
  EXPECT_EQ(console().colors.ValueColor, 0x040404);
  EXPECT_EQ(console().colors.BarColor, 0x090909);
  EXPECT_EQ(console().look.levelTextColor, 0x010101);
}

TEST_F(LookTest, AMissingChosenSkinIsReportedAndTheConsoleGoesOn) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\r\nSkin=" << path("nothere.bmp") << "\r\n";
  console().start();
  ASSERT_FALSE(dialogs.shown.empty());
  EXPECT_EQ(
      dialogs.shown.back().rfind("MSGBOX ERROR | Error loading file : " + path("nothere.bmp"), 0),
      0u);
  EXPECT_TRUE(form1().isVisible());
}

TEST_F(LookTest, ChangeBackgroundReskinsAndStoresTheChoice) {
  console().start();
  const int before = console().look.generation();
  form1().FaderCFG(7).mouseDown(MouseButton::Left);
  v().SubKnob[2] = 23;
  form1().Fader(5).knobPicture = "Knob(41)";  // as a submaster file leaves it
  form1().Flash(6).setPicture("imgFLASH");
  const std::string skin = writeSkin("new.bmp", 0xABCDEF);
  dialogs.queueAnswer(skin);
  form1().menu("mnuBackground").click();
  EXPECT_EQ(console().look.generation(), before + 1);
  EXPECT_EQ(console().colors.LabelColor, 0xABCDEF);
  EXPECT_EQ(console().settings.ini().read("Setup", "Skin", ""), skin);
  EXPECT_EQ(form1().Fader(5).knobPicture, "Knob(23)") << "the strips take SubKnob again";
  EXPECT_EQ(form1().Flash(6).picture(), "");
  EXPECT_EQ(form1().FaderCFG(7).picture(), "led_ON") << "the selection is lit in the new picture";
  EXPECT_TRUE(form1().isVisible());
}

TEST_F(LookTest, CancelledOrUnreadableBackgroundChangesNothing) {
  console().start();
  const std::string skinBefore = console().look.skinPath();
  const int before = console().look.generation();
  form1().menu("mnuBackground").click();  // no answer: cancelled
  std::ofstream(path("bad.bmp")) << "garbage";
  dialogs.queueAnswer(path("bad.bmp"));
  form1().menu("mnuBackground").click();
  EXPECT_EQ(console().look.generation(), before);
  EXPECT_EQ(console().look.skinPath(), skinBefore);
  EXPECT_EQ(console().settings.ini().read("Setup", "Skin", "none"), "none");
  EXPECT_EQ(dialogs.shown.back().rfind("MSGBOX ERROR | Error loading file : ", 0), 0u);
}

TEST_F(LookTest, ZoomIsKeptInTheSettingsAndIgnoredWithDefault) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\r\nZoom=1.75\r\n";
  console().start();
  EXPECT_DOUBLE_EQ(console().look.zoom(), 1.75);
  console().look.setZoom(9);  // beyond what any screen needs
  EXPECT_DOUBLE_EQ(console().look.zoom(), Look::kMaxZoom);
  EXPECT_EQ(console().settings.ini().read("Setup", "Zoom", ""), "4.00");
  console().look.setZoom(0);
  EXPECT_EQ(console().settings.ini().read("Setup", "Zoom", ""), "0");
}

TEST_F(LookTest, DefaultSwitchStartsWithAFittedZoom) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\r\nZoom=2\r\n";
  commandLine = "quintara -default";
  console().start();
  EXPECT_DOUBLE_EQ(console().look.zoom(), 0);
}

}  // namespace
}  // namespace q
