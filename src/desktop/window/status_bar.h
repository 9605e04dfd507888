// The status bar of the main window: a text, in which a long path is shortened in its middle, a
// button that opens the file in the text, and the three keys that lock.
#pragma once

#include <QStatusBar>
#include <array>

class QLabel;
class QToolButton;

namespace tvx {

class ProgressBar;

class StatusBar : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent);

  // Beside the text while long work is under way.
  ProgressBar* progress() const { return progress_; }

  // Shows a text until the next one, and takes the offer away.
  void ShowText(const QString& text);

  // Sets the path that is shown while there is no other text; empty shows "Ready". The text of a
  // command is kept.
  void SetPath(const QString& path);

  // Shows a button that opens a file of the host in the program that the desktop has for it.
  void OfferToOpen(const QString& file);
  // Shows a text in front of the other ones until it is called with an empty one.
  void ShowHint(const QString& hint);

  // Shows the path again in place of the text of the last command.
  void ShowPath();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowLockKeys();
  void ShowLabel();
  void OpenFile();
  QString PathOrReady() const;

  QLabel* label_;
  QString text_;  // after a hint
  QString hint_;
  QToolButton* open_;
  QString file_;  // that the button opens
  ProgressBar* progress_;
  QString path_;
  std::array<QLabel*, 3> lockKeys_{};
};

}  // namespace tvx
