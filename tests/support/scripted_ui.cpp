#include "support/scripted_ui.h"

#include <utility>

namespace tvx {

namespace {

// Takes the next prepared answer. False, with a test failure, if there is none.
template <typename Answer>
bool TakeNext(std::deque<Answer>* answers, const std::string& asked, Answer* answer) {
  if (answers->empty()) {
    ADD_FAILURE() << "no answer was prepared for: " << asked;
    return false;
  }
  *answer = std::move(answers->front());
  answers->pop_front();
  return true;
}

}  // namespace

ScriptedUi::~ScriptedUi() {
  EXPECT_EQ(dialogs_.size(), 0u) << "dialogs of the script that were never shown";
  EXPECT_EQ(answers_.size(), 0u) << "answers of the script that nobody asked for";
  EXPECT_EQ(files_.size(), 0u) << "files of the script that nobody asked for";
}

bool ScriptedUi::ShowMessage(const Message& message) {
  messages.push_back(message);
  log.push_back("message " + message.text);
  if (message.buttons == MessageButtons::kOk) return true;
  bool answer = false;
  return TakeNext(&answers_, log.back(), &answer) && answer;
}

bool ScriptedUi::RunModal(Dialog* dialog) {
  log.emplace_back("dialog");
  std::function<bool(Dialog*)> script;
  return TakeNext(&dialogs_, log.back(), &script) && script(dialog);
}

bool ScriptedUi::ChooseFile(const FileQuestion& question, std::string* path) {
  fileQuestions.push_back(question);
  log.push_back("file " + question.fileName);
  std::optional<std::string> chosen;
  if (!TakeNext(&files_, log.back(), &chosen) || !chosen) return false;
  *path = *chosen;
  return true;
}

void ScriptedUi::Repaint() {
  ++repaints;
  log.emplace_back("repaint");
}

void ScriptedUi::ShowStatus(const std::string& text) {
  statusTexts.push_back(text);
  log.push_back("status " + text);
}

}  // namespace tvx
