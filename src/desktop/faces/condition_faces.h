// The faces of the feed conditions: the machining condition, its finer settings, the dialog of
// lowest and highest feed that opens both, and the input of a master model.
#pragma once

#include <vector>

#include "conditions/afa_setup_dialog.h"
#include "conditions/auto_feed_dialog.h"
#include "desktop/faces/face.h"
#include "jobs/send_options.h"
#include "master/master_build.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace tvx {

class AutoFeedFace : public Face {
 public:
  AutoFeedFace(CAutoFeedDlg* dialog, QWidget* parent);

 private:
  void ShowTexts();

  CAutoFeedDlg* dialog_;
  std::vector<QLineEdit*> edits_;
  QPushButton* fileButton_;
};

class AfaSetupFace : public Face {
 public:
  AfaSetupFace(CAfaSetupDlg* dialog, QWidget* parent);

 private:
  QString SliderCaption(size_t slider) const;
  void AddSliders(QLayout* layout, const char* group, size_t first);
  void Accept();

  CAfaSetupDlg* dialog_;
  std::vector<QLineEdit*> edits_;
};

class SendOptionFace : public Face {
 public:
  SendOptionFace(CSendOptionDlg* dialog, QWidget* parent);

  // Closing the window by other means than its buttons is a cancel.
  void reject() override;

 private:
  // Shows what an operation has left in the dialog.
  void Show();
  void Accept();

  CSendOptionDlg* dialog_;
  QLineEdit* minFeed_;
  QLineEdit* topFeed_;
  QLineEdit* spindle_;
  QCheckBox* spindleOn_ = nullptr;
  QCheckBox* conCor_ = nullptr;
  QCheckBox* upDown_ = nullptr;
  QPushButton* condition_;
  QPushButton* conditionFile_;
  QPushButton* master_;
};

class MasterFace : public Face {
 public:
  MasterFace(CMasterDlg* dialog, QWidget* parent);
};

}  // namespace tvx
