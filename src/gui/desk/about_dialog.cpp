#include "gui/desk/about_dialog.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSysInfo>
#include <QThread>
#include <QUrl>
#include <QVBoxLayout>

#include "platform/program_folder.h"

#ifndef QUINTARA_VERSION
#define QUINTARA_VERSION "unknown"
#endif
#ifndef QUINTARA_SOURCE_DIR
#define QUINTARA_SOURCE_DIR ""
#endif

namespace q::gui {

QString AboutDialog::version() { return QStringLiteral(QUINTARA_VERSION); }

// The program's own documentation: installed beside the shared data, or in the
// source tree of a build that was never installed.
QString AboutDialog::homePage() {
  const QString installed =
      QString::fromStdString(sharedDataDir()) + QStringLiteral("/../doc/quintara/README.md");
  if (QFileInfo::exists(installed))
    return QUrl::fromLocalFile(QFileInfo(installed).canonicalFilePath()).toString();
  const QString source = QStringLiteral(QUINTARA_SOURCE_DIR "/README.md");
  if (QFileInfo::exists(source)) return QUrl::fromLocalFile(source).toString();
  return {};
}

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle(tr("About Quintara"));
  setStyleSheet(
      "QDialog{background:#15171b}QLabel{color:#c9cfd8}"
      "QPushButton{background:#2a2f37;color:#e8ecf2;border:1px solid #3a414c;padding:4px 12px;"
      "border-radius:3px}QPushButton:hover{background:#353b45}");
  auto* layout = new QVBoxLayout(this);
  auto* name =
      new QLabel(QStringLiteral("<span style='font-size:26px;font-weight:bold;"
                                "color:#ffb420;letter-spacing:3px'>QUINTARA</span>"));
  auto* what = new QLabel(tr("Theatre lighting console for Linux"));
  auto* ver = new QLabel(tr("Version %1").arg(version()));
  ver->setObjectName("version");
  layout->addWidget(name);
  layout->addWidget(what);
  layout->addWidget(ver);
  const QString page = homePage();
  if (!page.isEmpty()) {
    auto* link = new QLabel(QStringLiteral("<a style='color:#7fe7ff' href='%1'>%2</a>")
                                .arg(page, tr("The console's documentation")));
    link->setObjectName("lblWeb");
    link->setOpenExternalLinks(true);
    layout->addWidget(link);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  auto* info = buttons->addButton(tr("System Info..."), QDialogButtonBox::ActionRole);
  connect(info, &QPushButton::clicked, this, &AboutDialog::showSystemInformation);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  layout->addSpacing(8);
  layout->addWidget(buttons);
}

// The machine as the console runs on it: what an operator reads out to support.
void AboutDialog::showSystemInformation() {
  const QString text = tr("System: %1\nKernel: %2 %3\nProcessor: %4, %5 threads\nHost: %6")
                           .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(),
                                QSysInfo::kernelVersion(), QSysInfo::currentCpuArchitecture())
                           .arg(QThread::idealThreadCount())
                           .arg(QSysInfo::machineHostName());
  QMessageBox::information(this, tr("System Info"), text);
}

}  // namespace q::gui
