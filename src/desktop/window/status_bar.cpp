// A shortened label for texts and paths, and the indicators of the lock keys.
#include "desktop/window/status_bar.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QToolButton>
#include <QUrl>

#include "desktop/elided_label.h"
#include "desktop/language.h"
#include "desktop/window/progress_bar.h"
#include "platform/lock_keys.h"

namespace tvx {

namespace {

constexpr char kReadyText[] = "Ready";

}  // namespace

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent),
      label_(new ElidedLabel(kReadyText, this)),
      text_(kReadyText),
      open_(new QToolButton(this)),
      progress_(new ProgressBar(this)) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // as QMainWindow makes its own
  label_->setTextFormat(Qt::PlainText);
  addWidget(label_, 1);
  open_->setText(Translated("열기"));
  open_->setObjectName("openFile");
  open_->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus in the picture
  connect(open_, &QToolButton::clicked, this, &StatusBar::OpenFile);
  addWidget(open_);
  open_->hide();
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
  text_ = text;
  open_->hide();
  ShowLabel();
}

void StatusBar::ShowHint(const QString& hint) {
  hint_ = hint;
  ShowLabel();
}

void StatusBar::ShowLabel() {
  label_->setText(hint_.isEmpty() ? text_ : hint_);
}

void StatusBar::OfferToOpen(const QString& file) {
  file_ = file;
  open_->setToolTip(Qt::convertFromPlainText(file));
  open_->show();
}

void StatusBar::OpenFile() {
  const QString file = file_;
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
    ShowText(file + ": " + Translated("이 화일을 열 프로그램이 없습니다."));
  }
}

QString StatusBar::PathOrReady() const {
  return path_.isEmpty() ? kReadyText : path_;
}

void StatusBar::SetPath(const QString& path) {
  const bool showsPath = text_ == PathOrReady();
  path_ = path;
  if (showsPath) ShowPath();
}

void StatusBar::ShowPath() {
  ShowText(PathOrReady());
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
