#include "cli/cli_user_interface.h"

#include "cli/output.h"

namespace tvx {

bool CliUserInterface::ShowMessage(const Message& message) {
  PrintMessage();
  held_ = message.text;
  while (!held_.empty() && (held_.back() == '\n' || held_.back() == ' ')) held_.pop_back();
  return message.buttons == MessageButtons::kOk;
}

void CliUserInterface::ShowStatus(const std::string& text) {
  ShowProgress(text);
}

void CliUserInterface::PrintMessage() {
  if (held_.empty()) return;
  PrintRemark(held_);
  held_.clear();
}

}  // namespace tvx
