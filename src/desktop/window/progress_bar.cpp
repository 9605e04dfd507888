// The texts of the work, and the filter that lets no other input through.
#include "desktop/window/progress_bar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QToolButton>

#include "base/path_text.h"
#include "desktop/elided_label.h"
#include "desktop/language.h"

namespace tvx {

namespace {

// Time between two repaints, ms: at least five in a second.
constexpr std::chrono::milliseconds kInterval{100};
// Work that has ended by then shows no bar.
constexpr std::chrono::milliseconds kBarDelay{400};
// The longest time for the events of one repaint, ms.
constexpr int kMostEventTime = 5;

const char* WorkText(Work work) {
  switch (work) {
    case Work::kRead:
      return "읽는 중";
    case Work::kCheck:
      return "검사 중";
    case Work::kAdjust:
      return "피드 조정 중";
    case Work::kBuildMaster:
      return "마스터 모델 생성 중";
    case Work::kDraw:
      return "그리는 중";
    case Work::kWritePicture:
      return "그림화일 쓰는 중";
    case Work::kFillSheet:
      return "스프레드시트 쓰는 중";
  }
  return "";
}

// "2/3 part.nc: 읽는 중"
QString StateText(const Progress::State& state) {
  QString text;
  if (state.files > 0) text = QString("%1/%2 ").arg(state.file).arg(state.files);
  const QString name = ToQt(NameOfPath(state.path, kAnySlash));
  if (!name.isEmpty()) text += name + ": ";
  return text + Translated(WorkText(state.work));
}

}  // namespace

ProgressBar::ProgressBar(QWidget* parent)
    : QWidget(parent),
      text_(new ElidedLabel(this)),
      bar_(new QProgressBar(this)),
      stop_(new QToolButton(this)) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  bar_->setRange(0, 100);
  bar_->setMaximumHeight(fontMetrics().height());
  bar_->setFixedWidth(fontMetrics().averageCharWidth() * 20);
  stop_->setText(Translated("중지 (Esc)"));
  stop_->setFocusPolicy(Qt::NoFocus);
  stop_->setAutoRaise(false);
  connect(stop_, &QToolButton::pressed, this, &ProgressBar::StopPressed);
  row->addWidget(text_, 1);
  row->addWidget(bar_);
  row->addWidget(stop_);
  setFixedWidth(fontMetrics().averageCharWidth() * 75);
  hide();
}

void ProgressBar::ShowState(const Progress::State& state) {
  text_->setText(StateText(state));
  bar_->setValue(state.percent);
  stop_->setVisible(state.canStop);
}

bool ProgressBar::IsOnStopButton(const QPoint& global) const {
  return stop_->isVisible() && stop_->rect().contains(stop_->mapFromGlobal(global));
}

WindowProgress::WindowProgress() : Progress(kInterval) {}

void WindowProgress::SetBar(ProgressBar* bar) {
  bar_ = bar;
  if (bar != nullptr) connect(bar, &ProgressBar::StopPressed, this, [this] { wantsStop_ = true; });
}

bool WindowProgress::Show(const State& state) {
  if (!hasCursor_) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  hasCursor_ = true;
  if (bar_ != nullptr && state.elapsed >= kBarDelay) {
    bar_->ShowState(state);
    bar_->show();
  }
  wantsStop_ = false;
  HandleEvents();
  return !wantsStop_;
}

void WindowProgress::Hide() {
  HandleEvents();  // what has been pressed meanwhile starts nothing
  if (bar_ != nullptr) bar_->hide();
  QGuiApplication::restoreOverrideCursor();
  hasCursor_ = false;
}

void WindowProgress::HandleEvents() {
  qApp->installEventFilter(this);
  QCoreApplication::processEvents(QEventLoop::AllEvents, kMostEventTime);
  qApp->removeEventFilter(this);
}

bool WindowProgress::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) wantsStop_ = true;
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
      return bar_ == nullptr ||
             !bar_->IsOnStopButton(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    case QEvent::Close:
      event->ignore();
      return true;
    // A timer starts work of its own. Those of a window paint it.
    case QEvent::Timer:
      return !watched->isWindowType();
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
      return true;
    default:
      return false;
  }
}

InputCursor::InputCursor() {
  QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

InputCursor::~InputCursor() {
  QGuiApplication::restoreOverrideCursor();
}

}  // namespace tvx
