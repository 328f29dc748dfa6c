#include "gui/qt_dialogs.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>

namespace q::gui {

namespace {

// Counts the dialogs on screen for as long as one is open.
struct OpenDialog {
  OpenDialog(int& n, const std::function<void()>& before) : n_(n) {
    ++n_;
    if (before) before();
  }
  ~OpenDialog() { --n_; }
  int& n_;
};

QList<QPair<QMessageBox::StandardButton, MsgResult>> buttonsOf(MsgButtons b) {
  using SB = QMessageBox::StandardButton;
  switch (b) {
    case MsgButtons::OK:
      return {{SB::Ok, MsgResult::OK}};
    case MsgButtons::OKCancel:
      return {{SB::Ok, MsgResult::OK}, {SB::Cancel, MsgResult::Cancel}};
    case MsgButtons::YesNo:
      return {{SB::Yes, MsgResult::Yes}, {SB::No, MsgResult::No}};
    case MsgButtons::YesNoCancel:
      return {{SB::Yes, MsgResult::Yes}, {SB::No, MsgResult::No}, {SB::Cancel, MsgResult::Cancel}};
    case MsgButtons::RetryCancel:
      return {{SB::Retry, MsgResult::Retry}, {SB::Cancel, MsgResult::Cancel}};
    case MsgButtons::AbortRetryIgnore:
      return {{SB::Abort, MsgResult::Abort},
              {SB::Retry, MsgResult::Retry},
              {SB::Ignore, MsgResult::Ignore}};
  }
  return {{SB::Ok, MsgResult::OK}};
}

QMessageBox::Icon iconOf(MsgIcon i) {
  switch (i) {
    case MsgIcon::Critical:
      return QMessageBox::Critical;
    case MsgIcon::Question:
      return QMessageBox::Question;
    case MsgIcon::Exclamation:
      return QMessageBox::Warning;
    case MsgIcon::Information:
      return QMessageBox::Information;
    case MsgIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

QString QtDialogs::qtFilter(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList out;
  for (int i = 0; i + 1 < parts.size(); i += 2) {
    QString patterns = parts[i + 1];
    patterns.replace(';', ' ');
    patterns.replace(QStringLiteral("*.*"), QStringLiteral("*"));
    QString name = parts[i];
    const int paren = name.indexOf('(');
    if (paren >= 0) name = name.left(paren).trimmed();
    out << QStringLiteral("%1 (%2)").arg(name, patterns);
  }
  return out.join(QStringLiteral(";;"));
}

MsgResult QtDialogs::msgBox(const std::string& title, const std::string& text, MsgButtons buttons,
                            MsgIcon icon) {
  OpenDialog guard(open_, beforeShow);
  QMessageBox box(iconOf(icon), QString::fromStdString(title), QString::fromStdString(text),
                  QMessageBox::NoButton, parent_);
  const auto map = buttonsOf(buttons);
  for (const auto& [qt, result] : map) box.addButton(qt);
  box.setDefaultButton(map.front().first);
  const auto pressed = QMessageBox::StandardButton(box.exec());
  for (const auto& [qt, result] : map)
    if (qt == pressed) return result;
  // Closed by the window's close box: the box's escape answer, or its first button.
  for (const auto& [qt, result] : map)
    if (result == MsgResult::Cancel || result == MsgResult::No) return result;
  return map.front().second;
}

std::string QtDialogs::inputBox(const std::string& title, const std::string& prompt,
                                const std::string& defaultText) {
  OpenDialog guard(open_, beforeShow);
  bool ok = false;
  const QString t =
      QInputDialog::getText(parent_, QString::fromStdString(title), QString::fromStdString(prompt),
                            QLineEdit::Normal, QString::fromStdString(defaultText), &ok);
  return ok ? t.toStdString() : std::string();
}

// "Quintara Save File (*.Qsh)|*.qsh|..." gives "qsh"; "" when the first pattern has none.
QString defaultSuffix(const std::string& consoleFilter) {
  const QStringList parts = QString::fromStdString(consoleFilter).split('|');
  if (parts.size() < 2) return {};
  const QString pattern = parts[1].section(';', 0, 0).trimmed();
  const int dot = pattern.lastIndexOf('.');
  const QString ext = dot >= 0 ? pattern.mid(dot + 1) : QString();
  return ext.contains('*') || ext.contains('?') ? QString() : ext;
}

QString startFolder(const std::string& initDir, const std::string& lastShow) {
  const QString asked = QString::fromStdString(initDir);
  if (!asked.isEmpty() && QFileInfo(asked).isDir()) return asked;
  const QFileInfo last(QString::fromStdString(lastShow));
  if (!lastShow.empty() && last.absoluteDir().exists()) return last.absolutePath();
  const QString documents = QDir::home().filePath(QStringLiteral("Documents"));
  if (QFileInfo(documents).isDir()) return documents;
  return QDir::homePath();
}

std::string QtDialogs::fileDialog(const FileDialogRequest& r) {
  OpenDialog guard(open_, beforeShow);
  QString start = startFolder(r.initDir, lastShow ? lastShow() : std::string());
  if (!r.fileName.empty()) start = QDir(start).filePath(QString::fromStdString(r.fileName));
  const QString title = QString::fromStdString(r.title);
  const QString filter = qtFilter(r.filter);
  if (r.kind != FileDialogKind::Save)
    return QFileDialog::getOpenFileName(parent_, title, start, filter).toStdString();
  QFileDialog save(parent_, title, start, filter);
  save.setAcceptMode(QFileDialog::AcceptSave);
  // A name typed without an extension takes the one of the first filter, so
  // that "desk" saves desk.qsh and not a file "desk" beside hidden companions.
  save.setDefaultSuffix(defaultSuffix(r.filter));
  if (save.exec() != QDialog::Accepted || save.selectedFiles().isEmpty()) return {};
  return save.selectedFiles().front().toStdString();
}

bool QtDialogs::fontDialog(TextStyle& style) {
  OpenDialog guard(open_, beforeShow);
  QFont initial(style.fontName.empty() ? QStringLiteral("DejaVu Sans")
                                       : QString::fromStdString(style.fontName));
  if (style.fontSize > 0) initial.setPointSizeF(style.fontSize);
  initial.setBold(style.bold);
  initial.setItalic(style.italic);
  initial.setUnderline(style.underline);
  initial.setStrikeOut(style.strikeout);
  bool ok = false;
  const QFont f = QFontDialog::getFont(&ok, initial, parent_);
  if (!ok) return false;
  style.fontName = f.family().toStdString();
  style.fontSize = f.pointSizeF() > 0 ? f.pointSizeF() : f.pixelSize() * 0.75;
  style.bold = f.bold();
  style.italic = f.italic();
  style.underline = f.underline();
  style.strikeout = f.strikeOut();
  return true;
}

bool QtDialogs::colorDialog(int& color) {
  OpenDialog guard(open_, beforeShow);
  const QColor initial =
      color >= 0 ? QColor::fromRgb(QRgb(0xFF000000u | unsigned(color))) : QColor(Qt::white);
  const QColor c = QColorDialog::getColor(initial, parent_);
  if (!c.isValid()) return false;
  color = int(c.rgb() & 0xFFFFFF);
  return true;
}

}  // namespace q::gui
