#include "gui/desk/desk_windows.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QSysInfo>
#include <QThread>
#include <QUrl>

#include "engine/core/console.h"
#include "gui/desk/program_pages.h"
#include "gui/views/window_host.h"
#include "gui/windows/window_builders.h"

namespace q::gui {

namespace {
// The machine as the console runs on it: what an operator reads out to support.
QString systemInformation() {
  return QObject::tr("System: %1\nKernel: %2 %3\nProcessor: %4, %5 threads\nHost: %6")
      .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
           QSysInfo::currentCpuArchitecture())
      .arg(QThread::idealThreadCount())
      .arg(QSysInfo::machineHostName());
}
}  // namespace

void addDeskWindows(WindowHost& host) {
  host.addBuilder("Config", buildFaderConfigWindow);
  host.addBuilder("MIDISetupForm", buildMidiSetupWindow);
  host.addBuilder("OscSetup", buildOscSetupWindow);
  host.addBuilder("Tecles", buildKeypadWindow);
  host.addBuilder("Refreshrate", buildInterfaceSetupWindow);
  host.addBuilder("frmAbout", buildAboutWindow);
  host.addBuilder("frmSparseMatrix", buildMatrixWindow);
  host.addBuilder("frmPatch", buildPatchWindow);
  host.addBuilder("frmInvPatch", buildInvPatchWindow);
  host.addBuilder("Canals", buildChannelsWindow);
  host.addBuilder("Simple", buildSimpleWindow);
  host.addBuilder("Mobile", buildXYWindow);
  host.addBuilder("FX1Config", buildChaserEditorWindow);
  host.addBuilder("FX2Config", buildChaserEditorWindow);
  host.addBuilder("Cuewin", buildCueListWindow);
  host.addBuilder("CueProps", buildCuePropertiesWindow);
  host.addBuilder("SpCue", buildSpecialCueWindow);

  Console& c = host.console();
  // Links open through the desktop's own handler.
  c.interfaces.openLink = [](const std::string& url) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
  };
  c.onOpenDocumentation = [] {
    const QString page = documentationPage();
    if (!page.isEmpty()) QDesktopServices::openUrl(QUrl(page));
  };
  QWidget* parent = host.mainWindow();
  c.onSystemInformation = [parent] {
    QMessageBox::information(parent, QObject::tr("System Info"), systemInformation());
  };
}

}  // namespace q::gui
