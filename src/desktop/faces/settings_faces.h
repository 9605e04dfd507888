// The faces of the settings: directories, directory list, one line of text, environment options.
#pragma once

#include "desktop/faces/face.h"
#include "settings/configuration.h"
#include "settings/lists.h"
#include "settings/option_dialog.h"

class QListWidget;

namespace tvx {

class DirSetupFace : public Face {
 public:
  DirSetupFace(CDirSetupDlg* dialog, QWidget* parent);
};

class TextInputFace : public Face {
 public:
  TextInputFace(CTextInputDlg* dialog, QWidget* parent);
};

class DirListFace : public Face {
 public:
  DirListFace(CDirListDlg* dialog, QWidget* parent);

 private:
  void ShowLines();

  CDirListDlg* dialog_;
  QListWidget* list_;
};

class OptionFace : public Face {
 public:
  OptionFace(COptionDlg* dialog, QWidget* parent);
};

}  // namespace tvx
