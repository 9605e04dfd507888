// Writes one of the generated NC programs to a file, for inspection or for manual measurements.
#include <charconv>
#include <cstdio>
#include <string_view>

#include "programs.h"

namespace {

template <typename Number>
bool ReadNumber(std::string_view text, Number lowest, Number* number) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size() || !(value >= lowest)) return false;
  *number = value;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  tvx::bench::ProgramOptions options;
  const bool good = (argc == 4 || argc == 5) && tvx::bench::FindKind(argv[1], &options.kind) &&
                    ReadNumber<uint64_t>(argv[2], 20, &options.lines) &&
                    (argc == 4 || ReadNumber<double>(argv[3], 0.001, &options.spacing));
  if (!good) {
    std::fprintf(stderr,
                 "usage: bench_generate raster|arcs|conversational LINES [SPACING] FILE\n"
                 "LINES from 20 on; SPACING from one point to the next in mm, 0.1 if not given\n");
    return 2;
  }
  const char* const file = argv[argc - 1];
  if (!tvx::bench::WriteProgram(options, file)) {
    std::fprintf(stderr, "bench_generate: cannot write %s\n", file);
    return 1;
  }
  return 0;
}
