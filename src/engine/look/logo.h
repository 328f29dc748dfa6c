#pragma once
// The console's logo: a row of lit strip lamps over the name in block
// letters. The cue list window shows it and its printout carries it at the
// top right of the page.

#include "engine/look/bitmap.h"

namespace q::look {

// onDark: light letters for a dark window; otherwise dark letters on white paper.
Bitmap consoleLogo(bool onDark);

}  // namespace q::look
