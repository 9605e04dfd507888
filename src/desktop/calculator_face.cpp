#include "desktop/calculator_face.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QVBoxLayout>

#include "desktop/qt_text.h"

namespace tvx {

namespace {

// The groups of the face, as positions in CalculatorNumbers.
constexpr size_t kMachineFirst = 5;
constexpr size_t kResultsFirst = 9;

}  // namespace

CalculatorFace::CalculatorFace(CGetFeedDlg* dialog, QWidget* parent)
    : Face(CGetFeedDlg::kTitle, parent), dialog_(dialog) {
  auto* const column = new QVBoxLayout(this);
  auto* const groups = new QHBoxLayout;
  column->addLayout(groups);

  auto* const input = new QGroupBox(CGetFeedDlg::kInputGroup, this);
  auto* const inputColumn = new QVBoxLayout(input);
  auto* const inputForm = new QFormLayout;
  inputColumn->addLayout(inputForm);
  AddList(inputForm, CGetFeedDlg::kWorkMaterial, CGetFeedDlg::WorkMaterialEntries(),
          dialog->state.workMaterial, &CGetFeedDlg::SelectWorkMaterial);
  AddList(inputForm, CGetFeedDlg::kToolMaterial, CGetFeedDlg::ToolMaterialEntries(),
          dialog->state.toolMaterial, &CGetFeedDlg::SelectToolMaterial);
  AddList(inputForm, CGetFeedDlg::kFluteCount, CGetFeedDlg::FluteCountEntries(),
          dialog->FluteCountText(), &CGetFeedDlg::SelectFluteCount);
  AddNumbers(inputForm, 0, kMachineFirst);
  AddCheck(
      inputColumn, CGetFeedDlg::kHighSpeedRough,
      [this] { return dialog_->state.highSpeedRough != 0; },
      [this] {
        dialog_->ToggleHighSpeedRough();
        ShowResults();
      });
  groups->addWidget(input);

  auto* const right = new QVBoxLayout;
  groups->addLayout(right);
  auto* const machine = new QGroupBox(CGetFeedDlg::kMachineGroup, this);
  auto* const machineForm = new QFormLayout(machine);
  AddNumbers(machineForm, kMachineFirst, kResultsFirst);
  right->addWidget(machine);
  auto* const results = new QGroupBox(CGetFeedDlg::kResultGroup, this);
  auto* const resultForm = new QFormLayout(results);
  AddNumbers(resultForm, kResultsFirst, kCalculatorNumbers);
  right->addWidget(results);
  right->addStretch(1);

  speedCaption_ = AddSlider(column, static_cast<int>(dialog->state.speedPercent),
                            &CGetFeedDlg::ReleaseSpeedSlider);
  feedCaption_ = AddSlider(column, static_cast<int>(dialog->state.feedPercent),
                           &CGetFeedDlg::ReleaseFeedSlider);
  AddClosingButtons(
      column, CGetFeedDlg::kAccept, [this] { Accept(); }, CGetFeedDlg::kCancel,
      [this] { reject(); });
  ShowResults();
}

void CalculatorFace::AddList(QFormLayout* form, const char* label,
                             const std::vector<std::string>& entries, const std::string& selected,
                             Select select) {
  auto* const list = new QComboBox(this);
  for (const std::string& entry : entries) list->addItem(ToQt(entry));
  list->setCurrentIndex(list->findText(ToQt(selected)));
  connect(list, &QComboBox::textActivated, this, [this, select](const QString& entry) {
    (dialog_->*select)(FromQt(entry));
    ShowResults();
  });
  form->addRow(label, list);
}

void CalculatorFace::AddNumbers(QFormLayout* form, size_t first, size_t end) {
  for (size_t i = first; i < end; ++i) {
    const CalculatorNumber& number = CalculatorNumbers()[i];
    numbers_[i] = AddEdit(form, number.label, dialog_->NumberText(number),
                          [this, &number](const std::string& text) {
                            dialog_->EditNumber(number, text);
                            ShowResults();
                          });
    numbers_[i]->setReadOnly(number.recalculate == nullptr);
  }
}

QLabel* CalculatorFace::AddSlider(QLayout* layout, int position,
                                  void (CGetFeedDlg::*release)(int)) {
  auto* const caption = new QLabel(this);
  caption->setAlignment(Qt::AlignCenter);
  auto* const slider = new QSlider(Qt::Horizontal, this);
  slider->setRange(CGetFeedDlg::kLowestPercent, CGetFeedDlg::kHighestPercent);
  slider->setPageStep(CGetFeedDlg::kPercentPage);
  slider->setValue(position);
  const auto act = [this, slider, release] {
    (dialog_->*release)(slider->value());
    ShowResults();
  };
  connect(slider, &QSlider::sliderReleased, this, act);
  connect(slider, &QSlider::valueChanged, this, [slider, act] {
    if (!slider->isSliderDown()) act();
  });
  layout->addWidget(caption);
  layout->addWidget(slider);
  return caption;
}

void CalculatorFace::ShowResults() {
  for (size_t i = 0; i < kCalculatorNumbers; ++i) {
    if (numbers_[i] != nullptr) ShowText(numbers_[i], dialog_->NumberText(CalculatorNumbers()[i]));
  }
  if (speedCaption_ != nullptr) speedCaption_->setText(ToQt(dialog_->speedCaption));
  if (feedCaption_ != nullptr) feedCaption_->setText(ToQt(dialog_->feedCaption));
}

void CalculatorFace::Accept() {
  const Closing closing = dialog_->Accept();
  for (size_t i = 0; closing == Closing::kStaysOpen && i < kCalculatorNumbers; ++i) {
    if (dialog_->refusedField != CalculatorNumbers()[i].name) continue;
    numbers_[i]->setFocus();
    numbers_[i]->selectAll();
  }
  End(closing);
}

}  // namespace tvx
