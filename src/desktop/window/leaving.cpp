// The question before a window with results closes, and the answer that is kept.
#include "desktop/window/leaving.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QSettings>

#include "desktop/faces/face.h"
#include "desktop/language.h"
#include "session/tvx_view.h"

namespace tvx {

namespace {

constexpr char kKey[] = "closesWithoutReport";

}  // namespace

Leaving::Leaving(const QString& settingsFile, QWidget* window)
    : QObject(window), settingsFile_(settingsFile), window_(window) {
  if (settingsFile_.isEmpty()) return;
  asks_ = !QSettings(settingsFile_, QSettings::IniFormat).value(kKey).toBool();
}

bool Leaving::MayClose(const CTVXView& view) {
  if (!asks_ || view.results.recorded.empty() || view.results.isReported) return true;
  QMessageBox box(QMessageBox::Question, Translated("창 닫기"),
                  Translated("기록한 결과가 아직 출력되지 않았습니다. 창을 닫겠습니까?"),
                  QMessageBox::Yes | QMessageBox::No, window_);
  auto* const never = new QCheckBox(Translated("다시 묻지 않음"), &box);
  box.setCheckBox(never);
  box.setDefaultButton(QMessageBox::No);
  NameButtons(&box);
  const bool closes = box.exec() == QMessageBox::Yes;
  asks_ = !(closes && never->isChecked());
  if (!asks_ && !settingsFile_.isEmpty()) {
    QSettings(settingsFile_, QSettings::IniFormat).setValue(kKey, true);
  }
  return closes;
}

}  // namespace tvx
