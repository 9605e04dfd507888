// Fuzzes the reader of machine files and writes the result back. The input is a machine file.

#include <optional>
#include <string>
#include <string_view>

#include "fuzz_world.h"
#include "insight/machine_profile.h"

namespace {

using namespace tvx;

// The line of this 1-based number, none if the text has fewer lines.
std::optional<std::string_view> LineOf(std::string_view text, int number) {
  for (int line = 1; line < number; ++line) {
    const size_t end = text.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    text.remove_prefix(end + 1);
  }
  return text.substr(0, text.find('\n'));
}

// The fault of a whole file has neither line nor key.
void CheckFault(const MachineFileFault& fault, std::string_view text) {
  Require((fault.line == 0) == fault.key.empty());
  if (fault.line == 0) return;
  const auto line = LineOf(text, fault.line);
  Require(line.has_value() && line->find(fault.key) != std::string_view::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text = AsText(data, size);
  FuzzFiles files(text);
  MachineProfile profile;
  const std::string before = MachineProfileText(profile);
  if (const auto fault = ReadMachineProfile("c:\\fuzz.machine", &files, &profile)) {
    CheckFault(*fault, text);
    Require(MachineProfileText(profile) == before);
    return 0;
  }
  const std::string written = MachineProfileText(profile);
  MachineProfile again;
  Require(!ParseMachineProfile(written, "", &again).has_value());
  Require(MachineProfileText(again) == written);
  return 0;
}
