#include "gui/desk/program_pages.h"

#include <QFileInfo>
#include <QUrl>

#include "platform/program_folder.h"

#ifndef QUINTARA_VERSION
#define QUINTARA_VERSION "unknown"
#endif
#ifndef QUINTARA_SOURCE_DIR
#define QUINTARA_SOURCE_DIR ""
#endif

namespace q::gui {

QString programVersion() { return QStringLiteral(QUINTARA_VERSION); }

QString documentationPage() {
  const QString installed =
      QString::fromStdString(sharedDataDir()) + QStringLiteral("/../doc/quintara/README.md");
  if (QFileInfo::exists(installed))
    return QUrl::fromLocalFile(QFileInfo(installed).canonicalFilePath()).toString();
  const QString source = QStringLiteral(QUINTARA_SOURCE_DIR "/README.md");
  if (QFileInfo::exists(source)) return QUrl::fromLocalFile(source).toString();
  return {};
}

}  // namespace q::gui
