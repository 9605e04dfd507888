// Fuzzes the parser of option lines and builds a line from the result. The input is one option line
// in the encoding of a list file.

#include <algorithm>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fuzz_world.h"
#include "jobs/option_line.h"

namespace {

using namespace tvx;

void CheckKeyCodes(const JobRecord& job) {
  Require(job.KeyCodeCount == static_cast<int32_t>(job.KeyCodes.size()));
  Require(job.KeyCodeOn == 1 || job.KeyCodes.empty());
  std::string text;
  for (const std::string& word : job.KeyCodes) {
    Require(!word.empty() && word.find(' ') == std::string::npos);
    text += word + "\r\n";
  }
  Require(text == job.KeyCodeText);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string line = DecodeCp949(AsText(data, size));
  JobRecord job;
  LineFile file;
  ParseOptionLine(&job, line, &file);
  CheckKeyCodes(job);

  std::string directory;
  Require(LineDirectory(line, &directory) == 1);
  Require(directory.find(' ') == std::string::npos);

  // Parsing the built line finds at least the switches that were written, whatever the texts
  // contain.
  JobRecord again;
  ParseOptionLine(&again, BuildOptionLine(job, job, size, 1000), nullptr);
  CheckKeyCodes(again);
  Require(again.RestartOn >= job.RestartOn && again.AfaEnabled >= job.AfaEnabled);
  Require(again.DeleteM30 <= job.DeleteM30 && again.KeyCodeOn == 1);
  return 0;
}
