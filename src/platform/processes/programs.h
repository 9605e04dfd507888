// The interface to other programs of the machine.
#pragma once

#include <string>

namespace tvx {

// Other programs of the machine.
class Programs {
 public:
  virtual ~Programs() = default;

  // Starts a program with one argument and does not wait for it. `program` is a name that the
  // system finds or a drive path, `path` a drive path. False if it cannot be started.
  virtual bool Start(const std::string& program, const std::string& path) = 0;

  // True if some program shows a window of this class. False where there is no window system.
  virtual bool HasWindowOfClass(const std::string& windowClass) = 0;

  // Has this program end once the command in work has returned.
  virtual void Quit() = 0;
};

// A machine without other programs: starts nothing, shows no windows, and does not quit.
Programs* NoPrograms();

}  // namespace tvx
