#pragma once
// quintara --headless: the console without windows, driven by the command language.

namespace q {

class Printer;

// printer: where the cue list prints (the PDF writer when the program has
// one); null prints nothing and says so.
int runHeadless(int argc, char** argv, Printer* printer = nullptr);

}  // namespace q
