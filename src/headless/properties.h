#pragma once
// What `get` reads besides the console's named values and a control's value:
// a control's properties (`Cuewin.mnuSort.Caption`), whether a window is
// shown (`Tecles.Visible`), and the two media players (`WMP(0).Volume`).

#include <optional>
#include <string>

namespace q {

class Console;
class Control;

// `CONTROL.PROPERTY`; a ScriptError naming expr when the control has no such property.
std::string controlProperty(const Control& ctl, const std::string& prop, const std::string& expr);

// `WINDOW.Visible`: -1 while the window is loaded and shown, 0 otherwise.
// Asking never loads the window. nullopt when expr is no window's Visible.
std::optional<std::string> windowVisible(Console& c, const std::string& expr);

// `WMP(k).PROPERTY`, each in the player's own units; nullopt when expr names
// no player, a ScriptError for a player's unknown property.
std::optional<std::string> playerProperty(Console& c, const std::string& expr);

}  // namespace q
