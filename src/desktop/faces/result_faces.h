// The faces of results: the lines of one result, and the list of results with the total time and
// the reports.
#pragma once

#include "desktop/faces/face.h"
#include "reports/cut_time_list.h"
#include "stats/file_information.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace tvx {

// The lines of a result, read-only.
class FileInfoFace : public QDialog {
  Q_OBJECT

 public:
  FileInfoFace(CFileInfoDlg* dialog, QWidget* parent);
};

class CutTimeListFace final : public Face {
  Q_OBJECT

 public:
  CutTimeListFace(CCutTimeListDlg* dialog, QWidget* parent);

 private:
  QWidget* BuildLists();
  void Press(const CCutTimeListDlg::Button& button);
  // Shows what the logic holds.
  void Show();
  void ShowInformation();

  CCutTimeListDlg* dialog_;
  QListWidget* files_ = nullptr;
  QListWidget* information_ = nullptr;
  QLabel* remark_ = nullptr;
  QLineEdit* total_ = nullptr;
};

}  // namespace tvx
