// Standard output and standard error of the tool.
#include "cli/output.h"

#include <algorithm>
#include <cstdio>

#include "base/text.h"
#include "cli/command.h"
#include "platform/terminal.h"

namespace tvx {
namespace {

bool progressShown = false;
bool isQuiet = false;

}  // namespace

void Print(std::string_view text) {
  ShowProgress("");
  const std::string shown = ShownText(text);
  std::fwrite(shown.data(), 1, shown.size(), stdout);
}

void PrintRemark(std::string text) {
  // A name out of a damaged list can hold anything.
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
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
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    throw Failure{"standard output", "could not be written"};
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
