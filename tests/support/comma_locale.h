#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

#include "support/temp_dir.h"

namespace tvx {

// Gives the process a locale with a decimal comma, built on the spot, as the numbers of a program
// must not follow it; std::setlocale(LC_NUMERIC, "C") takes it back. False if this machine has no
// means to build it.
inline bool UseCommaLocale() {
  const TempDir folder;
  const auto source = folder.Put("comma.src",
                                 "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
                                 "grouping 3;3\nEND LC_NUMERIC\n");
  // It warns of the other parts of a locale, which are missing on purpose.
  const std::string command = "localedef --no-archive --quiet -c -i " + source.string() + " " +
                              (folder / "comma").string() + " 2>/dev/null";
  if (std::system(command.c_str()) == -1) return false;
  setenv("LOCPATH", folder.Path().c_str(), 1);
  const bool isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  unsetenv("LOCPATH");
  return isSet;
}

}  // namespace tvx
