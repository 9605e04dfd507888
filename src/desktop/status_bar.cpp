// A shortened label for texts and paths, and the indicators of the lock keys.
#include "desktop/status_bar.h"

#include <QApplication>
#include <QEvent>

#include "desktop/elided_label.h"
#include "desktop/progress_bar.h"
#include "platform/lock_keys.h"

namespace tvx {

namespace {

constexpr char kReadyText[] = "Ready";

}  // namespace

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent),
      text_(new ElidedLabel(kReadyText, this)),
      progress_(new ProgressBar(this)) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // as QMainWindow makes its own
  text_->setTextFormat(Qt::PlainText);
  addWidget(text_, 1);
  addPermanentWidget(progress_);
  constexpr std::array kNames = {"CAP", "NUM", "SCRL"};
  for (size_t i = 0; i < kNames.size(); ++i) {
    lockKeys_[i] = new QLabel(kNames[i], this);
    addPermanentWidget(lockKeys_[i]);
  }
  ShowLockKeys();
  qApp->installEventFilter(this);
}

void StatusBar::ShowText(const QString& text) {
  text_->setText(text);
}

void StatusBar::SetPath(const QString& path) {
  const bool showsPath = text_->text() == (path_.isEmpty() ? kReadyText : path_);
  path_ = path;
  if (showsPath) ShowPath();
}

void StatusBar::ShowPath() {
  text_->setText(path_.isEmpty() ? kReadyText : path_);
}

void StatusBar::ShowLockKeys() {
  const std::array<bool, 3> lit = LockKeys();
  for (size_t i = 0; i < lit.size(); ++i) lockKeys_[i]->setEnabled(lit[i]);
}

// The system reports no change of a lock: it is read after each key, and when the window comes to
// the front.
bool StatusBar::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyRelease || event->type() == QEvent::FocusIn;
  const bool isActivation = watched == window() && event->type() == QEvent::ActivationChange;
  if ((watched->isWindowType() && isKey) || isActivation) ShowLockKeys();
  return QStatusBar::eventFilter(watched, event);
}

}  // namespace tvx
