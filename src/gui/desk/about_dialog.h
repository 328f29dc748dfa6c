#pragma once
// frmAbout: the program's name, its version as built, a link to its page and
// the machine's own information.

#include <QDialog>

namespace q::gui {

class AboutDialog : public QDialog {
  Q_OBJECT
 public:
  explicit AboutDialog(QWidget* parent);

  // The version the program was built as.
  static QString version();
  // The program's page.
  static QString homePage();

 private:
  void showSystemInformation();
};

}  // namespace q::gui
