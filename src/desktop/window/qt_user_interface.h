// The user behind windows: message boxes, dialogs, file choosers, the status line.
#pragma once

#include <QWidget>
#include <string>

#include "desktop/language.h"
#include "desktop/window/progress_bar.h"
#include "platform/files/drives.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// The parts of the main window that the user interface needs.
class InterfaceWindow {
 public:
  virtual ~InterfaceWindow() = default;
  // The parent of a dialog that is opened now. Shows beforehand what the command has changed.
  virtual QWidget* ParentOfNewDialog() = 0;
  virtual void ShowStatusText(const QString& text) = 0;
  // Where long work is shown.
  virtual ProgressBar* WorkBar() = 0;
  // Offers to open a file of the host until the next text is shown.
  virtual void OfferToOpen(const QString& file) = 0;
};

class QtUserInterface final : public UserInterface {
 public:
  // Both outlive the object.
  QtUserInterface(const Drives* drives, Files* files) : drives_(drives), files_(files) {}

  // Until a window is set, messages have no parent and the status line is not shown.
  void SetWindow(InterfaceWindow* window);

  Language language() const override { return LanguageInUse(); }
  bool ShowMessage(const MessageBox& message) override;
  bool RunModal(Dialog* dialog) override;
  // Leaves the current directory of the program at the directory of the chosen file.
  bool ChooseFile(const FileQuestion& question, std::string* path) override;
  void ShowStatus(const std::string& text, const std::string& path) override;
  Progress* LongWork() override { return &progress_; }
  void OfferToOpen(const std::string& path) override;

 private:
  QWidget* Parent() const { return window_ == nullptr ? nullptr : window_->ParentOfNewDialog(); }
  QString StartDirectory(const FileQuestion& question) const;

  const Drives* drives_;
  Files* files_;
  InterfaceWindow* window_ = nullptr;
  WindowProgress progress_;
};

}  // namespace tvx
