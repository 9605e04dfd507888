#include "desktop/file_info_face.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/language.h"
#include "model/labels.h"

namespace tvx {

FileInfoFace::FileInfoFace(CFileInfoDlg* dialog, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Translated(CFileInfoDlg::kTitle));
  auto* const column = new QVBoxLayout(this);
  auto* const list = new QListWidget(this);
  for (const std::string& line : dialog->Lines()) list->addItem(Translated(ReplaceLabels(line)));
  list->setMinimumSize(360, 420);
  column->addWidget(list);

  auto* const buttons = new QDialogButtonBox(this);
  QPushButton* const accepting =
      buttons->addButton(Translated(CFileInfoDlg::kAccept), QDialogButtonBox::AcceptRole);
  accepting->setDefault(true);
  buttons->addButton(Translated(CFileInfoDlg::kCancel), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column->addWidget(buttons);
}

}  // namespace tvx
