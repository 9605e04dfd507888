// Machine time against the cut time of the same program: what the two passes over moves, corners
// and arcs add to a walk. Once with a usual machine, once with an acceleration so low that no move
// reaches its feed: no look-ahead may make that case slower.
#include <cstdio>
#include <memory>

#include "insight/machine_time.h"
#include "measuring.h"
#include "stats/cut_time.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

MachineProfile LazyMachine() {
  MachineProfile profile;
  profile.Name = "lazy";
  profile.Acceleration = {1e-6, 1e-6, 1e-6};
  return profile;
}

void Measure(LoadedProgram* loaded, ProgramKind kind, const MachineProfile& profile,
             int repetitions, const Table& table) {
  BlockStore* const store = &loaded->program.store;
  std::vector<double> cutTime, machineTime, ratios;
  CutTimeEntry entry;
  for (int i = 0; i < repetitions; ++i) {
    cutTime.push_back(Seconds([&] { ComputeCutTime(store, loaded->job, &entry); }));
    machineTime.push_back(Seconds([&] { Keep(ComputeMachineTime(store, profile)); }));
    ratios.push_back(machineTime.back() / cutTime.back());
  }
  const double toNanoseconds = 1e9 / store->blockCount;
  const double cut = Median(cutTime) * toNanoseconds;
  const double machine = Median(machineTime) * toNanoseconds;
  table.Row({std::string(KindName(kind)) + ", " + profile.Name, Grouped(store->blockCount),
             Fixed(cut, 2), Fixed(machine, 2), Fixed(machine - cut, 2), Fixed(Median(ratios), 2)});
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx;
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  std::printf("Machine time, times in ns per block. Ratio = machine time / cut time.\n");
  const Table table(
      {"program, machine", "blocks", "cut time", "machine time", "difference", "ratio"});
  const Workspace workspace;
  MachineProfile usual;
  usual.Name = "usual";
  for (const uint64_t blocks : options.sizes) {
    for (const ProgramKind kind : {ProgramKind::kRaster, ProgramKind::kArcs}) {
      const auto loaded = std::make_unique<LoadedProgram>();
      const std::string file =
          workspace.Put({.kind = kind, .lines = blocks, .spacing = options.spacing});
      loaded->Load(file, kind, workspace.HostFiles());
      for (const MachineProfile& profile : {usual, LazyMachine()}) {
        Measure(loaded.get(), kind, profile, options.repetitions, table);
      }
    }
  }
  return 0;
}
