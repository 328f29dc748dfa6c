#include "engine/playback/times_graph.h"

#include "engine/core/console.h"

namespace q {

std::string LineShape::value() const { return toText(Value{x1}); }

TimesGraph::TimesGraph(Console& c)
    : picTimes(c.form1.add<Picture>("picTimes")),
      PosLine(c.form1.add<LineShape>("PosLine")),
      c_(c) {
  PosLine.y2 = kScaleHeight;
  picTimes.height = kScaleHeight;
  c.names.add("picTimes.ScaleWidth", [this] { return toText(Value{double(scaleWidth_)}); });
  c.names.add("PosLine.X1", [this] { return toText(Value{PosLine.x1}); });
  c.names.add("PosLine.X2", [this] { return toText(Value{PosLine.x2}); });
  // The graph is exposed when the desk first shows, with the boxes at "0".
  paint();
}

void TimesGraph::paint() {
  const Times t = c_.fadeTimes.read();
  const double rise = t.waitUp + t.up;
  const double fall = t.waitDown + t.down;
  if (t.waitUp + t.up + t.waitDown + t.down > 0)
    scaleWidth_ = float(fall < rise ? rise : fall);
  else
    scaleWidth_ = 1;
  picTimes.cls();
  // Both bars are placed from the drawing position 0,0: upper the fall of
  // Stage (y 1..3), lower the rise of Prog (y 4..6).
  picTimes.box(t.waitDown, 1, t.down, 2, c_.colors.TimesDownColor);
  picTimes.box(t.waitUp, 4, t.up, 2, c_.colors.TimesUpColor);
  picTimes.refresh();
}

}  // namespace q
