#pragma once

#include <string>

#include "platform/user_interface.h"

namespace tvx {

// A user who cannot be asked: messages go to standard error, dialogs and questions are refused.
//
// A message is held back until the next one or until the end, so that a command which knows more,
// such as the name of the file, can say it in its own words and drop the message.
class CliUserInterface : public UserInterface {
 public:
  ~CliUserInterface() override { PrintMessage(); }

  bool ShowMessage(const Message& message) override;
  bool RunModal(Dialog*) override { return false; }
  bool ChooseFile(const FileQuestion&, std::string*) override { return false; }
  void Repaint() override {}
  void ShowStatus(const std::string& text) override;

  // Forgets the message held back.
  void DropMessage() { held_.clear(); }

 private:
  void PrintMessage();

  std::string held_;
};

}  // namespace tvx
