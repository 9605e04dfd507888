// The parser library behind the options and arguments of a command.
#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/command.h"
#include "cli/nearest_name.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/tool_text.h"

namespace tvx {
namespace {

constexpr Message kGivenTwice{"{name}: 한 번만 쓸 수 있습니다", "{name} is given more than once"};
constexpr Message kNeedsValue{"{name}: 값이 필요합니다", "{name} needs a value"};

std::vector<std::string> OptionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames())
      names.push_back(std::string("--").append(name));
    for (const std::string& name : option->get_snames())
      names.push_back(std::string("-").append(name));
  }
  return names;
}

// Words that no option or argument takes. Looked at before any other fault, since a misspelt option
// is often the cause of those.
void RefuseLeftOvers(const CLI::App& app, const std::string& command) {
  const std::vector<std::string> words = app.remaining();
  // "--" is the mark before arguments that begin with a dash.
  const auto word =
      std::find_if(words.begin(), words.end(), [](const std::string& w) { return w != "--"; });
  if (word == words.end()) return;
  if (word->size() < 2 || word->front() != '-') {
    throw WrongCall{Say(
        {"{command}: 필요 없는 인수입니다: '{word}'", "{command}: unexpected argument '{word}'"},
        {{"command", command}, {"word", *word}})};
  }
  const std::string name = word->substr(0, word->find('='));
  throw WrongCall{command + ": " + Say(kUnknownOption, {{"name", name}}) +
                  DidYouMean(name, OptionNames(app))};
}

// What the parser found wrong, in our words where its own are of little help.
std::string Explain(const CLI::ParseError& error) {
  std::string text = error.what();
  const std::string name = text.substr(0, text.find(':'));
  if (error.get_name() == "ArgumentMismatch") {
    // "NAME was given a disallowed flag override", without the dashes
    if (text.find("flag override") != std::string::npos) {
      return Say({"--{name}에는 값을 줄 수 없습니다", "--{name} takes no value"},
                 {{"name", text.substr(0, text.find(' '))}});
    }
    const bool tooMany = text.find("At Most") != std::string::npos;
    return Say(tooMany ? kGivenTwice : kNeedsValue, {{"name", name}});
  }
  if (error.get_name() == "ConversionError") {
    // "Could not convert: NAME = VALUE"
    const size_t nameStart = text.find("--"), equals = text.find(" = ");
    if (nameStart < equals && equals != std::string::npos) {
      return Say({"{name}: 맞는 수가 아닙니다: '{word}'", "{name}: '{word}' is no such number"},
                 {{"name", text.substr(nameStart, equals - nameStart)},
                  {"word", text.substr(equals + 3)}});
    }
  }
  return text;
}

}  // namespace

struct CommandLine::Parser {
  CLI::App app;
};

CommandLine::CommandLine(const Call& call, const Message& description)
    : call_(call), parser_(std::make_unique<Parser>()) {
  parser_->app.name("tvx-cli " + call.command);
  parser_->app.description(Say(description));
  parser_->app.allow_extras();
  parser_->app.get_formatter()->label("Usage", Say({"사용법", "Usage"}));
  parser_->app.get_formatter()->label("Positionals", Say({"인수", "Positionals"}));
  parser_->app.option_defaults()->group(Say({"옵션", "Options"}));
  parser_->app.set_help_flag("-h,--help",
                             Say({"이 도움말 출력", "Print this help message and exit"}));
  parser_->app.set_version_flag("--version", kVersionText,
                                Say({"버전 출력", "Display program version information and exit"}));
  parser_->app
      .add_flag_callback("--quiet", BeQuiet,
                         Say({"표준 오류에 오류만 출력", "print errors only on standard error"}))
      ->disable_flag_override();
}

CommandLine::~CommandLine() = default;

void CommandLine::AddFlag(const std::string& name, bool* given, const Message& description) {
  parser_->app.add_flag(name, *given, Say(description))->disable_flag_override();
}

void CommandLine::AddOption(const std::string& name, std::optional<std::string>* value,
                            const Message& description) {
  parser_->app.add_option(name, *value, Say(description));
}

void CommandLine::AddOption(const std::string& name, std::optional<int>* value,
                            const Message& description) {
  parser_->app.add_option(name, *value, Say(description));
}

void CommandLine::AddOption(const std::string& name, std::optional<float>* value,
                            const Message& description) {
  // The parser library would take "nan", "1e400" and an empty word.
  const auto read = [what = call_.command + ": " + name, value](const std::string& word) {
    *value = NumberOf(word, what);
  };
  parser_->app.add_option_function<std::string>(name, read, Say(description))->type_name("FLOAT");
}

void CommandLine::AddRepeated(const std::string& name, std::vector<std::string>* values,
                              const Message& description) {
  parser_->app.add_option(name, *values, Say(description))->allow_extra_args(false);
}

void CommandLine::RequireOption(const std::string& name) {
  parser_->app.get_option(name)->required();
}

void CommandLine::AddArgument(const std::string& name, std::string* value,
                              const Message& description) {
  parser_->app.add_option(name, *value, Say(description))->required();
}

void CommandLine::AddArguments(const std::string& name, std::vector<std::string>* values,
                               const Message& description) {
  parser_->app.add_option(name, *values, Say(description))->required();
}

void CommandLine::Parse() {
  std::vector<std::string> reversed(call_.arguments.rbegin(), call_.arguments.rend());
  for (std::string& word : reversed) {
    // A dash before a digit starts no option for the parser, one before a dot would.
    if (word.starts_with("-.")) word.insert(1, "0");
  }
  try {
    parser_->app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    throw HelpWanted{parser_->app.help()};
  } catch (const CLI::CallForVersion&) {
    throw HelpWanted{kVersionText};
  } catch (const CLI::ParseError& error) {
    RefuseLeftOvers(parser_->app, call_.command);
    throw WrongCall{call_.command + ": " + Explain(error)};
  }
  RefuseLeftOvers(parser_->app, call_.command);
}

}  // namespace tvx
