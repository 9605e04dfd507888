#include "support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <string>

#include "support/temp_dir.h"

namespace tvx {

CommaLocale::CommaLocale() {
  const TempDir folder;
  const auto source = folder.Put("comma.src",
                                 "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\n"
                                 "grouping 3;3\nEND LC_NUMERIC\n");
  // It warns of the other parts of a locale, which are missing on purpose.
  const std::string command = "localedef --no-archive --quiet -c -i " + source.string() + " " +
                              (folder / "comma").string() + " 2>/dev/null";
  if (std::system(command.c_str()) == -1) return;
  setenv("LOCPATH", folder.Path().c_str(), 1);
  isSet_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  unsetenv("LOCPATH");
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace tvx
