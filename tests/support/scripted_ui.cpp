// Answers of the script in their order, and the record of what was shown.
#include "support/scripted_ui.h"

#include <utility>

namespace tvx {

namespace {

// Takes the next prepared answer. Nothing, with a test failure, if there is none.
template <typename Answer>
std::optional<Answer> TakeNext(std::deque<Answer>* answers, const std::string& asked) {
  EXPECT_FALSE(answers->empty()) << "no answer was prepared for: " << asked;
  if (answers->empty()) return std::nullopt;
  Answer answer = std::move(answers->front());
  answers->pop_front();
  return answer;
}

}  // namespace

ScriptedUi::~ScriptedUi() {
  EXPECT_EQ(dialogs_.size(), 0u) << "dialogs of the script that were never shown";
  EXPECT_EQ(answers_.size(), 0u) << "answers of the script that nobody asked for";
  EXPECT_EQ(files_.size(), 0u) << "files of the script that nobody asked for";
}

bool ScriptedUi::ShowMessage(const MessageBox& message) {
  messages.push_back(message);
  log.push_back("message " + message.text);
  return message.buttons == MessageButtons::kOk || TakeNext(&answers_, log.back()).value_or(false);
}

bool ScriptedUi::RunModal(Dialog* dialog) {
  log.emplace_back("dialog");
  const auto script = TakeNext(&dialogs_, log.back());
  return script && (*script)(dialog);
}

bool ScriptedUi::ChooseFile(const FileQuestion& question, std::string* path) {
  fileQuestions.push_back(question);
  log.push_back("file " + question.fileName);
  const auto chosen = TakeNext(&files_, log.back()).value_or(std::nullopt);
  if (chosen) *path = *chosen;
  return chosen.has_value();
}

Subscription ScriptedUi::WatchRepaints(ChangeNotifier* changes) {
  return changes->Subscribe(kAllChanges, Timing::kAtOnce, [this](ChangeSet, Timing timing) {
    if (timing != Timing::kAtOnce) return;
    ++repaints;
    log.emplace_back("repaint");
  });
}

void ScriptedUi::ShowStatus(const std::string& text, const std::string& path) {
  log.push_back("status " + (path.empty() ? "" : path + ": ") + text);
}

}  // namespace tvx
