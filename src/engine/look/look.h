#pragma once
// The look of the console: the skin picture on the main window, the pieces
// cut from it (SkinMe), the colours read from its colour strip, the choice
// of another background, and the desk's zoom. The engine keeps the order of
// things and the colours; the desk does the pixel work when told.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/look/bitmap.h"

namespace q {

class Console;

// The main window's picture as the look reads it. The desk loads it with Qt
// (any format Qt reads); without a desk a plain bitmap reader serves.
class SkinPicture {
 public:
  virtual ~SkinPicture() = default;
  // Loads the file. False with a reason when it can't be read; the old picture stays.
  virtual bool load(const std::string& path, std::string& error) = 0;
  // 0xRRGGBB; outside the picture, black.
  virtual uint32_t pixel(int x, int y) const = 0;
};

class BitmapSkinPicture : public SkinPicture {
 public:
  bool load(const std::string& path, std::string& error) override {
    return bitmap.load(path, error);
  }
  uint32_t pixel(int x, int y) const override { return bitmap.pixel(x, y); }
  look::Bitmap bitmap;
};

class Look {
 public:
  explicit Look(Console& c);

  // The desk's picture loader; null goes back to the plain bitmap reader.
  void setPicture(SkinPicture* picture);

  // Start-up: loads the background named by the settings. A default skin that
  // isn't there is looked for where the program is installed; without any,
  // the desk keeps its plain look and says nothing.
  void loadBackground();
  // Rebuilds the look of the main window from its picture.
  void skinMe();
  // mnuBackground: choose a bitmap, skin with it, remember it.
  void changeBackground();

  // The file now on the window; empty when none could be loaded.
  const std::string& skinPath() const { return skinPath_; }
  // Counts the rebuilds, so views know their pieces are stale.
  int generation() const { return generation_; }

  // Colours of the strip that only the desk paints with (the others are in Console::colors).
  int levelTextColor = 0xF2F2F2;
  int buttonTextColor = 0xD8DCE4;
  int chaserStepColor = 0x7FE7FF;

  // Views: told after each rebuild, before the main window shows again.
  int addListener(std::function<void()> l);
  void removeListener(int id);

  // Folders searched for a default skin that is missing from the program's folder.
  std::vector<std::string> shippedSkinDirs;

  // The desk's zoom: 0 means fit to the screen. Kept as Setup/Zoom.
  double zoom() const { return zoom_; }
  void setZoom(double z);
  static constexpr double kMinZoom = 0.5;
  static constexpr double kMaxZoom = 4.0;

 private:
  bool loadPicture(const std::string& path, bool quiet);
  std::string findDefaultSkin() const;
  void readColours();
  void notify();

  Console& c_;
  BitmapSkinPicture plain_;
  SkinPicture* picture_ = &plain_;
  std::string skinPath_;
  int generation_ = 0;
  double zoom_ = 0;
  std::vector<std::pair<int, std::function<void()>>> listeners_;
  int nextListener_ = 1;
};

}  // namespace q
