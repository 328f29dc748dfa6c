#pragma once
// quintara --headless: the console without windows, driven by the command language.

namespace q {

int runHeadless(int argc, char** argv);

}  // namespace q
