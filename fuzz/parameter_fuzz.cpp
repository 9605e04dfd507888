// Fuzzes the reader of the parameter file and writes the result back. The input is the file.

#include <string>

#include "fuzz_world.h"
#include "settings/parameter_file.h"

namespace {

using namespace tvx;

// Reads a file over the defaults and returns what the writer makes of it.
std::string Rewritten(std::string_view bytes) {
  FuzzFiles files(bytes);
  JobRecord job;
  Require(ReadParameterFile("c:", &job, &files).ok());
  Require(WriteParameterFile("c:", job, &files).ok());
  return files.written;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string written = Rewritten(AsText(data, size));
  Require(Rewritten(written) == written);
  return 0;
}
