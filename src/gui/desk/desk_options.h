#pragma once
// The desk's command line. "-nosplash" and "-default" are not parsed here:
// the console searches the whole command line for them.

#include <string>

namespace q::gui {

struct DeskOptions {
  std::string file;        // a show, cue list, submaster or channels file to open after start-up
  std::string home;        // the program's folder; empty for the usual one
  std::string listen;      // "PORT" or "ADDRESS:PORT" of the remote port; empty for none
  std::string web;         // "PORT" or "ADDRESS:PORT" of the web remote; empty: the settings
  std::string screenshot;  // render the desk to this PNG after start-up and end
  std::string window;  // with --screenshot: open this window as the operator would and render it
  double zoom = 0;     // 0: the setting, or fit the screen
  std::string commandLine;
  std::string error;
};

DeskOptions parseDeskOptions(int argc, char** argv);

}  // namespace q::gui
