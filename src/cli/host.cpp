#include "cli/host.h"

#include <filesystem>
#include <optional>

#include "cli/errors.h"

namespace tvx {
namespace {

namespace fs = std::filesystem;

fs::path HomeOf(const Call& call) {
  return call.home.empty() ? Drives::DefaultHome() : fs::absolute(call.home);
}

}  // namespace

Host::Host(const Call& call)
    : drives_(HomeOf(call)), files(MakeHostFiles(&drives_)), app(files.get(), &ui) {
  app.InitApplication();
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
  if (files->IsDirectory(path)) throw Failure{argument, "is a directory"};
  if (!files->Exists(path)) throw Failure{argument, "no such file"};
  if (files->OpenForReading(path) == nullptr) throw Failure{argument, "cannot be read"};
  return path;
}

std::string WriteProblem(const Host& host, const std::string& drivePath) {
  return host.files->IsDirectory(drivePath) ? "is a directory" : "cannot be written";
}

}  // namespace tvx
