// Loads one generated program, adjusts its feeds and computes its cut time, once.
// scripts/bench-instructions runs it under valgrind. Prints the number of blocks.
#include <charconv>
#include <cstdio>
#include <memory>

#include "feed/feed_pass.h"
#include "measuring.h"
#include "stats/cut_time.h"
#include "workspace.h"

int main(int argc, char** argv) {
  using namespace tvx;
  bench::ProgramOptions options;
  const std::string_view lines = argc == 3 ? argv[2] : "";
  const auto [end, error] =
      std::from_chars(lines.data(), lines.data() + lines.size(), options.lines);
  if (argc != 3 || error != std::errc{} || end != lines.data() + lines.size() ||
      options.lines < 20 || !bench::FindKind(argv[1], &options.kind)) {
    std::fprintf(stderr, "usage: main_job raster|arcs|conversational LINES\n");
    return 2;
  }
  const bench::Workspace workspace;
  const auto loaded = std::make_unique<bench::LoadedProgram>();
  loaded->Load(workspace.Put(options), options.kind, workspace.HostFiles());
  FeedPassMemory memory;
  FeedPass(&loaded->program, loaded->job, nullptr, &memory);
  CutTimeEntry entry;
  ComputeCutTime(&loaded->program.store, loaded->job, &entry);
  bench::Keep(entry.totalMinutes);
  std::printf("%u\n", loaded->program.store.blockCount);
  return 0;
}
