#include "engine/look/desk_layout.h"

#include <map>

namespace q::look {

namespace {

std::string indexedName(const std::string& base, int i) {
  return base + "(" + std::to_string(i) + ")";
}

class Builder {
 public:
  std::vector<DeskItem> items;

  DeskItem& add(std::string control, ItemKind kind, PixelRect r, std::string caption = {},
                Face face = Face::None) {
    DeskItem it;
    it.control = std::move(control);
    it.kind = kind;
    it.rect = r;
    it.caption = std::move(caption);
    it.face = face;
    items.push_back(std::move(it));
    return items.back();
  }
  DeskItem& panel(PixelRect r) { return add({}, ItemKind::Panel, r); }
  DeskItem& title(int x, int y, int w, std::string text) {
    DeskItem& t = add({}, ItemKind::Title, {x, y, w, 12}, std::move(text));
    t.align = Align::Left;
    t.bold = true;
    t.fontPx = 9;
    return t;
  }
  DeskItem& caption(PixelRect r, std::string text, Align a = Align::Center, int px = 8) {
    DeskItem& c = add({}, ItemKind::Caption, r, std::move(text));
    c.align = a;
    c.fontPx = px;
    return c;
  }
  DeskItem& key(std::string control, int x, int y, std::string text = {}) {
    DeskItem& k =
        add(std::move(control), ItemKind::Button, {x, y, 45, 29}, std::move(text), Face::LongKey);
    k.fontPx = 9;
    k.bold = true;
    return k;
  }
  DeskItem& label(std::string control, PixelRect r, int px, bool bold = false,
                  Align a = Align::Center) {
    DeskItem& l = add(std::move(control), ItemKind::Label, r);
    l.fontPx = px;
    l.bold = bold;
    l.align = a;
    return l;
  }
  DeskItem& text(std::string control, PixelRect r, int px, Align a = Align::Left) {
    DeskItem& t = add(std::move(control), ItemKind::TextBox, r);
    t.fontPx = px;
    t.align = a;
    return t;
  }
};

void liveDisplay(Builder& b) {
  b.panel({4, 4, 760, 56});
  b.add("Picture1", ItemKind::Picture, {8, 8, 752, 34});
  b.add("HScroll1", ItemKind::ScrollBar, {8, 44, 752, 12});
}

void strips(Builder& b) {
  b.panel({4, 64, 626, 340});
  for (int n = 3; n <= 22; ++n) {
    const int x = stripLeft(n);
    b.add(indexedName("FaderCFG", n), ItemKind::Button, {x + 2, 68, 26, 25}, {}, Face::Selector);
    b.caption({x, 94, 30, 11}, std::to_string(n - 2));
    b.text(indexedName("Slabel", n), {x, 106, 30, 16}, 8, Align::Left);
    b.add(indexedName("Fader", n), ItemKind::StripFader,
          {x + 4, 126, kStripTrackWidth, kStripTrackHeight});
    b.label(indexedName("SLevel", n), {x, 348, 30, 13}, 10, true);
    b.label(indexedName("FaderFunc", n), {x, 362, 30, 13}, 8);
    b.add(indexedName("Flash", n), ItemKind::Button, {x + 5, 378, 20, 21}, {}, Face::FlashKey);
  }
}

void masters(Builder& b) {
  b.panel({634, 64, 130, 340});
  b.title(640, 72, 50, "MASTERS");
  b.add("FaderCFG(1)", ItemKind::Button, {698, 68, 26, 25}, {}, Face::Selector);
  b.add("FaderCFG(2)", ItemKind::Button, {732, 68, 26, 25}, {}, Face::Selector);
  b.caption({694, 94, 34, 11}, "STAGE", Align::Center, 7);
  b.caption({728, 94, 34, 11}, "PROG", Align::Center, 7);
  b.caption({636, 109, 44, 11}, "GRAND", Align::Center, 8);
  b.caption({712, 109, 44, 11}, "X-FADE", Align::Center, 8);
  b.add("SMaster", ItemKind::MasterFader, {642, 125, kMasterTrackWidth, kMasterTrackHeight});
  b.add("Xfader", ItemKind::MasterFader, {719, 125, kMasterTrackWidth, kMasterTrackHeight});
  b.add("btnBlackOut", ItemKind::Button, {643, 358, 29, 31}, "B.O.", Face::SquareKey).bold = true;
  b.add("btnXfaderMode", ItemKind::Button, {720, 358, 29, 31}, "TIME", Face::SquareKey).bold = true;
}

void memories(Builder& b) {
  b.panel({4, 408, 300, 182});
  b.title(10, 412, 120, "MEMORY");
  const struct {
    const char* side;
    const char* caption;
    int y;
  } rows[] = {{"STAGE", "STAGE", 428}, {"PROG", "PROG", 460}};
  for (const auto& r : rows) {
    const std::string side = r.side;
    const std::string cap = side == "STAGE" ? "Stage" : "Prog";
    b.caption({10, r.y + 5, 42, 12}, r.caption, Align::Left, 9).bold = true;
    b.text(side + "Mem", {54, r.y, 36, 22}, 11, Align::Center);
    b.text(side + "Name", {94, r.y, 108, 22}, 11);
    b.key(cap + "MemLoad", 207, r.y - 3, "LOAD");
    b.key(cap + "MemSave", 255, r.y - 3, "SAVE");
  }
  b.caption({10, 496, 80, 12}, "NEXT ROW", Align::Left, 8);
  b.label("NextCue", {94, 493, 50, 18}, 13, true, Align::Left);
  b.title(10, 516, 120, "COMMAND");
  b.text("Direct", {10, 531, 240, 24}, 13);
  b.key("CmdDirect", 255, 528, "PAD");
  b.caption({10, 561, 290, 11}, "channels a level:  1/10aff   3+5a50   12a0", Align::Left, 8);
}

void chasersAndPlayers(Builder& b) {
  b.panel({308, 408, 210, 182});
  b.title(314, 412, 120, "CHASERS");
  for (int k = 0; k < 2; ++k) {
    const int y = 427 + 34 * k;
    b.key(indexedName("FXbutton", k), 314, y, "FX " + std::to_string(k + 1));
    b.caption({366, y + 1, 44, 10}, "STEP", Align::Center, 7);
    b.label(indexedName("FxStep", k), {366, y + 11, 44, 17}, 13, true);
    b.key(indexedName("btnFXConfig", k), 466, y, "EDIT");
  }
  b.title(314, 498, 120, "PLAYERS");
  for (int k = 0; k < 2; ++k) {
    const int y = 513 + 34 * k;
    b.caption({312, y + 8, 12, 12}, std::to_string(k + 1), Align::Center, 9).bold = true;
    b.key(indexedName("MpLoad", k), 326, y, "LOAD");
    b.key(indexedName("MpPlay", k), 374, y, "PLAY");
    b.add(indexedName("WMP", k), ItemKind::Player, {424, y + 3, 88, 22}).fontPx = 8;
  }
}

void playback(Builder& b) {
  b.panel({522, 408, 242, 182});
  b.title(528, 412, 120, "PLAYBACK");
  b.add("Led_PAUSE", ItemKind::Lamp, {530, 426, 45, 9}, {}, Face::LedBar);
  const struct {
    const char* button;
    const char* label;
    const char* caption;
    int x;
  } keys[] = {{"PauseButton", "lblPAUSE", "PAUSE", 530},
              {"BackButton", "lblBack", "BACK", 580},
              {"CutButton", "lblCut", "CUT", 630}};
  for (const auto& k : keys) {
    b.key(k.button, k.x, 437);
    b.label(k.label, {k.x, 437, 45, 29}, 10, true).caption = k.caption;
  }
  b.add("Led_GO", ItemKind::Lamp, {708, 424, 45, 9}, {}, Face::LedBar);
  b.add("GOButton", ItemKind::Button, {708, 435, 45, 35}, "GO", Face::GoKey).bold = true;
  b.add("picTimes", ItemKind::Picture, {530, 478, 226, 44});
  const char* boxes[] = {"WupTime", "UpTime", "WdownTime", "DownTime"};
  const char* captions[] = {"WAIT UP", "UP", "WAIT DN", "DOWN"};
  for (int i = 0; i < 4; ++i) {
    const int x = 530 + 58 * i;
    b.caption({x, 526, 52, 10}, captions[i], Align::Center, 7);
    b.text(boxes[i], {x, 537, 52, 20}, 11, Align::Center);
  }
  b.caption({530, 562, 226, 10}, "times in tenths of a second", Align::Center, 7);
}

}  // namespace

int stripLeft(int strip) { return 8 + 31 * (strip - 3); }

const std::vector<DeskItem>& deskLayout() {
  static const std::vector<DeskItem> layout = [] {
    Builder b;
    liveDisplay(b);
    strips(b);
    masters(b);
    memories(b);
    chasersAndPlayers(b);
    playback(b);
    return std::move(b.items);
  }();
  return layout;
}

const DeskItem* findItem(const std::string& control) {
  static const std::map<std::string, const DeskItem*> index = [] {
    std::map<std::string, const DeskItem*> m;
    for (const DeskItem& it : deskLayout())
      if (!it.control.empty()) m[it.control] = &it;
    return m;
  }();
  auto it = index.find(control);
  return it == index.end() ? nullptr : it->second;
}

}  // namespace q::look
