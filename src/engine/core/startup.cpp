// Start-up, shut-down and reset of the console.

#include "engine/core/console.h"

namespace q {

void Console::start() {}
bool Console::queryClose() { return true; }
void Console::unload() {}

}  // namespace q
