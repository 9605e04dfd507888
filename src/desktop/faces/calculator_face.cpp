// Builds the calculator from the tables of its logic, and shows every result after each change.
#include "desktop/faces/calculator_face.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/language.h"

namespace tvx {

namespace {

// The numbers of each group, by field name. CalculatorNumbers() has them in the order in which they
// are checked.
constexpr const char* kInputNumbers[] = {"toolDiameter", "toolLength", "fluteLength", "stepover",
                                         "cutDepth"};
constexpr const char* kMachineNumbers[] = {"maxFeedRate", "maxSpindle", "idlePower", "ncPower"};
constexpr const char* kResultNumbers[] = {"spindleOut", "feedOut", "removalOut"};

// In the colour of the window, since it looks like a field to type into otherwise.
void ShowAsResult(QLineEdit* edit) {
  edit->setReadOnly(true);
  edit->setFocusPolicy(Qt::ClickFocus);
  QPalette palette = edit->palette();
  palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  edit->setPalette(palette);
}

}  // namespace

CalculatorFace::CalculatorFace(CGetFeedDlg* dialog, QWidget* parent)
    : Face(CGetFeedDlg::kTitle, parent), dialog_(dialog) {
  auto* const column = new QVBoxLayout(this);
  auto* const groups = new QHBoxLayout;
  column->addLayout(groups);

  auto* const input = new QGroupBox(Translated(CGetFeedDlg::kInputGroup), this);
  auto* const inputColumn = new QVBoxLayout(input);
  auto* const inputForm = new QFormLayout;
  inputColumn->addLayout(inputForm);
  AddList(inputForm, CGetFeedDlg::kWorkMaterial, CGetFeedDlg::WorkMaterialEntries(),
          dialog->state.workMaterial, &CGetFeedDlg::SelectWorkMaterial);
  AddList(inputForm, CGetFeedDlg::kToolMaterial, CGetFeedDlg::ToolMaterialEntries(),
          dialog->state.toolMaterial, &CGetFeedDlg::SelectToolMaterial);
  AddList(inputForm, CGetFeedDlg::kFluteCount, CGetFeedDlg::FluteCountEntries(),
          dialog->FluteCountText(), &CGetFeedDlg::SelectFluteCount);
  AddNumbers(inputForm, kInputNumbers);
  speedCaption_ =
      AddSlider(inputColumn, dialog->state.speedPercent, &CGetFeedDlg::ReleaseSpeedSlider);
  feedCaption_ = AddSlider(inputColumn, dialog->state.feedPercent, &CGetFeedDlg::ReleaseFeedSlider);
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
  AddNumberGroup(right, CGetFeedDlg::kMachineGroup, kMachineNumbers);
  AddNumberGroup(right, CGetFeedDlg::kResultGroup, kResultNumbers);
  right->addStretch(1);
  AddClosingButtons(
      column, CGetFeedDlg::kAccept, [this] { Accept(); }, CGetFeedDlg::kCancel,
      [this] { reject(); });
  ShowResults();
}

void CalculatorFace::AddList(QFormLayout* form, const char* label,
                             const std::vector<std::string>& entries, const std::string& selected,
                             Select select) {
  auto* const list = new QComboBox(this);
  for (const std::string& entry : entries) list->addItem(Translated(entry), ToQt(entry));
  list->model()->sort(0);  // by the shown texts; the entries are sorted by the Korean ones
  list->setCurrentIndex(list->findData(ToQt(selected)));
  connect(list, &QComboBox::activated, this, [this, list, select](int index) {
    (dialog_->*select)(FromQt(list->itemData(index).toString()));
    ShowResults();
  });
  form->addRow(Translated(label), list);
}

void CalculatorFace::AddNumbers(QFormLayout* form, std::span<const char* const> names) {
  for (const std::string_view name : names) {
    const auto all = CalculatorNumbers();
    const auto number = std::ranges::find(all, name, &CalculatorNumber::name);
    QLineEdit* const edit = AddEdit(form, number->label, dialog_->NumberText(*number),
                                    [this, number](const std::string& text) {
                                      dialog_->EditNumber(*number, text);
                                      ShowResults();
                                    });
    if (number->recalculate == nullptr) ShowAsResult(edit);
    numbers_[static_cast<size_t>(number - all.begin())] = edit;
  }
}

void CalculatorFace::AddNumberGroup(QLayout* layout, const char* title,
                                    std::span<const char* const> names) {
  auto* const box = new QGroupBox(Translated(title), this);
  auto* const form = new QFormLayout;
  box->setLayout(form);
  AddNumbers(form, names);
  layout->addWidget(box);
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
