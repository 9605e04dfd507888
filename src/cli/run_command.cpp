// tvx-cli run: the multi-file run over a job list.

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/errors.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "jobs/job_list.h"
#include "platform/format.h"
#include "platform/scan.h"
#include "platform/text.h"
#include "shell/job_list_run.h"

namespace tvx {
namespace {

// The drawing area that the pictures of a run are fitted to, pixels.
constexpr int32_t kPictureWidth = 800;
constexpr int32_t kPictureHeight = 600;

// Reports what goes wrong and goes on. A file that is missing is never created here.
class RunReport final : public RunObserver {
 public:
  explicit RunReport(Host* host) : host_(host) {}

  void OnEntry(size_t index, size_t count, const std::string& name) override {
    ShowProgress(Format("%zu/%zu %s", index + 1, count, name.c_str()));
  }
  bool MayLoad(const std::string& path) override {
    return host_->files->OpenForReading(path) != nullptr;
  }
  void OnLoadFailed(const std::string& path) override { Report(path, "cannot be loaded"); }
  void OnMasterFailed(const std::string& path) override {
    Report(path, "cannot be used as a master model");
  }

  bool failed() const { return failed_; }

 private:
  void Report(const std::string& path, const char* reason) {
    // In place of the program's own message, which does not name the file.
    host_->ui.DropMessage();
    ShowProgress("");
    std::fprintf(stderr, "tvx-cli: %s: %s\n", path.c_str(), reason);
    failed_ = true;
  }

  Host* host_;
  bool failed_ = false;
};

// A .mcf list comes back with the drive that it lies on; any other list stands as it is.
JobList ReadList(const Host& host, const std::string& drivePath, const std::string& argument) {
  std::string bytes;
  if (!ReadWholeFile(host.files.get(), drivePath, &bytes))
    throw Failure{argument, "cannot be read"};
  constexpr size_t kEnding = 4;
  const bool isMcf = drivePath.size() >= kEnding &&
                     EqualNoCase(drivePath.substr(drivePath.size() - kEnding), ".mcf");
  return ReadJobList(DecodeCp949(bytes), isMcf ? std::optional(drivePath[0]) : std::nullopt);
}

// The list enters the working record as an accepted job dialog leaves it there.
void AcceptList(const JobList& list, bool pictures, CTVXView* view) {
  JobRecord& job = view->job;
  job.KeyCodeOn = job.KeyCodeCount = job.RestartOn = job.FirstEditable = 0;
  job.MetafileCreateChk = pictures ? 1 : 0;
  job.FileNames.assign(kJobListSlots, "");
  job.OptionLines.assign(kJobListSlots, "");
  for (size_t i = 0; i < list.size(); ++i) {
    job.FileNames[i] = list.names[i];
    job.OptionLines[i] = list.lines[i];
  }
  OnResize(&view->view.transform, kPictureWidth, kPictureHeight);
  PrepareDevice(&view->view.transform);
}

void PrintTable(const ResultTable& results) {
  float total = 0;
  Print("  cut mm  rapid mm   cut min  rapid min  total min  feed  file\n");
  for (int32_t i = 0; i < results.entryCount; ++i) {
    const CutTimeEntry& entry = results.entries[static_cast<size_t>(i)];
    Print(Format("%8.1f  %8.1f  %8.2f  %9.2f  %9.2f  %4d  %s\n", entry.cutLength, entry.rapidLength,
                 entry.cutMinutes, entry.rapidMinutes, entry.totalMinutes, entry.averageFeed,
                 entry.fileName.c_str()));
    total += entry.totalMinutes;
  }
  Print(Format("total time %.2f min\n", total));
}

Json ResultsJson(const ResultTable& results) {
  Json array = Json::array();
  for (int32_t i = 0; i < results.entryCount; ++i) {
    array.push_back(FieldsJson(results.entries[static_cast<size_t>(i)], EntryFields()));
  }
  return array;
}

}  // namespace

int RunJobs(const Call& call) {
  Params params;
  bool json = false, pictures = false, noPictures = false;
  std::string argument;
  CommandLine line(call, "Runs a job list: a .mcf list, or a saved list (any other ending).");
  params.AddTo(&line);
  line.AddFlag("--json", &json, "print one JSON document");
  line.AddFlag("--pictures", &pictures, "write a picture of each file into the current folder");
  line.AddFlag("--no-pictures", &noPictures, "write none (the default)");
  line.AddArgument("LIST", &argument, "job list");
  line.Parse();
  params.Check();

  Host host(call);
  const JobList list = ReadList(host, host.ReadablePath(argument), argument);
  CTVXView view(&host.app);
  params.Apply(&host, &view);
  AcceptList(list, pictures && !noPictures, &view);
  RunReport report(&host);
  RunAcceptedList(&view, &report);
  ShowProgress("");
  if (json) {
    Print(JsonText(ResultsJson(view.results)));
  } else {
    PrintTable(view.results);
  }
  return report.failed() ? 1 : 0;
}

}  // namespace tvx
