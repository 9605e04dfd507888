// Builds the job dialog and the key-code pad. The dialog shows all of its logic after each
// operation.
#include "desktop/faces/job_faces.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>
#include <span>

#include "desktop/faces/row_list.h"
#include "desktop/language.h"

namespace tvx {

namespace {

constexpr int kTreeNumber = Qt::UserRole;
constexpr Qt::Key kEnter[] = {Qt::Key_Return, Qt::Key_Enter};
constexpr Qt::Key kDelete[] = {Qt::Key_Delete};

// Binds keys of a list while it has the focus. An unbound Enter would close the dialog.
void OnKeys(QWidget* list, std::span<const Qt::Key> keys, const std::function<void()>& act) {
  for (const Qt::Key key : keys) {
    auto* const shortcut = new QShortcut(QKeySequence(key), list);
    shortcut->setContext(Qt::WidgetShortcut);
    QObject::connect(shortcut, &QShortcut::activated, list, act);
  }
}

// A tree that ignores double clicks. A click browses; the second one would browse from the item
// that the first one has placed under the mouse.
class ClickTree : public QTreeWidget {
 public:
  using QTreeWidget::QTreeWidget;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {}
};

}  // namespace

KeyCodeFace::KeyCodeFace(CKeyCodeDlg* pad, QWidget* parent)
    : Face(CKeyCodeDlg::kTitle, parent), pad_(pad) {
  auto* const column = new QVBoxLayout(this);
  field_ = new QLineEdit(ToQt(pad->field), this);
  connect(field_, &QLineEdit::textEdited, this,
          [this](const QString& text) { pad_->field = FromQt(text); });
  column->addWidget(field_);

  auto* const grid = new QGridLayout;
  grid->setSpacing(4);
  column->addLayout(grid);
  int row = 0;
  for (const auto& captions : CKeyCodeDlg::Rows()) {
    int place = 0;
    for (const char* const caption : captions) {
      AddKey(grid, row, place++, caption, [this, caption] { pad_->Press(caption); });
    }
    ++row;
  }
  // The user keys continue the last row.
  int place = static_cast<int>(CKeyCodeDlg::Rows().back().size());
  size_t n = 1;
  for (const char* const caption : CKeyCodeDlg::UserKeyCaptions()) {
    constexpr int kColumns = 8;
    AddKey(grid, row - 1 + place / kColumns, place % kColumns, caption,
           [this, n] { pad_->PressUserKey(n); });
    ++place, ++n;
  }
  AddButton(column, CKeyCodeDlg::kClear, [this] {
    pad_->Clear();
    ShowText(field_, pad_->field);
  });
  AddClosingButtons(
      column, "OK", [this] { End(pad_->Accept()); }, "Cancel", [this] { reject(); });
}

QPushButton* KeyCodeFace::AddKey(QGridLayout* grid, int row, int column, const char* caption,
                                 std::function<void()> press) {
  auto* const key = new QPushButton(caption, this);
  key->setAutoDefault(false);
  key->setFocusPolicy(Qt::TabFocus);  // a click keeps the focus in the field
  key->setMinimumWidth(48);
  grid->addWidget(key, row, column);
  connect(key, &QPushButton::clicked, this, [this, press = std::move(press)] {
    press();
    ShowText(field_, pad_->field);
  });
  return key;
}

TransferFace::TransferFace(CTransferDlg* dialog, QWidget* parent)
    : Face(CTransferDlg::kTitle, parent), dialog_(dialog) {
  ResizeOnScreen(this, {1180, 700});
  setSizeGripEnabled(true);
  auto* const column = new QVBoxLayout(this);
  auto* const splitter = new QSplitter(Qt::Horizontal, this);
  splitter->addWidget(BuildBrowser());
  splitter->addWidget(BuildLists());
  information_ = new RowList(this);
  connect(information_, &QListWidget::itemSelectionChanged, this,
          [this] { dialog_->selectedInformation = SelectedRow(*information_); });
  OnKeys(information_, kEnter, [] {});
  auto* const right = Captioned(CTransferDlg::kInfoListCaption, information_);
  auto* const keys = new QGridLayout;
  static_cast<QVBoxLayout*>(right->layout())->addLayout(keys);
  int place = 0;
  for (const CTransferDlg::Button& button : CTransferDlg::KeyCodeButtons()) {
    auto* const cell = new QHBoxLayout;
    AddOperation(cell, button.caption, button.press);
    keys->addLayout(cell, place / 3, place % 3);
    ++place;
  }
  splitter->addWidget(right);
  splitter->setStretchFactor(1, 1);
  splitter->setStretchFactor(2, 1);
  column->addWidget(splitter, 1);
  column->addWidget(BuildOptions());
  AddClosingButtons(
      column, "전송", [this] { End(dialog_->Accept()); }, "전송 취소", [this] { reject(); });
  ShowTree();
  Show();
}

QWidget* TransferFace::BuildBrowser() {
  auto* const box = new QWidget(this);
  auto* const column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  directory_ = new QLabel(box);
  directory_->setTextFormat(Qt::PlainText);
  directory_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  directory_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  column->addWidget(directory_);
  tree_ = new ClickTree(box);
  tree_->setHeaderHidden(true);
  // Only a click or Enter browses; rebuilding the tree does not. The connection is queued because
  // browsing deletes the clicked item.
  connect(tree_, &QTreeWidget::itemClicked, this, &TransferFace::Browse, Qt::QueuedConnection);
  OnKeys(tree_, kEnter, [this] { Browse(); });
  column->addWidget(tree_, 1);
  return box;
}

QWidget* TransferFace::BuildLists() {
  auto* const box = new QWidget(this);
  auto* const row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);

  files_ = new RowList(box);
  connect(files_, &QListWidget::itemSelectionChanged, this,
          [this] { dialog_->selectedFile = SelectedRow(*files_); });
  const auto append = [this] {
    dialog_->AppendSelected();
    Show();
  };
  connect(files_, &QListWidget::itemDoubleClicked, this, append);
  OnKeys(files_, kEnter, append);
  QWidget* const fileBox = Captioned(CTransferDlg::kFileListCaption, files_);
  masks_ = new QComboBox(box);
  connect(masks_, &QComboBox::activated, this, [this](int index) {
    dialog_->SelectMask(static_cast<size_t>(index));
    Show();
  });
  static_cast<QVBoxLayout*>(fileBox->layout())->addWidget(masks_);
  row->addWidget(fileBox, 1);

  auto* const buttons = new QVBoxLayout;
  for (const CTransferDlg::Button& button : CTransferDlg::ListButtons()) {
    AddOperation(buttons, button.caption, button.press);
  }
  buttons->addStretch(1);
  row->addLayout(buttons);

  entries_ = new RowList(box);
  connect(entries_, &QListWidget::itemSelectionChanged, this, [this] {
    dialog_->SelectEntry(SelectedRow(*entries_));
    Show();
  });
  const auto remove = [this] {
    dialog_->DeleteEntry();
    Show();
  };
  connect(entries_, &QListWidget::itemDoubleClicked, this, remove);
  OnKeys(entries_, kDelete, remove);
  OnKeys(entries_, kEnter, [this] {
    dialog_->ShowEntry();
    Show();
  });
  row->addWidget(Captioned(CTransferDlg::kJobListCaption, entries_), 1);
  return box;
}

QWidget* TransferFace::BuildOptions() {
  auto* const box = new QGroupBox(this);
  auto* const row = new QHBoxLayout(box);
  deleteM30_ = AddCheck(
      row, CTransferDlg::kDeleteM30, [this] { return dialog_->ListOptions().DeleteM30 == 1; },
      [this] { dialog_->ToggleDeleteM30(); });
  restart_ = AddOperation(row, dialog_->restartCaption.c_str(), &CTransferDlg::SetRestart);
  condition_ = AddOperation(row, CTransferDlg::kConditionButton, &CTransferDlg::SetCondition);
  ShowAsBigButton(condition_);
  row->setStretch(1, 1);
  row->setStretch(2, 2);
  return box;
}

QPushButton* TransferFace::AddOperation(QLayout* layout, const char* caption,
                                        void (CTransferDlg::*operation)()) {
  return AddButton(layout, caption, [this, operation] {
    (dialog_->*operation)();
    Show();
  });
}

void TransferFace::Browse() {
  if (tree_->currentItem() == nullptr) return;
  dialog_->Browse(tree_->currentItem()->data(0, kTreeNumber).toInt());
  ShowTree();
  Show();
}

void TransferFace::Show() {
  ShowRows(files_, dialog_->browser.files, dialog_->selectedFile);
  ShowRows(entries_, dialog_->list.names, dialog_->selectedEntry);
  ShowRows(information_, dialog_->information, dialog_->selectedInformation);
  {
    const QSignalBlocker blocker(masks_);
    masks_->clear();
    for (const std::string& mask : dialog_->masks) masks_->addItem(ToQt(mask));
    masks_->setCurrentIndex(dialog_->selectedMask);
  }
  deleteM30_->setChecked(dialog_->ListOptions().DeleteM30 == 1);
  restart_->setText(ToQt(dialog_->restartCaption));
  ShowCaption(condition_, ToQt(dialog_->conditionCaption));
}

void TransferFace::ShowTree() {
  directory_->setText(ToQt(dialog_->browser.directory));
  directory_->setToolTip(directory_->text());
  const QSignalBlocker blocker(tree_);
  tree_->clear();
  std::map<int, QTreeWidgetItem*> shown;
  for (const DirectoryBrowser::Item& item : dialog_->browser.Items()) {
    auto* const node = new QTreeWidgetItem(QStringList(ToQt(item.text)));
    node->setData(0, kTreeNumber, item.number);
    const auto above = shown.find(item.parent);
    if (above == shown.end()) {
      tree_->addTopLevelItem(node);
    } else {
      above->second->addChild(node);
    }
    shown[item.number] = node;
  }
  tree_->expandAll();
  const auto selected = shown.find(dialog_->browser.SelectedItem());
  if (selected != shown.end()) tree_->setCurrentItem(selected->second);
}

}  // namespace tvx
