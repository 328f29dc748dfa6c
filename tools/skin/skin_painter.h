#pragma once
// The drawing vocabulary of the default skin: panels, keys, lamps, fader
// slots and knobs, in one dark palette that stays legible in a dark theatre.

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>

#include "engine/look/desk_layout.h"

namespace skin {

namespace palette {
inline const QColor desk{0x0E, 0x10, 0x13};
inline const QColor panel{0x1A, 0x1D, 0x22};
inline const QColor panelEdge{0x2C, 0x31, 0x39};
inline const QColor panelLight{0x25, 0x29, 0x30};
inline const QColor title{0x8A, 0x94, 0xA3};
inline const QColor caption{0x6E, 0x77, 0x84};
inline const QColor well{0x08, 0x0A, 0x0C};
inline const QColor wellEdge{0x2A, 0x2F, 0x37};
inline const QColor groove{0x03, 0x04, 0x05};
inline const QColor tick{0x3C, 0x42, 0x4C};
inline const QColor tickMajor{0x66, 0x6F, 0x7C};
inline const QColor keyTop{0x33, 0x39, 0x42};
inline const QColor keyBottom{0x22, 0x26, 0x2C};
inline const QColor keyEdge{0x44, 0x4B, 0x56};
inline const QColor amber{0xFF, 0xB4, 0x20};
inline const QColor green{0x36, 0xE0, 0x6E};
inline const QColor red{0xE5, 0x3B, 0x3B};
inline const QColor blue{0x3C, 0x8C, 0xF0};
}  // namespace palette

QRectF toRect(const q::look::PixelRect& r);

void fillPanel(QPainter& p, const QRectF& r);
void drawText(QPainter& p, const QRectF& r, const QString& text, int px, bool bold,
              q::look::Align align, const QColor& colour);
void drawWell(QPainter& p, const QRectF& r);

enum class KeyState { Unlit, Pressed, Held, Lit };
void drawLongKey(QPainter& p, const QRectF& r, KeyState s);
void drawGoKey(QPainter& p, const QRectF& r, bool lit);
void drawSquareKey(QPainter& p, const QRectF& r, const QString& text, const QColor& hue, bool lit);
void drawSelector(QPainter& p, const QRectF& r, bool lit);
void drawFlashKey(QPainter& p, const QRectF& r, bool pressed);
void drawLedBar(QPainter& p, const QRectF& r, bool lit);

// A fader's slot: the groove the knob runs in, drawn where the track is cut.
void drawSlot(QPainter& p, const QRectF& r, int knobHeight);
// Scale marks beside a slot, every tenth of the travel; side -1 left, +1 right.
void drawScale(QPainter& p, const QRectF& slot, int knobHeight, int side, bool numbers);

// A strip knob: colour row 0..4, shape 1..4.
void drawStripKnob(QPainter& p, const QRectF& r, int colour, int shape);
void drawMasterKnob(QPainter& p, const QRectF& r, const QColor& cap, const QColor& line);

}  // namespace skin
