// A radio button for each kind of restart, with its fields below it.
#include "desktop/faces/restart_face.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/language.h"

namespace tvx {

namespace {

// The decimal fields of a kind, as positions in RestartDecimals.
struct Decimals {
  size_t first;
  size_t end;
};
constexpr size_t kNumber = 2;  // of RestartFields
constexpr Decimals kDecimalsOfKind[] = {{0, 0}, {0, 0}, {0, 2}, {2, 6}};

}  // namespace

RestartFace::RestartFace(CRestartDlg* dialog, QWidget* parent)
    : Face(CRestartDlg::kTitle, parent), dialog_(dialog) {
  auto* const column = new QVBoxLayout(this);
  for (size_t i = 0; i < CRestartDlg::kKinds.size(); ++i) {
    const int kind = static_cast<int>(i) + 1;
    auto* const choice = new QRadioButton(Translated(CRestartDlg::kKinds[i]), this);
    // The arrow keys start from the choice that is made.
    if (dialog->own.RestartKind == kind) {
      choice->setChecked(true);
      choice->setFocus();
    }
    connect(choice, &QRadioButton::clicked, this, [this, kind] { dialog_->SelectKind(kind); });
    column->addWidget(choice);
    auto* const form = new QFormLayout;
    form->setContentsMargins(24, 0, 0, 8);
    column->addLayout(form);
    if (i < numbers_.size()) {
      numbers_[i] = AddEdit(form, RestartFields()[kNumber].caption, dialog->numberText,
                            [this](const std::string& text) {
                              dialog_->EditNumber(text);
                              ShowNumber();
                            });
    }
    for (size_t d = kDecimalsOfKind[i].first; d < kDecimalsOfKind[i].end; ++d) {
      AddEdit(form, RestartDecimals()[d].caption, dialog->decimalTexts[d],
              [this, d](const std::string& text) { dialog_->EditDecimal(d, text); });
    }
  }
  AddClosingButtons(
      column, "OK", [this] { End(dialog_->Accept()); }, "Cancel", [this] { reject(); });
}

// Both fields show the one number.
void RestartFace::ShowNumber() {
  for (QLineEdit* const edit : numbers_) ShowText(edit, dialog_->numberText);
}

void RestartFace::reject() {
  End(dialog_->Cancel());
}

}  // namespace tvx
