#include "engine/look/look.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "engine/core/console.h"
#include "engine/look/skin_pieces.h"

#ifndef QUINTARA_SHARE_SKINS
#define QUINTARA_SHARE_SKINS ""
#endif
#ifndef QUINTARA_SOURCE_SKINS
#define QUINTARA_SOURCE_SKINS ""
#endif

namespace q {

namespace {
bool fileExists(const std::string& p) {
  std::error_code ec;
  return !p.empty() && std::filesystem::is_regular_file(p, ec);
}
}  // namespace

Look::Look(Console& c) : c_(c) {
  for (const char* dir : {QUINTARA_SHARE_SKINS, QUINTARA_SOURCE_SKINS})
    if (*dir) shippedSkinDirs.emplace_back(dir);
  c.loadBackground = [this] { loadBackground(); };
  c.skinMe = [this] { skinMe(); };
  c.form1.menu("mnuBackground").onClick = [this] { changeBackground(); };
  c.names.add("Skin", [this] { return skinPath_; });
}

void Look::setPicture(SkinPicture* picture) { picture_ = picture ? picture : &plain_; }

std::string Look::findDefaultSkin() const {
  const std::string name = std::filesystem::path(c_.settings.defaultSkinFile()).filename();
  for (const std::string& dir : shippedSkinDirs) {
    const std::string p = (std::filesystem::path(dir) / name).string();
    if (fileExists(p)) return p;
  }
  return {};
}

bool Look::loadPicture(const std::string& path, bool quiet) {
  std::string error;
  if (picture_->load(path, error)) {
    skinPath_ = path;
    return true;
  }
  if (!quiet)
    c_.dialogs().msgBox("ERROR", "Error loading file : " + path + ", " + error, MsgButtons::OK,
                        MsgIcon::Critical);
  return false;
}

void Look::loadBackground() {
  if (!c_.hasSwitch("-default")) {
    const double z = std::atof(c_.settings.ini().read("Setup", "Zoom", "0").c_str());
    zoom_ = z >= kMinZoom && z <= kMaxZoom ? z : 0;
  }
  const std::string& wanted = c_.settings.skinFile;
  const bool isDefault = wanted == c_.settings.defaultSkinFile();
  if (fileExists(wanted) || !isDefault) {
    // A skin the operator chose is reported when it fails; the console goes on without it.
    if (loadPicture(wanted, false)) return;
  }
  const std::string shipped = findDefaultSkin();
  if (!shipped.empty()) loadPicture(shipped, true);
}

void Look::readColours() {
  using look::SkinColour;
  auto at = [this](SkinColour c) {
    const look::PixelPoint p = look::colourPixel(c);
    return int(picture_->pixel(p.x, p.y) & 0xFFFFFF);
  };
  levelTextColor = at(SkinColour::LevelText);
  c_.colors.SkinBackColor = at(SkinColour::SkinBack);
  buttonTextColor = at(SkinColour::ButtonText);
  c_.colors.ValueColor = at(SkinColour::Value);
  c_.colors.LabelColor = at(SkinColour::Label);
  chaserStepColor = at(SkinColour::ChaserStep);
  c_.colors.TimesUpColor = at(SkinColour::TimesUp);
  c_.colors.TimesDownColor = at(SkinColour::TimesDown);
  c_.colors.BarColor = at(SkinColour::Bar);
}

void Look::skinMe() {
  MainWindow& f = c_.form1;
  f.setVisible(false);
  ++generation_;
  // The selector's light is a piece of the old picture: press it again.
  const int col = c_.v.EditColumn;
  if (col >= 1 && col <= kLastStrip) f.FaderCFG(col).mouseDown(MouseButton::Left);
  for (int n = kFirstStrip; n <= kLastStrip; ++n) {
    // The strips take their knob from SubKnob again, whatever a file put there.
    const int knob = c_.v.SubKnob[n - kFirstStrip];
    if (look::isKnobElement(knob)) f.Fader(n).knobPicture = indexed("Knob", knob);
    f.Fader(n).setVisible(true);
    f.Flash(n).setPicture("");
  }
  if (!skinPath_.empty()) readColours();
  // The graph is drawn in the colours of the strip.
  c_.timesGraph.paint();
  notify();
  f.setVisible(true);
}

void Look::changeBackground() {
  CommonDialog& d = c_.CDialog1;
  d.FileName.clear();
  d.Filter = "Windows bitmap (*.bmp)|*.bmp";
  d.InitDir = c_.homeDir() + "/skins/";
  d.ShowOpen();
  const std::string path = d.FileName;
  if (path.empty()) return;
  if (!loadPicture(path, false)) return;
  skinMe();
  c_.settings.skinFile = path;
  c_.settings.ini().write("Setup", "Skin", path);
}

void Look::setZoom(double z) {
  if (z != 0) z = std::clamp(z, kMinZoom, kMaxZoom);
  if (z == zoom_) return;
  zoom_ = z;
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.2f", z);
  c_.settings.ini().write("Setup", "Zoom", z == 0 ? "0" : buf);
  notify();
}

int Look::addListener(std::function<void()> l) {
  listeners_.emplace_back(nextListener_, std::move(l));
  return nextListener_++;
}

void Look::removeListener(int id) {
  std::erase_if(listeners_, [id](const auto& p) { return p.first == id; });
}

void Look::notify() {
  for (size_t i = 0; i < listeners_.size(); ++i) listeners_[i].second();
}

}  // namespace q
