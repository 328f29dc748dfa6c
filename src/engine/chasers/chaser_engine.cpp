#include "engine/chasers/chaser_engine.h"

#include <string>

#include "engine/chasers/chaser_editor.h"
#include "engine/core/console.h"

namespace q {

namespace {
// The pointer as a number. The caption is written only by the console, but a
// file or the editor may leave text that is no number: that counts as step 0,
// so the next tick of an ascending chaser goes to step 1.
long stepOf(const Label& caption) {
  auto n = parseNumber(caption.caption());
  if (!n || *n < -2147483648.0 || *n > 2147483647.0) return 0;
  return roundHalfEven(*n);
}
}  // namespace

ChaserEngine::ChaserEngine(Console& c) : c_(c) {
  for (int i = 0; i < 2; ++i) {
    wire(i);
    c_.windows.setFactory(ChaserEditor::windowName(i),
                          [this, i] { return std::make_unique<ChaserEditor>(c_, i); });
  }
}

void ChaserEngine::openEditor(int i) {
  c_.windows.load(ChaserEditor::windowName(i == 0 ? 0 : 1)).show();
}

void ChaserEngine::wire(int i) {
  MainWindow& f = c_.form1;
  f.FXTimer[i]->onTick = [this, i] { step(i); };
  Lamp& button = *f.FXbutton[i];
  button.onMouseDown = [&button](MouseButton) { button.setPicture("ImgLedPush"); };
  button.onMouseUp = [this, i](MouseButton) { runToggle(i); };
  Lamp& config = f.add<Lamp>(indexed("btnFXConfig", i));
  config.onMouseDown = [&config](MouseButton) { config.setPicture("Llarg2"); };
  config.onMouseUp = [&config](MouseButton) { config.setPicture(""); };
  config.onClick = [this, i] { openEditor(i); };
}

void ChaserEngine::step(int i) {
  Variables& v = c_.v;
  Label& pointer = *c_.form1.FxStep[i];
  const long count = v.FXStepCount[i];
  if (v.FXRandom[i] != kFalse) {
    // A random chaser never shows the same step twice in a row. With fewer
    // than two steps there is no other step to go to: it stays on step 1
    // rather than drawing for ever.
    if (count < 2) {
      pointer.setCaption("1");
    } else {
      const long now = stepOf(pointer);
      long r;
      do r = random_.between(1, int32_t(count));
      while (r == now);
      pointer.setCaption(std::to_string(r));
    }
  } else {
    // Strictly greater: with n steps the pointer visits 1..n, then 1. A
    // pointer left beyond the end by a shorter chaser also wraps to 1.
    const long next = stepOf(pointer) + 1;
    pointer.setCaption(next > count ? "1" : std::to_string(next));
  }
  v.MixDirty = kTrue;
}

void ChaserEngine::runToggle(int i) {
  Lamp& button = *c_.form1.FXbutton[i];
  button.setPicture("");
  setRunning(i, !running(i));
}

void ChaserEngine::setRunning(int i, bool on) {
  // The step pointer is left alone: a chaser resumes where it stopped, and
  // its first move comes one whole interval after the start.
  c_.form1.FXTimer[i]->setRunning(on);
  c_.form1.FXbutton[i]->setPicture(on ? "ImgLedOn" : "");
  c_.v.MixDirty = kTrue;
}

bool ChaserEngine::running(int i) const { return c_.form1.FXTimer[i]->isEnabled(); }

int ChaserEngine::currentStep(int i) const { return int(stepOf(*c_.form1.FxStep[i])); }

void ChaserEngine::setSpeed(int i, int position) {
  c_.form1.FXTimer[i]->setInterval(intervalFor(position));
}

}  // namespace q
