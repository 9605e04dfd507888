// The parser library behind the options and arguments of a command.
#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/command.h"
#include "cli/nearest_name.h"
#include "cli/numbers.h"
#include "cli/output.h"

namespace tvx {
namespace {

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
    throw WrongCall{command + ": unexpected argument '" + *word + "'"};
  }
  const std::string name = word->substr(0, word->find('='));
  throw WrongCall{command + ": unknown option '" + name + "'" + DidYouMean(name, OptionNames(app))};
}

// What the parser found wrong, in our words where its own are of little help.
std::string Explain(const CLI::ParseError& error) {
  std::string text = error.what();
  const std::string name = text.substr(0, text.find(':'));
  if (error.get_name() == "ArgumentMismatch") {
    // "NAME was given a disallowed flag override", without the dashes
    if (text.find("flag override") != std::string::npos) {
      return "--" + text.substr(0, text.find(' ')) + " takes no value";
    }
    const bool tooMany = text.find("At Most") != std::string::npos;
    return name + (tooMany ? " is given more than once" : " needs a value");
  }
  if (error.get_name() == "ConversionError") {
    // "Could not convert: NAME = VALUE"
    const size_t nameStart = text.find("--"), equals = text.find(" = ");
    if (nameStart < equals && equals != std::string::npos) {
      return text.substr(nameStart, equals - nameStart) + ": '" + text.substr(equals + 3) +
             "' is no such number";
    }
  }
  return text;
}

}  // namespace

struct CommandLine::Parser {
  CLI::App app;
};

CommandLine::CommandLine(const Call& call, const std::string& description)
    : call_(call), parser_(std::make_unique<Parser>()) {
  parser_->app.name("tvx-cli " + call.command);
  parser_->app.description(description);
  parser_->app.allow_extras();
  parser_->app.set_version_flag("--version", kVersionText);
  parser_->app.add_flag_callback("--quiet", BeQuiet, "print errors only on standard error")
      ->disable_flag_override();
}

CommandLine::~CommandLine() = default;

void CommandLine::AddFlag(const std::string& name, bool* given, const std::string& description) {
  parser_->app.add_flag(name, *given, description)->disable_flag_override();
}

void CommandLine::AddOption(const std::string& name, std::optional<std::string>* value,
                            const std::string& description) {
  parser_->app.add_option(name, *value, description);
}

void CommandLine::AddOption(const std::string& name, std::optional<int>* value,
                            const std::string& description) {
  parser_->app.add_option(name, *value, description);
}

void CommandLine::AddOption(const std::string& name, std::optional<float>* value,
                            const std::string& description) {
  // The parser library would take "nan", "1e400" and an empty word.
  const auto read = [what = call_.command + ": " + name, value](const std::string& word) {
    *value = NumberOf(word, what);
  };
  parser_->app.add_option_function<std::string>(name, read, description)->type_name("FLOAT");
}

void CommandLine::AddRepeated(const std::string& name, std::vector<std::string>* values,
                              const std::string& description) {
  parser_->app.add_option(name, *values, description)->allow_extra_args(false);
}

void CommandLine::RequireOption(const std::string& name) {
  parser_->app.get_option(name)->required();
}

void CommandLine::AddArgument(const std::string& name, std::string* value,
                              const std::string& description) {
  parser_->app.add_option(name, *value, description)->required();
}

void CommandLine::AddArguments(const std::string& name, std::vector<std::string>* values,
                               const std::string& description) {
  parser_->app.add_option(name, *values, description)->required();
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
