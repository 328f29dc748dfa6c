#include "engine/playback/fade_times.h"

#include "engine/core/console.h"

namespace q {

namespace {
constexpr int kEnter = 13;
}

FadeTimes::FadeTimes(Console& c)
    : WupTime(c.form1.add<TextBox>("WupTime", "0")),
      UpTime(c.form1.add<TextBox>("UpTime", "0")),
      WdownTime(c.form1.add<TextBox>("WdownTime", "0")),
      DownTime(c.form1.add<TextBox>("DownTime", "0")),
      c_(c) {
  for (TextBox* box : {&WupTime, &UpTime, &WdownTime, &DownTime})
    box->onKeyPress = [this, box](int& key) {
      if (key == kEnter) enter(*box);
    };
}

double FadeTimes::timeOf(const TextBox& box) { return parseNumber(box.text()).value_or(0.0); }

Times FadeTimes::read() const {
  return {timeOf(WupTime), timeOf(UpTime), timeOf(WdownTime), timeOf(DownTime)};
}

void FadeTimes::enter(TextBox& box) {
  auto n = parseNumber(box.text());
  if (!n || *n < 0) box.setText("0");
  c_.timesGraph.paint();
}

}  // namespace q
