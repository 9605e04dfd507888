// The face of the file information dialog: the lines of a result, which can be read and not edited.
#pragma once

#include <QDialog>

#include "stats/file_information.h"

namespace tvx {

class FileInfoFace : public QDialog {
  Q_OBJECT

 public:
  FileInfoFace(CFileInfoDlg* dialog, QWidget* parent);
};

}  // namespace tvx
