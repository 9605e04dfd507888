// Opens the drives, maps path arguments and starts the application.

#include "cli/host.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "cli/output.h"
#include "cli/tool_text.h"
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
Language LanguageOfEnvironment() {
  const char* const language = std::getenv("TVX_LANGUAGE");
  return language != nullptr && std::string_view(language) == "en" ? Language::kEnglish
                                                                   : Language::kKorean;
}

std::string Problem(const Message& what, const Status& failure) {
  if (failure.reason() == EISDIR) return Say({"디렉토리입니다", "is a directory"});
  if (failure.reason() == 0) {
    switch (failure.kind()) {
      case StatusKind::kReadFailed:
      case StatusKind::kWriteFailed:
        return Say(what);
      case StatusKind::kNoFile:
      case StatusKind::kChanged:
      case StatusKind::kTooLarge:
        return failure.Text(ToolLanguage());
      default:
        break;
    }
  }
  return Say(what) + ": " + failure.Text(ToolLanguage());
}

// First of all: what is read or written without the converter is not what the files hold.
const Call& CheckConverter(const Call& call) {
  if (!HasCp949()) {
    throw Failure{
        "CP949",
        Say({"시스템에 한글 변환기가 없습니다. libc6 꾸러미를, 있으면 libc-gconv-modules-extra "
             "꾸러미를 설치하십시오",
             "the system has no converter for Korean text; it is in the package libc6, or "
             "libc-gconv-modules-extra where that exists: install it"})};
  }
  return call;
}

}  // namespace

Language CliUserInterface::language() const {
  return LanguageOfEnvironment();
}

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
  ThrowIfUnread((HomeOf(call) / "drives.txt").string(), drives_.tableStatus());
  app.InitApplication(LanguageOfEnvironment());
  CheckSettings();
}

void Host::CheckSettings() const {
  for (const Status& file : app.unread) ThrowIfUnread(file.path(), file);
}

std::string Host::DrivePath(const std::string& argument) const {
  if (argument.empty()) throw Failure{"''", Say({"경로가 아닙니다", "is no path"})};
  SetSubject(argument);
  if (HasDrive(argument)) return argument;
  const std::optional<std::string> path = drives_.FromHost(Absolute(argument).lexically_normal());
  if (!path) throw Failure{argument, Say({"어느 드라이브에도 없습니다", "lies on no drive"})};
  return *path;
}

std::string Host::ReadablePath(const std::string& argument) const {
  std::string path = DrivePath(argument);
  ThrowIfUnread(argument, files->OpenForReading(path).status);
  return path;
}

std::string Host::ProgramPath(const std::string& argument) const {
  if (argument != kStandardInput) return ReadablePath(argument);
  if (input_ == nullptr) input_ = std::make_unique<StandardInput>();
  if (const Status& copied = input_->status(); !copied.ok()) {
    throw Failure{argument,
                  Say({"임시 화일에 복사할 수 없습니다: {reason}",
                       "cannot be copied to a temporary file: {reason}"},
                      {{"reason", copied.Text(ToolLanguage())}}),
                  copied};
  }
  const std::optional<std::string> path = drives_.FromHost(input_->path());
  if (!path) {
    throw Failure{argument, Say({"임시 화일이 어느 드라이브에도 없습니다",
                                 "has its temporary file on no drive"})};
  }
  return *path;
}

std::string Host::MachinePath(const std::string& drivePath) const {
  const std::optional<fs::path> path = drives_.ToHost(drivePath);
  return path ? path->string() : std::string();
}

std::string ReadProblem(const Status& failure) {
  if (failure.kind() == StatusKind::kMissing) return Say({"화일이 없습니다", "no such file"});
  return Problem({"읽을 수 없습니다", "cannot be read"}, failure);
}

std::string WriteProblem(const Status& failure) {
  return Problem({"쓸 수 없습니다", "cannot be written"}, failure);
}

void ThrowIfUnread(const std::string& argument, const Status& read) {
  if (!read.ok()) throw Failure{argument, ReadProblem(read), read};
}

void ThrowIfUnwritten(const std::string& argument, const Status& written) {
  if (!written.ok()) throw Failure{argument, WriteProblem(written), written};
}

}  // namespace tvx
