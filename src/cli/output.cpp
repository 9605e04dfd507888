// Standard output and standard error of the tool.
#include "cli/output.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/text.h"
#include "cli/command.h"
#include "cli/tool_text.h"
#include "platform/processes/terminal.h"

namespace tvx {
namespace {

bool progressShown = false;
bool isQuiet = false;
int outputError = 0;  // errno of the first failure on standard output

// A name out of a damaged list can hold anything.
char WithoutControls(char c) {
  return static_cast<unsigned char>(c) < ' ' ? '?' : c;
}

void NoteOutput(bool done) {
  if (!done && outputError == 0) outputError = errno != 0 ? errno : EIO;
}

}  // namespace

void Print(std::string_view text) {
  ShowProgress("");
  const std::string shown = ShownText(text);
  NoteOutput(std::fwrite(shown.data(), 1, shown.size(), stdout) == shown.size());
}

std::string Printable(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; }, '?');
  return text;
}

void PrintRemark(std::string text) {
  std::ranges::transform(text, text.begin(), WithoutControls);
  ShowProgress("");
  std::fprintf(stderr, "tvx-cli: %s\n", ShownText(text).c_str());
}

void BeQuiet() {
  isQuiet = true;
}

bool IsQuiet() {
  return isQuiet;
}

void FinishOutput() {
  ShowProgress("");
  NoteOutput(std::fflush(stdout) == 0);
  NoteOutput(std::fclose(stdout) == 0);
  if (outputError != 0) {
    throw Failure{Say({"표준 출력", "standard output"}),
                  Say({"쓸 수 없습니다: {reason}", "could not be written: {reason}"},
                      {{"reason", std::strerror(outputError)}})};
  }
}

void ShowProgress(const std::string& text) {
  static const bool terminal = StandardErrorIsTerminal();
  if (!terminal || isQuiet || (text.empty() && !progressShown)) return;
  // Back to the start of the line, and what stood there erased.
  std::fprintf(stderr, "\r\033[K%s", text.c_str());
  std::fflush(stderr);
  progressShown = !text.empty();
}

}  // namespace tvx
