// A user interface for tests that plays prepared answers and records what was shown.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/user_interface.h"
#include "session/changes.h"

namespace tvx {

// A test prepares the answers in the order of the questions, runs the program and compares what was
// shown. A question without a prepared answer is a test failure and is answered by a refusal; an
// answer that is left over is a test failure too.
class ScriptedUi : public UserInterface {
 public:
  ~ScriptedUi() override;

  // The next dialog: the script uses its fields and operations, and returns whether it is accepted.
  void OnDialog(std::function<bool(Dialog*)> script) { dialogs_.push_back(std::move(script)); }

  // The same for a dialog of class D; any other is a test failure.
  template <typename D>
  void OnDialog(std::function<bool(D*)> script) {
    OnDialog([script = std::move(script)](Dialog* dialog) {
      D* const expected = dynamic_cast<D*>(dialog);
      EXPECT_NE(expected, nullptr) << "another dialog than the script expects";
      return expected != nullptr && script(expected);
    });
  }

  // The answer to the next message with a choice. (One that only has an OK button needs no answer.)
  void OnMessage(bool answer) { answers_.push_back(answer); }

  // The next file question: this drive path is chosen, or it is cancelled.
  void OnFile(const std::string& path) { files_.emplace_back(path); }
  void OnFileCancel() { files_.emplace_back(std::nullopt); }

  // What was shown and asked, each kind in its order.
  std::vector<MessageBox> messages;
  std::vector<FileQuestion> fileQuestions;
  int repaints = 0;
  Language shownLanguage = Language::kKorean;

  // Counts and logs what is shown at once, as long as the subscription exists.
  [[nodiscard]] Subscription WatchRepaints(ChangeNotifier* changes);

  // All of it in one order, a line each: "message TEXT", "dialog", "file FILENAME", "repaint",
  // "status TEXT", "offer PATH".
  std::vector<std::string> log;

  Language language() const override { return shownLanguage; }
  bool ShowMessage(const MessageBox& message) override;
  bool RunModal(Dialog* dialog) override;
  bool ChooseFile(const FileQuestion& question, std::string* path) override;
  void ShowStatus(const std::string& text, const std::string& path) override;
  Progress* LongWork() override { return &work_; }
  void OfferToOpen(const std::string& path) override { log.push_back("offer " + path); }

  // The user's answer to each step of long work: false stops it.
  std::function<bool(const Progress::State&)> onWork = [](const Progress::State&) { return true; };

 private:
  struct Work final : Progress {
    explicit Work(ScriptedUi* owner) : Progress(std::chrono::milliseconds(0)), ui(owner) {}
    bool Show(const State& state) override { return ui->onWork(state); }
    void Hide() override {}
    ScriptedUi* ui;
  };

  Work work_{this};
  std::deque<std::function<bool(Dialog*)>> dialogs_;
  std::deque<bool> answers_;
  std::deque<std::optional<std::string>> files_;
};

}  // namespace tvx
