// Other programs of this machine.
#pragma once

#include <filesystem>
#include <functional>

#include "platform/files/drives.h"
#include "platform/processes/programs.h"

namespace tvx {

// The other programs of this machine. Windows are looked for on the X display of the environment,
// by the class or the instance name of WM_CLASS; without one, or without libxcb in the build, none
// is found. An editor that the host does not have is replaced by the desktop's own opener, for a
// text alone: what could be run is not opened.
class HostPrograms final : public Programs {
 public:
  // The drives have to outlive the object; `quit` is what Quit does.
  HostPrograms(const Drives* drives, std::function<void()> quit)
      : drives_(drives), quit_(std::move(quit)) {}

  bool Start(const std::string& program, const std::string& path) override;
  bool HasWindowOfClass(const std::string& windowClass) override;
  void Quit() override { quit_(); }

 private:
  const Drives* drives_;
  std::function<void()> quit_;
};

// True if a program that shows a window would find a display, as far as this build can tell.
bool HasDisplay();

// The folder of this program's own executable; empty if the system does not tell.
std::filesystem::path ProgramFolder();

}  // namespace tvx
