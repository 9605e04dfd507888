// Builds the settings dialogs from the tables of their logic.
#include "desktop/faces/settings_faces.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "desktop/faces/row_list.h"
#include "desktop/language.h"

namespace tvx {

namespace {

constexpr int kPathWidth = 320;  // pixels; room for a usual directory

}  // namespace

DirSetupFace::DirSetupFace(CDirSetupDlg* dialog, QWidget* parent)
    : Face(CDirSetupDlg::kTitle, parent) {
  auto* const column = new QVBoxLayout(this);
  auto* const form = new QFormLayout;
  column->addLayout(form);
  for (const ConfigurationField& field : ConfigurationFields()) {
    AddEdit(
        form, field.label, dialog->values.*field.value,
        [dialog, value = field.value](const std::string& text) { dialog->values.*value = text; })
        ->setMinimumWidth(kPathWidth);
  }
  AddClosingButtons(
      column, CDirSetupDlg::kAccept, [this, dialog] { End(dialog->Accept()); },
      CDirSetupDlg::kCancel, [this] { reject(); });
}

TextInputFace::TextInputFace(CTextInputDlg* dialog, QWidget* parent)
    : Face(CTextInputDlg::kTitle, parent) {
  auto* const column = new QVBoxLayout(this);
  auto* const edit = new QLineEdit(ToQt(dialog->text), this);
  edit->setMinimumWidth(kPathWidth);
  edit->selectAll();
  connect(edit, &QLineEdit::textEdited, this,
          [dialog](const QString& text) { dialog->text = FromQt(text); });
  column->addWidget(edit);
  AddClosingButtons(
      column, "OK", [this] { accept(); }, "Cancel", [this] { reject(); });
}

DirListFace::DirListFace(CDirListDlg* dialog, QWidget* parent)
    : Face(CDirListDlg::kTitle, parent), dialog_(dialog), list_(new RowList(this)) {
  auto* const column = new QVBoxLayout(this);
  auto* const row = new QHBoxLayout;
  column->addLayout(row);
  list_->setMinimumSize(kPathWidth, 260);
  row->addWidget(list_);
  connect(list_, &QListWidget::itemSelectionChanged, this,
          [this] { dialog_->selection = SelectedRow(*list_); });

  auto* const buttons = new QVBoxLayout;
  row->addLayout(buttons);
  const struct {
    const char* text;
    void (CDirListDlg::*operation)();
  } operations[] = {{"추가", &CDirListDlg::Add},
                    {"삭제", &CDirListDlg::Delete},
                    {"수정", &CDirListDlg::Change},
                    {"갱신", &CDirListDlg::Refresh}};
  for (const auto& operation : operations) {
    AddButton(buttons, operation.text, [this, run = operation.operation] {
      (dialog_->*run)();
      ShowLines();
    });
  }
  buttons->addStretch(1);
  ShowLines();
  AddClosingButtons(
      column, "저장", [this] { accept(); }, "취소", [this] { reject(); });
}

void DirListFace::ShowLines() {
  ShowRows(list_, dialog_->lines, dialog_->selection);
}

OptionFace::OptionFace(COptionDlg* dialog, QWidget* parent) : Face("설정", parent) {
  auto* const column = new QVBoxLayout(this);
  AddCheck(
      column, COptionDlg::kMetafileCreate, [dialog] { return dialog->own.MetafileCreateChk == 1; },
      [dialog] { dialog->ToggleMetafileCreate(); });
  AddCheck(
      column, COptionDlg::kIntNcdata, [dialog] { return dialog->own.IntNcdataFlg != 0; },
      [dialog] { dialog->ToggleIntNcdata(); });

  auto* const form = new QFormLayout;
  column->addLayout(form);
  auto* const feeds = new QComboBox(this);
  for (const char* const feed : COptionDlg::kRapidFeeds) feeds->addItem(feed);
  feeds->setCurrentIndex(dialog->ShownRapidFeed());
  connect(feeds, &QComboBox::activated, this,
          [dialog](int entry) { dialog->ChooseRapidFeed(static_cast<size_t>(entry)); });
  form->addRow(Translated(COptionDlg::kRapidFeed), feeds);
  AddEdit(form, COptionDlg::kNcdataExt, dialog->own.NcdataExt, [dialog](const std::string& text) {
    dialog->EditNcdataExt(text);
  })->setMaxLength(static_cast<int>(COptionDlg::kLongestExtension));

  AddButton(column, COptionDlg::kSaveButton, [dialog] { dialog->Save(); });
  AddClosingButtons(
      column, "OK", [this, dialog] { End(dialog->Accept()); }, "Cancel", [this] { reject(); });
}

}  // namespace tvx
