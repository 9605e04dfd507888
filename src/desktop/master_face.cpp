#include "desktop/master_face.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include "base/format.h"
#include "base/scan.h"
#include "desktop/qt_text.h"

namespace tvx {

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
