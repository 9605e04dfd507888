// Fuzzes the reader of condition files and writes the result back. The input is a condition file.

#include <string>

#include "conditions/condition_file.h"
#include "fuzz_world.h"

namespace {

using namespace tvx;

// Reads a file over the defaults and returns what the writer makes of it.
std::string Rewritten(std::string_view bytes) {
  FuzzFiles files(bytes);
  JobRecord job;
  int32_t spindle = 1000;
  Require(ReadConditionFile("c:\\a.afa", &job, &spindle, &files).ok());
  Require(job.AfaByMaster == 0);
  Require(WriteConditionFile("c:\\b.afa", job, spindle, &files).ok());
  return files.written;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string written = Rewritten(AsText(data, size));
  Require(Rewritten(written) == written);
  return 0;
}
