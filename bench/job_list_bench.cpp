// Measures a run over a list of 300 files and compares it with direct calls of its steps: the
// overhead of the run beside load, feed pass, fit, cut time and pictures.
#include <cstdio>
#include <memory>

#include "feed/feed_pass.h"
#include "jobs/option_line.h"
#include "measuring.h"
#include "session/job_list_run.h"
#include "stats/cut_time.h"
#include "view/picture.h"
#include "view/view_transform.h"
#include "workspace.h"

namespace tvx::bench {

namespace {

constexpr int32_t kWidth = 800;  // pixels of the drawing area
constexpr int32_t kHeight = 600;

struct Case {
  const char* name;
  bool adjusted;
  bool pictures;
};
constexpr Case kCases[] = {{"adjusted, pictures", true, true},
                           {"adjusted", true, false},
                           {"as programmed, pictures", false, true},
                           {"as programmed", false, false}};

class FailedLoads final : public RunObserver {
 public:
  void OnLoadFailed(const std::string& path, const Status& /*load*/) override {
    Require(false, path);
  }
};

// One window with a list of kJobListSlots files, each with its own copy of a program.
class JobBench {
 public:
  explicit JobBench(uint64_t linesPerFile, const BenchOptions& options) {
    const std::string program = workspace_.Put({.lines = linesPerFile, .spacing = options.spacing});
    directory_ = program.substr(0, program.find_last_of('\\'));
    Files* const files = workspace_.HostFiles();
    Require(files->SetCurrentDirectory(directory_).ok(), "the folder cannot be entered");
    OnResize(&view_->view.transform, kWidth, kHeight);
    PrepareDevice(&view_->view.transform);
    for (size_t i = 0; i < kJobListSlots; ++i) {
      const std::string name = "job" + std::to_string(i) + ".nc";
      Require(files->Copy(program, directory_ + "\\" + name).ok(), "the program cannot be copied");
      view_->job.FileNames[i] = name;
    }
  }

  void Choose(const Case& row) {
    JobRecord options = view_->job;
    options.WorkDir = directory_;
    options.AfaEnabled = row.adjusted ? 1 : 0;
    view_->job.OptionLines.assign(kJobListSlots,
                                  BuildOptionLine(options, options, 1, std::nullopt));
    view_->job.MetafileCreateChk = row.pictures ? 1 : 0;
  }

  double Run() {
    view_->results.recorded.clear();
    FailedLoads observer;
    const double seconds = Seconds([&] { RunAcceptedList(view_.get(), &observer); });
    Require(view_->results.recorded.size() == kJobListSlots, "entries are missing");
    return seconds;
  }

  // The steps alone, with the options that the last run left in the working record.
  double Steps() {
    CTVXApp* const app = view_->app;
    BlockStore* const store = &view_->program.store;
    CutTimeEntry entry;
    return Seconds([&] {
      for (const std::string& name : view_->job.FileNames) {
        const Status loaded = LoadNcFile(directory_ + "\\" + name, &view_->program,
                                         &app->parserStates, &view_->job, app->files);
        Require(loaded.ok(), name);
        if (view_->job.AfaEnabled == 1) {
          FeedPass(&view_->program, view_->job, &view_->masterGrid, &app->feedPassMemory);
        }
        FitToPath(&view_->view.transform, store);
        ComputeCutTime(store, view_->job, &entry);
        if (view_->job.MetafileCreateChk == 1) {
          WritePicture(name + ".emf", {&view_->program, &view_->job, &view_->view}, app->files);
        }
      }
    });
  }

  // The fits alone. Every picture on the screen or in a file needs one.
  double Fits() {
    return Seconds([&] {
      for (size_t i = 0; i < kJobListSlots; ++i) {
        FitToPath(&view_->view.transform, &view_->program.store);
      }
    });
  }

 private:
  const Workspace workspace_;
  NoUser user_;
  CTVXApp app_{workspace_.HostFiles(), &user_};
  const std::unique_ptr<CTVXView> view_ = std::make_unique<CTVXView>(&app_);
  std::string directory_;
};

void Measure(JobBench* bench, const Case& row, uint64_t linesPerFile, const BenchOptions& options,
             const Table& table) {
  bench->Choose(row);
  bench->Run();  // allocates the memory, and leaves the options in the working record
  std::vector<double> steps, fits, runs, outside;
  for (int i = 0; i < options.repetitions; ++i) {
    steps.push_back(bench->Steps());
    runs.push_back(bench->Run());
    fits.push_back(bench->Fits());
    outside.push_back(100 * (runs.back() - steps.back()) / runs.back());
  }
  const double run = Median(runs);
  table.Row({row.name, Grouped(linesPerFile), Fixed(1e3 * Median(steps), 1), Fixed(1e3 * run, 1),
             Fixed(Median(outside), 1), Fixed(100 * Median(fits) / run, 1)});
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx;
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  std::printf("A run over %zu files; of its time, outside load, pass, fit, figures and pictures\n",
              kJobListSlots);
  const Table table({"List                   ", "lines/file", "steps, ms", "run, ms", "outside, %",
                     "the fit, %"});
  for (const uint64_t size : options.sizes) {
    const uint64_t linesPerFile = size / kJobListSlots;
    JobBench bench(linesPerFile, options);
    for (const Case& row : kCases) Measure(&bench, row, linesPerFile, options, table);
  }
  return 0;
}
