// The faces of the job list: the job dialog and the key-code pad.
#pragma once

#include "desktop/faces/face.h"
#include "jobs/key_code_pad.h"
#include "jobs/transfer_dialog.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace tvx {

class KeyCodeFace : public Face {
 public:
  KeyCodeFace(CKeyCodeDlg* pad, QWidget* parent);

 private:
  QPushButton* AddKey(QGridLayout* grid, int row, int column, const char* caption,
                      std::function<void()> press);

  CKeyCodeDlg* pad_;
  QLineEdit* field_;
};

class TransferFace : public Face {
 public:
  TransferFace(CTransferDlg* dialog, QWidget* parent);

 private:
  QWidget* BuildBrowser();
  QWidget* BuildLists();
  QWidget* BuildOptions();
  QPushButton* AddOperation(QLayout* layout, const char* caption,
                            void (CTransferDlg::*operation)());
  // Browses to the current item of the tree.
  void Browse();
  // Shows all that an operation can change; only browsing changes the tree.
  void Show();
  void ShowTree();

  CTransferDlg* dialog_;
  QTreeWidget* tree_ = nullptr;
  QComboBox* masks_ = nullptr;
  QListWidget* files_ = nullptr;
  QListWidget* entries_ = nullptr;
  QListWidget* information_ = nullptr;
  QLabel* directory_ = nullptr;
  QCheckBox* deleteM30_ = nullptr;
  QPushButton* restart_ = nullptr;
  QPushButton* condition_ = nullptr;
};

}  // namespace tvx
