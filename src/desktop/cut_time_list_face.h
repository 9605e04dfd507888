// The face of the list of results: the files, what is known of the selected one, the total time and
// the reports.
#pragma once

#include "desktop/face.h"
#include "reports/cut_time_list.h"

class QLineEdit;
class QListWidget;

namespace tvx {

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
  QLineEdit* total_ = nullptr;
};

}  // namespace tvx
