#include "desktop/faces/result_faces.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "desktop/faces/row_list.h"
#include "desktop/language.h"
#include "desktop/time_text.h"

namespace tvx {

FileInfoFace::FileInfoFace(CFileInfoDlg* dialog, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Translated(CFileInfoDlg::kTitle));
  auto* const column = new QVBoxLayout(this);
  auto* const list = new QListWidget(this);
  for (const std::string& line : dialog->Lines(LanguageInUse())) list->addItem(ToQt(line));
  list->setMinimumSize(360, 420);
  column->addWidget(list);
  if (dialog->timeBefore) {
    const double before = *dialog->timeBefore, after = dialog->entry.totalMinutes;
    column->addWidget(new QLabel(Translated("조정 전") + "  " + MinutesText(before) + "\n" +
                                     Translated("조정 후") + "  " + MinutesText(after) + "\n" +
                                     Translated("절약") + "  " + SavedText(before, after),
                                 this));
  }

  auto* const buttons = new QDialogButtonBox(this);
  QPushButton* const accepting =
      buttons->addButton(Translated(CFileInfoDlg::kAccept), QDialogButtonBox::AcceptRole);
  accepting->setDefault(true);
  buttons->addButton(Translated(CFileInfoDlg::kCancel), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column->addWidget(buttons);
}

CutTimeListFace::CutTimeListFace(CCutTimeListDlg* dialog, QWidget* parent)
    : Face(CCutTimeListDlg::kTitle, parent), dialog_(dialog) {
  ResizeOnScreen(this, {820, 620});
  setSizeGripEnabled(true);
  auto* const row = new QHBoxLayout(this);
  row->addWidget(BuildLists(), 1);

  auto* const buttons = new QVBoxLayout;
  AddButton(buttons, "OK", [this] { accept(); })->setDefault(true);
  AddButton(buttons, "Cancel", [this] { reject(); });
  buttons->addSpacing(16);
  for (const CCutTimeListDlg::Button& button : CCutTimeListDlg::Buttons()) {
    AddButton(buttons, *button.caption, [this, button] { Press(button); });
  }
  buttons->addStretch(1);
  row->addLayout(buttons);
  Show();
}

QWidget* CutTimeListFace::BuildLists() {
  auto* const box = new QWidget(this);
  auto* const column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  auto* const splitter = new QSplitter(Qt::Horizontal, box);
  splitter->setChildrenCollapsible(false);
  files_ = new RowList;
  information_ = new QListWidget;
  splitter->addWidget(Captioned(CCutTimeListDlg::kFileHeading, files_));
  splitter->addWidget(Captioned(CCutTimeListDlg::kInformationHeading, information_));
  files_->setObjectName("files");
  information_->setObjectName("information");
  splitter->setStretchFactor(0, 2);
  splitter->setStretchFactor(1, 3);
  column->addWidget(splitter, 1);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] {
    dialog_->Select(SelectedRow(*files_));
    ShowInformation();
  });

  auto* const totalRow = new QHBoxLayout;
  auto* const label = new QLabel(Translated(CCutTimeListDlg::kTotalLabel), box);
  total_ = new QLineEdit(box);
  total_->setReadOnly(true);
  total_->setAlignment(Qt::AlignRight);
  label->setBuddy(total_);
  totalRow->addWidget(label);
  totalRow->addWidget(total_);
  totalRow->addWidget(new QLabel("min", box));
  totalRow->addWidget(remark_ = new QLabel(box), 1);
  column->addLayout(totalRow);
  return box;
}

void CutTimeListFace::Press(const CCutTimeListDlg::Button& button) {
  End(button.press(dialog_));
  Show();
}

void CutTimeListFace::Show() {
  ShowRows(files_, dialog_->fileNames, dialog_->selected);
  ShowInformation();
  total_->setText(ToQt(dialog_->TotalTimeText()));
  remark_->setText(ToQt(dialog_->Remark()));
}

void CutTimeListFace::ShowInformation() {
  information_->clear();
  for (const std::string& line : dialog_->information) information_->addItem(ToQt(line));
}

}  // namespace tvx
