// Builds the condition dialogs and shows again what an operation of the logic changes.
#include "desktop/faces/condition_faces.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "base/format.h"
#include "base/scan.h"
#include "desktop/language.h"

namespace tvx {

namespace {

// The translated words of the button, and the name of the file that was read.
QString FileCaption(const std::string& caption) {
  constexpr std::string_view kWords = CAutoFeedDlg::kFileButton;
  return Translated(kWords) + ToQt(std::string_view(caption).substr(kWords.size()));
}

}  // namespace

AutoFeedFace::AutoFeedFace(CAutoFeedDlg* dialog, QWidget* parent)
    : Face(CAutoFeedDlg::kTitle, parent), dialog_(dialog) {
  auto* const column = new QVBoxLayout(this);
  fileButton_ = AddButton(column, dialog->fileCaption, [this] {
    dialog_->ReadFile();
    ShowTexts();
  });
  auto* const form = new QFormLayout;
  column->addLayout(form);
  for (size_t i = 0; i < AutoFeedFields().size(); ++i) {
    edits_.push_back(AddEdit(form, AutoFeedFields()[i]->caption, dialog->texts[i],
                             [this, i](const std::string& text) { dialog_->Edit(i, text); }));
  }
  AddButton(column, CAutoFeedDlg::kSaveButton, [this] { dialog_->SaveFile(); });
  AddClosingButtons(
      column, "OK", [this] { End(dialog_->Accept()); }, "Cancel", [this] { reject(); });
}

void AutoFeedFace::ShowTexts() {
  for (size_t i = 0; i < edits_.size(); ++i) ShowText(edits_[i], dialog_->texts[i]);
  ShowFileCaption(fileButton_, FileCaption(dialog_->fileCaption));
}

AfaSetupFace::AfaSetupFace(CAfaSetupDlg* dialog, QWidget* parent)
    : Face(CAfaSetupDlg::kTitle, parent), dialog_(dialog) {
  auto* const column = new QVBoxLayout(this);
  AddCheck(
      column, FieldOf(&JobRecord::AfaByMaster).caption,
      [this] { return dialog_->job->AfaByMaster == 1; }, [this] { dialog_->ToggleMaster(); });
  AddCheck(
      column, FieldOf(&JobRecord::XyChgReduceCheck).caption,
      [this] { return dialog_->xyChgReduceTicked; },
      [this] { dialog_->xyChgReduceTicked = !dialog_->xyChgReduceTicked; });
  AddCheck(
      column, FieldOf(&JobRecord::FeedChgSmoothCheck).caption,
      [this] { return dialog_->feedChgSmoothTicked; },
      [this] { dialog_->feedChgSmoothTicked = !dialog_->feedChgSmoothTicked; });

  auto* const form = new QFormLayout;
  column->addLayout(form);
  for (size_t i = 0; i < SetupEdits().size(); ++i) {
    edits_.push_back(AddEdit(form, SetupEdits()[i]->caption, dialog->editTexts[i],
                             [this, i](const std::string& text) { dialog_->editTexts[i] = text; }));
  }

  auto* const groups = new QHBoxLayout;
  column->addLayout(groups);
  AddSliders(groups, CAfaSetupDlg::kCornerGroup, 0);
  AddSliders(groups, CAfaSetupDlg::kSlopeGroup, WeightSliders().size() / 2);
  AddClosingButtons(
      column, "OK", [this] { Accept(); }, "Cancel", [this] { reject(); });
}

QString AfaSetupFace::SliderCaption(size_t slider) const {
  return ToQt(dialog_->Caption(slider, LanguageInUse()));
}

void AfaSetupFace::AddSliders(QLayout* layout, const char* group, size_t first) {
  auto* const box = new QGroupBox(Translated(group), this);
  auto* const column = new QVBoxLayout(box);
  for (size_t i = first; i < first + WeightSliders().size() / 2; ++i) {
    auto* const caption = new QLabel(SliderCaption(i), box);
    auto* const slider = new QSlider(Qt::Horizontal, box);
    slider->setRange(0, CAfaSetupDlg::kHighestPosition);
    slider->setValue(dialog_->Position(i));
    slider->setMinimumWidth(180);
    // A release by the mouse, and each step by keys, wheel or a click beside the handle.
    const auto release = [this, i, slider, caption] {
      dialog_->ReleaseSlider(i, slider->value());
      caption->setText(SliderCaption(i));
    };
    connect(slider, &QSlider::sliderReleased, this, release);
    connect(slider, &QSlider::valueChanged, this, [slider, release] {
      if (!slider->isSliderDown()) release();
    });
    column->addWidget(caption);
    column->addWidget(slider);
  }
  layout->addWidget(box);
}

void AfaSetupFace::Accept() {
  const Closing closing = dialog_->Accept();
  if (dialog_->refusedEdit) {
    QLineEdit* const edit = edits_[*dialog_->refusedEdit];
    edit->setFocus();
    edit->selectAll();
  }
  End(closing);
}

SendOptionFace::SendOptionFace(CSendOptionDlg* dialog, QWidget* parent)
    : Face(CSendOptionDlg::kTitle, parent), dialog_(dialog) {
  const auto then = [this](void (CSendOptionDlg::*operation)()) {
    return [this, operation] {
      (dialog_->*operation)();
      Show();
    };
  };
  auto* const column = new QVBoxLayout(this);
  conditionFile_ =
      AddButton(column, dialog->conditionFileCaption, then(&CSendOptionDlg::ChooseConditionFile));
  auto* const form = new QFormLayout;
  column->addLayout(form);
  minFeed_ =
      AddEdit(form, CSendOptionDlg::kMinFeed, dialog->minFeedText, [this](const std::string& text) {
        dialog_->EditMinFeed(text);
        Show();
      });
  topFeed_ =
      AddEdit(form, CSendOptionDlg::kTopFeed, dialog->topFeedText, [this](const std::string& text) {
        dialog_->EditTopFeed(text);
        Show();
      });
  // The big button shows the machining condition, a line for each value.
  condition_ = AddButton(column, dialog->conditionText, then(&CSendOptionDlg::OpenCondition));
  ShowAsBigButton(condition_);

  auto* const checks = new QHBoxLayout;
  column->addLayout(checks);
  conCor_ = AddCheck(
      checks, FieldOf(&JobRecord::ConCorChk).caption,
      [this] { return dialog_->own.ConCorChk == 1; }, then(&CSendOptionDlg::ToggleConCorChk));
  upDown_ = AddCheck(
      checks, FieldOf(&JobRecord::UpDownChk).caption,
      [this] { return dialog_->own.UpDownChk == 1; }, then(&CSendOptionDlg::ToggleUpDownChk));

  auto* const spindleRow = new QHBoxLayout;
  column->addLayout(spindleRow);
  spindleOn_ = AddCheck(
      spindleRow, CSendOptionDlg::kSpindle, [this] { return dialog_->SpindleOn == 1; },
      then(&CSendOptionDlg::ToggleSpindle));
  spindle_ = new QLineEdit(ToQt(dialog->spindleText), this);
  connect(spindle_, &QLineEdit::textEdited, this, [this](const QString& text) {
    dialog_->EditSpindleSpeed(FromQt(text));
    Show();
  });
  spindleRow->addWidget(spindle_);

  master_ = AddButton(column, dialog->masterCaption, then(&CSendOptionDlg::ChooseMaster));
  auto* const row = new QHBoxLayout;
  column->addLayout(row);
  AddButton(row, CSendOptionDlg::kSetupButton, then(&CSendOptionDlg::OpenSetup));
  AddButton(row, CSendOptionDlg::kCalculatorButton, then(&CSendOptionDlg::OpenCalculator));
  AddClosingButtons(
      column, "OK", [this] { Accept(); }, "Cancel", [this] { reject(); });
  minFeed_->setFocus();  // most users change the feeds
  minFeed_->selectAll();
  Show();
}

void SendOptionFace::Show() {
  ShowText(minFeed_, dialog_->minFeedText);
  ShowText(topFeed_, dialog_->topFeedText);
  ShowText(spindle_, dialog_->spindleText);
  ShowCaption(condition_, ToQt(dialog_->conditionText));
  ShowFileCaption(conditionFile_, Translated(dialog_->conditionFileCaption));
  ShowFileCaption(master_, ToQt(dialog_->masterCaption));
  // An operation can change more than the clicked control, for example by a condition file.
  if (conCor_ != nullptr) conCor_->setChecked(dialog_->own.ConCorChk == 1);
  if (upDown_ != nullptr) upDown_->setChecked(dialog_->own.UpDownChk == 1);
  if (spindleOn_ != nullptr) spindleOn_->setChecked(dialog_->SpindleOn == 1);
}

void SendOptionFace::Accept() {
  const Closing closing = dialog_->Accept();
  if (closing == Closing::kStaysOpen) {
    QLineEdit* const edit = dialog_->refusedField == "MinFeed" ? minFeed_ : topFeed_;
    edit->setFocus();
    edit->selectAll();
  }
  End(closing);
}

void SendOptionFace::reject() {
  End(dialog_->Cancel());
}

MasterFace::MasterFace(CMasterDlg* dialog, QWidget* parent) : Face("마스터 모델 생성", parent) {
  auto* const column = new QVBoxLayout(this);
  auto* const form = new QFormLayout;
  column->addLayout(form);
  for (const MasterDlgField& field : MasterDlgFields()) {
    AddEdit(form, field.label, ShortestFloat(dialog->*field.member),
            [dialog, member = field.member](const std::string& text) {
              dialog->*member = TextToFloat(text);
            });
  }
  AddClosingButtons(
      column, "OK", [this] { accept(); }, "Cancel", [this] { reject(); });
}

}  // namespace tvx
