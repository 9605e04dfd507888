// Long work in the window: the bar in the status bar, the wait cursor, and the stop.
#pragma once

#include <QWidget>

#include "platform/files/files.h"
#include "platform/progress.h"

class QLabel;
class QProgressBar;
class QToolButton;

namespace tvx {

// What is being done, how much of it is done, and a button that stops it.
class ProgressBar : public QWidget {
  Q_OBJECT

 public:
  explicit ProgressBar(QWidget* parent = nullptr);

  void ShowState(const Progress::State& state);
  // True for a place on the screen on the button, while that is shown.
  bool IsOnStopButton(const QPoint& global) const;

 signals:
  void StopPressed();

 private:
  QLabel* text_;
  QProgressBar* bar_;
  QToolButton* stop_;
};

// Paints the windows and reads the keyboard between two parts of the work, on the one thread of the
// program. Until the work has ended, Escape and the button are the only input that is taken.
class WindowProgress : public QObject, public Progress {
  Q_OBJECT

 public:
  WindowProgress();

  // The bar to show. Without one there is only the cursor.
  void SetBar(ProgressBar* bar);

 protected:
  bool Show(const State& state) override;
  void Hide() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void HandleEvents();

  ProgressBar* bar_ = nullptr;
  bool hasCursor_ = false;
  bool wantsStop_ = false;
};

// While it exists the cursor is that of a window that takes input, also if work is under way: a
// question that interrupts it.
class InputCursor {
 public:
  InputCursor();
  ~InputCursor();
  InputCursor(const InputCursor&) = delete;
  InputCursor& operator=(const InputCursor&) = delete;
};

}  // namespace tvx
