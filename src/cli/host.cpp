// Opens the drives, maps path arguments and starts the application.

#include "cli/host.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "cli/output.h"
#include "platform/termination.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;

fs::path Absolute(const std::string& argument) {
  std::error_code error;
  const fs::path path = fs::absolute(argument, error);
  if (error) throw Failure{argument, error.message()};
  return path;
}

fs::path HomeOf(const Call& call) {
  return call.home.empty() ? Drives::DefaultHome() : Absolute(call.home);
}

// Of the lines that a window would show; Korean unless the environment asks for English.
int32_t LanguageOfEnvironment() {
  const char* const language = std::getenv("TVX_LANGUAGE");
  return language != nullptr && std::string_view(language) == "en" ? kEnglishLabels : kKoreanLabels;
}

std::string Problem(const char* what, int error) {
  if (error == 0) return what;
  if (error == EISDIR) return "is a directory";
  if (error == kNoPlainFile || error == kFileChanged || error == kAboveLimit) {
    return FileErrorText(error);
  }
  return what + (": " + FileErrorText(error));
}

// First of all: what is read or written without the converter is not what the files hold.
const Call& CheckConverter(const Call& call) {
  if (!HasCp949()) {
    throw Failure{"CP949",
                  "the system has no converter for Korean text; it is in the package libc6, or "
                  "libc-gconv-modules-extra where that exists: install it"};
  }
  return call;
}

}  // namespace

bool CliUserInterface::ShowMessage(const MessageBox& message) {
  PrintRemark(message.text.substr(0, message.text.find_last_not_of("\n ") + 1));
  return message.buttons == MessageButtons::kOk;
}

void CliUserInterface::ShowStatus(const std::string& text, const std::string& path) {
  ShowProgress(path.empty() ? text : path + ": " + text);
}

Host::Host(const Call& call)
    : drives_(HomeOf(CheckConverter(call))),
      files(MakeHostFiles(&drives_)),
      spreadsheets(&drives_),
      app(files.get(), &ui, NoPrograms(), &spreadsheets) {
  if (drives_.TableError() != 0) {
    throw Failure{(HomeOf(call) / "drives.txt").string(), ReadProblem(drives_.TableError())};
  }
  app.InitApplication(LanguageOfEnvironment());
  CheckSettings();
}

void Host::CheckSettings() const {
  if (app.unread.empty()) return;
  throw Failure{app.unread.front().path, ReadProblem(app.unread.front().error)};
}

std::string Host::DrivePath(const std::string& argument) const {
  if (argument.empty()) throw Failure{"''", "is no path"};
  SetSubject(argument);
  if (HasDrive(argument)) return argument;
  const std::optional<std::string> path = drives_.FromHost(Absolute(argument).lexically_normal());
  if (!path) throw Failure{argument, "lies on no drive"};
  return *path;
}

std::string Host::ReadablePath(const std::string& argument) const {
  std::string path = DrivePath(argument);
  if (files->OpenForReading(path) == nullptr) {
    throw Failure{argument, ReadProblem(files->LastError())};
  }
  return path;
}

std::string Host::ProgramPath(const std::string& argument) const {
  if (argument != kStandardInput) return ReadablePath(argument);
  if (input_ == nullptr) input_ = std::make_unique<StandardInput>();
  if (input_->error() != 0) {
    throw Failure{argument,
                  "cannot be copied to a temporary file: " + FileErrorText(input_->error())};
  }
  const std::optional<std::string> path = drives_.FromHost(input_->path());
  if (!path) throw Failure{argument, "has its temporary file on no drive"};
  return *path;
}

std::string Host::MachinePath(const std::string& drivePath) const {
  const std::optional<fs::path> path = drives_.ToHost(drivePath);
  return path ? path->string() : std::string();
}

std::string ReadProblem(int error) {
  if (error == ENOENT || error == ENOTDIR) return "no such file";
  return Problem("cannot be read", error);
}

std::string WriteProblem(int error) {
  return Problem("cannot be written", error);
}

}  // namespace tvx
