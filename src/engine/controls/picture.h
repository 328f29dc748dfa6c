#pragma once
// A drawing surface (the live display strip, the times graph). The engine
// draws into it as a list of items; the desk paints the items and tests read them.

#include <vector>

#include "engine/controls/control.h"

namespace q {

struct DrawItem {
  enum class Kind { Text, Box, Line };
  Kind kind = Kind::Text;
  double x = 0, y = 0;  // text: top-left; box: one corner; line: start
  double w = 0, h = 0;  // box: signed width and height (negative h grows upward); line: end offset
  std::string text;
  int color = 0;  // 0xRRGGBB
  bool filled = true;
  bool operator==(const DrawItem&) const = default;
};

class Picture : public Control {
 public:
  explicit Picture(std::string name) : Control(std::move(name)) {}

  const std::vector<DrawItem>& items() const { return items_; }
  void cls() { items_.clear(); }
  void print(double x, double y, std::string text, int color) {
    items_.push_back({DrawItem::Kind::Text, x, y, 0, 0, std::move(text), color, false});
  }
  void box(double x, double y, double w, double h, int color, bool filled = true) {
    items_.push_back({DrawItem::Kind::Box, x, y, w, h, {}, color, filled});
  }
  void line(double x1, double y1, double x2, double y2, int color) {
    items_.push_back({DrawItem::Kind::Line, x1, y1, x2 - x1, y2 - y1, {}, color, false});
  }
  // Tells views the drawing is complete; called once after a redraw. A
  // drawing the same as the one last shown costs the desk no repaint (a
  // running chaser redraws the live display at every step, mostly the same).
  void refresh() {
    if (items_ == shown_ && backColor == shownBack_) return;
    shown_ = items_;
    shownBack_ = backColor;
    notifyView();
  }

  int width = 0, height = 0;  // the surface's size in its own units
  int backColor = 0;

  std::string value() const override { return std::to_string(items_.size()); }

 private:
  std::vector<DrawItem> items_;
  std::vector<DrawItem> shown_;
  int shownBack_ = -1;
};

}  // namespace q
