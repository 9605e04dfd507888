// Opens the drives, maps path arguments and starts the application.

#include "cli/host.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>

#include "cli/output.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;

fs::path HomeOf(const Call& call) {
  return call.home.empty() ? Drives::DefaultHome() : fs::absolute(call.home);
}

// Of the lines that a window would show; Korean unless the environment asks for English.
int32_t LanguageOfEnvironment() {
  const char* const language = std::getenv("TVX_LANGUAGE");
  return language != nullptr && std::string_view(language) == "en" ? kEnglishLabels : kKoreanLabels;
}

}  // namespace

bool CliUserInterface::ShowMessage(const Message& message) {
  PrintRemark(message.text.substr(0, message.text.find_last_not_of("\n ") + 1));
  return message.buttons == MessageButtons::kOk;
}

void CliUserInterface::ShowStatus(const std::string& text, const std::string& path) {
  ShowProgress(path.empty() ? text : path + ": " + text);
}

Host::Host(const Call& call)
    : drives_(HomeOf(call)),
      files(MakeHostFiles(&drives_)),
      spreadsheets(&drives_),
      app(files.get(), &ui, NoPrograms(), &spreadsheets) {
  app.InitApplication(LanguageOfEnvironment());
}

std::string Host::DrivePath(const std::string& argument) const {
  if (argument.empty()) throw Failure{"''", "is no path"};
  if (HasDrive(argument)) return argument;
  const std::optional<std::string> path =
      drives_.FromHost(fs::absolute(argument).lexically_normal());
  if (!path) throw Failure{argument, "lies on no drive"};
  return *path;
}

std::string Host::ReadablePath(const std::string& argument) const {
  std::string path = DrivePath(argument);
  if (const char* const problem = ReadProblem(*this, path)) throw Failure{argument, problem};
  return path;
}

const char* ReadProblem(const Host& host, const std::string& drivePath) {
  if (host.files->IsDirectory(drivePath)) return "is a directory";
  if (!host.files->Exists(drivePath)) return "no such file";
  return host.files->OpenForReading(drivePath) == nullptr ? "cannot be read" : nullptr;
}

std::string WriteProblem(const Host& host, const std::string& drivePath) {
  return host.files->IsDirectory(drivePath) ? "is a directory" : "cannot be written";
}

}  // namespace tvx
