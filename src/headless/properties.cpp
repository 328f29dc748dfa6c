#include "headless/properties.h"

#include "engine/core/console.h"
#include "engine/core/value.h"
#include "headless/words.h"

namespace q {

namespace {
std::string vb(bool b) { return b ? "-1" : "0"; }

[[noreturn]] void noSuchProperty(const std::string& owner, const std::string& prop,
                                 const std::string& expr) {
  throw ScriptError("unknown name " + quoted(expr) + " (" + owner + " has no " + clipped(prop, 64) +
                    ")");
}
}  // namespace

std::string controlProperty(const Control& ctl, const std::string& prop, const std::string& expr) {
  if (prop == "Enabled") return vb(ctl.enabled());
  if (prop == "Visible") return vb(ctl.visible());
  if (prop == "Value") return ctl.value();
  if (prop == "Caption") {
    if (const std::string* caption = ctl.captionText()) return *caption;
  } else if (prop == "Text") {
    if (auto* t = dynamic_cast<const TextBox*>(&ctl)) return t->text();
    if (auto* l = dynamic_cast<const ListBox*>(&ctl)) return l->text();
  } else if (prop == "Interval") {
    if (auto* t = dynamic_cast<const Timer*>(&ctl)) return std::to_string(t->interval());
  } else if (prop == "Checked") {
    if (auto* m = dynamic_cast<const MenuItem*>(&ctl)) return vb(m->checked());
  } else if (prop == "ListCount") {
    if (auto* l = dynamic_cast<const ListBox*>(&ctl)) return std::to_string(l->count());
  } else if (prop == "Picture") {
    if (auto* l = dynamic_cast<const Lamp*>(&ctl)) return l->picture();
  }
  noSuchProperty(ctl.name(), prop, expr);
}

std::optional<std::string> windowVisible(Console& c, const std::string& expr) {
  const size_t dot = expr.find('.');
  if (dot == std::string::npos || expr.compare(dot, std::string::npos, ".Visible") != 0)
    return std::nullopt;
  const std::string name = expr.substr(0, dot);
  if (name == c.form1.name()) return vb(c.form1.isVisible());
  if (!WindowCatalogue::entry(name)) return std::nullopt;
  const Window* w = c.windows.find(name);
  return vb(w && w->isVisible());
}

std::optional<std::string> playerProperty(Console& c, const std::string& expr) {
  if (expr.size() < 8 || expr.compare(0, 4, "WMP(") != 0 || expr.compare(5, 2, ").") != 0)
    return std::nullopt;
  if (expr[4] != '0' && expr[4] != '1') return std::nullopt;
  const MediaPlayer& p = c.WMP(expr[4] - '0');
  const std::string prop = expr.substr(7);
  if (prop == "FileName") return p.fileName();
  if (prop == "Volume") return std::to_string(p.volume());
  if (prop == "Balance") return std::to_string(p.balance());
  if (prop == "Rate") return toText(Value(p.rate()));
  if (prop == "Visible") return vb(p.visible());
  if (prop == "Ready") return vb(p.ready());
  if (prop == "PlayState") return std::to_string(p.playState());
  noSuchProperty(expr.substr(0, 6), prop, expr);
}

}  // namespace q
