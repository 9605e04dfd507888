// tvx-cli: the program without a window. What decides something lives in the core; here an argument
// goes in and a line comes out.

#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/nearest_name.h"
#include "cli/output.h"
#include "cli/tool_progress.h"
#include "cli/tool_text.h"
#include "platform/termination.h"

namespace tvx {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kWrongCall = 2 };

constexpr Message kHelp{
    "tvx-cli [--home DIR] COMMAND [OPTIONS] ARGUMENTS\n\n"
    "  --home DIR  드라이브가 있는 폴더 (기본: $TVX_HOME, 없으면\n"
    "              $XDG_DATA_HOME/tvx, 없으면 ~/.local/share/tvx)\n"
    "  --version   버전 출력\n\n"
    "명령 (자세한 내용은 'tvx-cli COMMAND --help'):\n",
    "tvx-cli [--home DIR] COMMAND [OPTIONS] ARGUMENTS\n\n"
    "  --home DIR  the folder that holds the drives (default: $TVX_HOME, else\n"
    "              $XDG_DATA_HOME/tvx, else ~/.local/share/tvx)\n"
    "  --version   print the version\n\n"
    "Commands ('tvx-cli COMMAND --help' tells more):\n"};

std::string HelpText() {
  std::string text = Say(kHelp);
  for (const ToolCommand& command : ToolCommands()) {
    std::string name = command.name;
    name.resize(std::max<size_t>(name.size(), 20), ' ');
    text += "  " + name + " " + Say(command.summary) + "\n";
  }
  return text;
}

constexpr Message kUnknownCommand{"없는 명령입니다: '{name}'", "unknown command '{name}'"};

bool IsHelp(const std::string& word) {
  return word == "--help" || word == "-h";
}

// Takes the options that stand before the command from the front of *words.
std::string TakeHome(std::vector<std::string>* words) {
  std::string home;
  bool isGiven = false;
  while (!words->empty() && words->front().starts_with("-")) {
    const std::string word = words->front();
    words->erase(words->begin());
    if (IsHelp(word)) throw HelpWanted{HelpText()};
    if (word == "--version") throw HelpWanted{kVersionText};
    isGiven = true;
    if (word.starts_with("--home=")) {
      home = word.substr(7);
    } else if (word == "--home" && !words->empty()) {
      home = words->front();
      words->erase(words->begin());
    } else if (word == "--home") {
      break;
    } else {
      throw WrongCall{Say(kUnknownOption, {{"name", word}}) +
                      DidYouMean(word, {"--home", "--help", "--version"})};
    }
  }
  // An empty one is most likely a variable that is not set.
  if (isGiven && home.empty())
    throw WrongCall{Say({"--home에는 폴더가 필요합니다", "--home needs a folder"})};
  return home;
}

// Takes the name of a command, of one or two words, from the front of *words.
const ToolCommand& TakeCommand(std::vector<std::string>* words) {
  if (words->empty())
    throw WrongCall{Say({"명령이 없습니다. 'tvx-cli --help'를 보십시오",
                         "no command given; 'tvx-cli --help' lists them"})};
  const std::string one = words->front();
  const std::string two = words->size() > 1 ? one + " " + (*words)[1] : one;
  std::vector<std::string> names;
  std::vector<std::string> secondWords;
  for (const ToolCommand& command : ToolCommands()) {
    const std::string name = command.name;
    if (name == one || name == two) {
      words->erase(words->begin(), words->begin() + (name == one ? 1 : 2));
      return command;
    }
    names.push_back(name);
    if (name.starts_with(one + " ")) secondWords.push_back(name.substr(one.size() + 1));
  }
  if (secondWords.empty()) {
    // A family name alone is near too: "conditon show" against "condition show".
    std::string guess = DidYouMean(two, names);
    if (guess.empty()) guess = DidYouMean(one, names);
    throw WrongCall{Say(kUnknownCommand, {{"name", one}}) + guess};
  }
  std::string known;
  for (const std::string& word : secondWords) known += (known.empty() ? "" : ", ") + word;
  if (words->size() == 1) {
    throw WrongCall{Say(
        {"{name}: 다음 중 하나가 이어져야 합니다: {words}", "{name}: one of {words} must follow"},
        {{"name", one}, {"words", known}})};
  }
  if (IsHelp((*words)[1])) throw HelpWanted{HelpText()};
  throw WrongCall{Say(kUnknownCommand, {{"name", two}}) + DidYouMean(two, names)};
}

int RunCommand(std::vector<std::string> words) {
  Call call;
  call.home = TakeHome(&words);
  const ToolCommand& command = TakeCommand(&words);
  call.command = command.name;
  call.arguments = std::move(words);
  return command.run(call);
}

int Run(std::vector<std::string> words) {
  int status = kDone;
  try {
    status = RunCommand(std::move(words));
  } catch (const HelpWanted& help) {
    Print(help.text);
  }
  FinishOutput();
  return status;
}

int RunAndReport(std::vector<std::string> words) {
  try {
    return Run(std::move(words));
  } catch (const WrongCall& wrong) {
    PrintRemark(wrong.message);
    return kWrongCall;
  } catch (const Failure& failure) {
    PrintRemark(failure.file + ": " + failure.reason);
    return kFailed;
  } catch (const Interrupted&) {
    PrintRemark(Say({"중지했습니다", "interrupted"}));
    return kFailed;
  } catch (const std::bad_alloc&) {
    EndOutOfMemory();
  } catch (const std::exception& error) {
    PrintRemark(Subject() + std::string(": ") + error.what());
    return kFailed;
  }
}

// Before any object with static lifetime allocates. An exception could not pass a destructor or
// the C library's callbacks, and would itself need memory.
[[gnu::constructor(101)]] void PrepareForNoMemory() {
  SetProgramName("tvx-cli");
  std::set_new_handler(EndOutOfMemory);
}

}  // namespace
}  // namespace tvx

int main(int count, char** words) {
  tvx::PrepareProcess();
  return tvx::RunAndReport(std::vector<std::string>(words + (count > 0 ? 1 : 0), words + count));
}
