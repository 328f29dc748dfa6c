#pragma once
// Where the look of the desk lies on the skin bitmap. The skin is at once the
// main window's background and a sheet of spare parts: the right-hand part
// holds the lit and pressed button images, the fader knobs and a strip of
// pixels that fixes the text colours. Every skin, drawn by us or by a user,
// must put these pieces at exactly these places.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace q::look {

struct PixelRect {
  int left = 0, top = 0, width = 0, height = 0;
  int right() const { return left + width; }
  int bottom() const { return top + height; }
  bool operator==(const PixelRect&) const = default;
};

struct Piece {
  std::string_view name;
  PixelRect rect;
};

// A skin smaller than this gives blank pieces (nobody checks).
inline constexpr int kMinSkinWidth = 857;
inline constexpr int kMinSkinHeight = 443;

// The button and lamp pictures, in the order the main window cuts them.
inline constexpr std::array<Piece, 9> kFixedPieces{{
    {"Llarg2", {769, 312, 45, 29}},         // a long button pressed
    {"ImgLedPush", {769, 376, 45, 29}},     // button held
    {"ImgLedOn", {769, 405, 45, 29}},       // button lit
    {"imgGo", {769, 341, 45, 35}},          // the GO button lit
    {"imgBO", {814, 312, 29, 31}},          // blackout lit
    {"imgXfaderMode", {814, 343, 29, 31}},  // crossfader mode lit
    {"led_ON", {831, 260, 26, 25}},         // column selector lit
    {"Led_On2", {769, 434, 45, 9}},         // small bar lit
    {"imgFLASH", {831, 285, 20, 21}},       // flash key pressed
}};

// The rectangle of a fixed piece by its picture name; an empty rect for an unknown name.
PixelRect pieceRect(std::string_view name);

// Knobs of the two masters (also used by the chaser editors' scrollers).
inline constexpr PixelRect kSMasterKnob{800, 260, 31, 52};
inline constexpr PixelRect kXfaderKnob{769, 260, 31, 52};

// Tracks are not pieces: each fader's track is the skin under the fader.
inline constexpr int kStripTrackWidth = 22;
inline constexpr int kStripTrackHeight = 220;
inline constexpr int kMasterTrackWidth = 31;
inline constexpr int kMasterTrackHeight = 222;

// The strips' knobs: a grid of 4 shapes by 5 colours. Element 10 * colour +
// shape + 1 lies at column `shape`, row `colour`, so a strip's look value
// (ten times its colour plus its shape) names its knob directly.
inline constexpr int kKnobWidth = 22;
inline constexpr int kKnobHeight = 52;
inline constexpr int kKnobColours = 5;
inline constexpr int kKnobShapes = 4;
bool isKnobElement(int element);
// The rectangle of a knob element; an empty rect when the element has no picture.
PixelRect knobRect(int element);
// All elements in the order they are cut: 1..4, 11..14, ..., 41..44.
std::vector<int> knobElements();

// The colour strip: nine colours read from row 1, columns 1 to 9, one pixel each.
inline constexpr PixelRect kColourStrip{831, 306, 20, 6};
enum class SkinColour {
  LevelText = 1,  // the strips' level percentages
  SkinBack,       // background of the secondary windows
  ButtonText,     // the captions on the transport buttons
  Value,          // level texts of the live display
  Label,          // channel numbers of the live display
  ChaserStep,     // the chasers' step numbers
  TimesUp,        // the rise bar of the times graph
  TimesDown,      // the fall bar of the times graph
  Bar,            // the live display's bars
};
inline constexpr int kSkinColourCount = 9;
struct PixelPoint {
  int x = 0, y = 0;
};
PixelPoint colourPixel(SkinColour c);

}  // namespace q::look
