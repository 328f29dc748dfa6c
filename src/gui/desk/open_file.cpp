#include "gui/desk/open_file.h"

#include <QDir>
#include <QFileInfo>

#include "engine/core/console.h"

namespace q::gui {

void openAsDropped(Console& c, const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  const QString before = QDir::currentPath();
  QDir::setCurrent(file.absolutePath());
  c.files.dropOnForm1(file.absoluteFilePath().toStdString());
  QDir::setCurrent(before);
}

}  // namespace q::gui
