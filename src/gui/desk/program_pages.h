#pragma once
// The program's version as built, and where its documentation lies.

#include <QString>

namespace q::gui {

QString programVersion();
// The console's documentation: installed beside the shared data, or in the
// source tree of a build that was never installed; "" when neither is there.
QString documentationPage();

}  // namespace q::gui
