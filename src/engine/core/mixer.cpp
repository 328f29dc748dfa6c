#include "engine/core/mixer.h"

#include "engine/core/console.h"

namespace q {

void Mixer::MixOutput() { c_.v.MixDirty = kFalse; }

}  // namespace q
