// tvx-cli run: the multi-file run over a job list.

#include <cerrno>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/format.h"
#include "base/path_text.h"
#include "base/scan.h"
#include "base/text.h"
#include "cli/check_note.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/csv_option.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/machine_option.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/time_totals.h"
#include "insight/machine_time.h"
#include "jobs/job_list.h"
#include "platform/drives.h"
#include "reports/cut_time_list.h"
#include "reports/job_list_file.h"
#include "reports/job_sheet.h"
#include "reports/result_csv.h"
#include "reports/result_workbook.h"
#include "reports/spreadsheet_export.h"
#include "reports/text_report.h"
#include "shell/job_list_run.h"
#include "shell/result_details.h"

namespace tvx {
namespace {

// The drawing area that the pictures of a run are fitted to, pixels.
constexpr int32_t kPictureWidth = 800;
constexpr int32_t kPictureHeight = 600;

// The tail of an error line: the reason of the step that failed, if it worked on a file.
std::string MasterReason(const MasterOutcome& outcome, const CTVXView& view) {
  if (outcome.load != LoadResult::kLoaded) return ": " + LoadProblem(outcome.load, view);
  const int error = view.app->files->LastError();
  const bool isFileAtFault = outcome.file == MasterFileResult::kCannotOpen ||
                             outcome.file == MasterFileResult::kCannotWrite ||
                             outcome.file == MasterFileResult::kDiskFull;
  return isFileAtFault && error != 0 ? ": " + FileErrorText(error) : "";
}

// Prints what fails.
class RunReport final : public RunObserver {
 public:
  // The profile of a machine whose time is wanted, if any, has to outlive the run.
  RunReport(const std::optional<MachineProfile>& machine, CTVXView* view)
      : machine_(machine), view_(*view) {}

  // Each entry is read with the modal state of a new process.
  void ReadFresh() { isFresh_ = true; }

  void OnEntry(size_t index, size_t count, const std::string& name) override {
    ShowProgress(Format("%zu/%zu %s", index + 1, count, name.c_str()));
    if (isFresh_) ForgetModalState(&view_);
  }
  void OnLoad(const std::string& path) override {
    const auto [found, isNew] = checks_.try_emplace(path);
    if (!isNew) return;
    const bool wantsCheck = machine_.has_value() || view_.results.wanted.sheet;
    try {
      found->second = NoteRemarks({path, path}, view_, wantsCheck);
    } catch (const Failure& failure) {
      Report(failure.file, failure.reason);
    }
  }
  void OnLoaded() override { programmed_ = TakeProgrammedTime(&view_); }
  void OnRecorded(const std::string& path) override {
    const float after = view_.fileInfo.current.totalMinutes;
    totals_.Add(programmed_.minutes, after);
    if (view_.job.AfaEnabled == 1) NoteLongerTime(path, programmed_, after, view_.job.MaxFeed);
    const std::optional<ProgramCheck>& check = checks_[path];
    if (machine_) {
      machineTimes_.push_back(ComputeMachineTime(&view_.program.store, *machine_, PausesOf(check)));
    }
    EntryDetails* const details = view_.results.Recorded().back().details.get();
    if (details == nullptr) return;
    if (machine_) details->machine = {*machine_, machineTimes_.back()};
    if (check) AddCheck(*check, details);
  }
  void OnStopped(const RunEnd& end) override {
    PrintRemark(Format("stopped after %zu of %zu files", end.done, end.count));
    failed_ = true;
  }
  void OnLoadFailed(const std::string& path, LoadResult result) override {
    if (view_.app->files->LastError() == ENOENT) {
      if (missing_++ == 0) missingFolder_ = PathBeforeName(path, kBackslash);
    }
    Report(path, LoadProblem(result, view_));
  }
  void OnMasterFailed(const std::string& path, const MasterOutcome& outcome) override {
    Report(path,
           "the master model cannot be read, built or written" + MasterReason(outcome, view_));
  }

  void OnPictureFailed(const std::string& name) override {
    Report(name, WriteProblem(view_.app->files->LastError()));
  }
  void OnMasterBuilt(const std::string& path) override {
    if (!IsQuiet()) PrintRemark(path + ": the master model was built");
  }

  void Report(const std::string& path, const std::string& reason) {
    const std::string line = path + ": " + reason;
    if (line != lastLine_) PrintRemark(line);  // the check and the load find the same
    lastLine_ = line;
    failed_ = true;
  }

  // If all files of the list are missing: says in one line where they were looked for.
  void NoteMissingFiles(const Host& host) const {
    if (missing_ == 0 || missing_ < view_.results.runEnd.done) return;
    const std::string folder = host.MachinePath(missingFolder_);
    PrintRemark("no file of the list was found; looked in " + missingFolder_ +
                (folder.empty() ? ", a drive that does not exist" : ", which is " + folder) +
                "; --home sets the folder of the drives, Dir in a line of the list the folder");
  }

  bool failed() const { return failed_; }
  const TimeTotals& totals() const { return totals_; }
  // One for each recorded entry; empty without a machine.
  const std::vector<MachineTime>& machineTimes() const { return machineTimes_; }

 private:
  const std::optional<MachineProfile>& machine_;
  CTVXView& view_;
  std::map<std::string, std::optional<ProgramCheck>> checks_;  // by path
  std::vector<MachineTime> machineTimes_;
  bool failed_ = false;
  bool isFresh_ = false;
  ProgrammedTime programmed_;  // of the entry in work
  TimeTotals totals_;
  size_t missing_ = 0;
  std::string missingFolder_;  // of the first one
  std::string lastLine_;       // the report before
};

// The lines of a .mcf list get the drive of the list file; those of any other list do not change.
JobList ReadList(const Host& host, const std::string& drivePath, const std::string& argument,
                 RunReport* report) {
  std::string bytes;
  if (!ReadSettings(host.files.get(), drivePath, &bytes))
    throw Failure{argument, ReadProblem(host.files->LastError())};
  constexpr size_t kEnding = 4;
  const bool isMcf = drivePath.size() >= kEnding &&
                     EqualNoCase(drivePath.substr(drivePath.size() - kEnding), ".mcf");
  ListReading reading =
      ReadJobList(DecodeCp949(bytes), isMcf ? std::optional(drivePath[0]) : std::nullopt);
  if (reading.problem != ListProblem::kNone) {
    throw Failure{argument, Format("line %zu: '%s' %s", reading.line, reading.word.c_str(),
                                   reading.problem == ListProblem::kName
                                       ? "is no plain file name"
                                       : "leads above the root of its drive or folder")};
  }
  if (reading.leftOut > 0) {
    report->Report(argument, Format("a list holds %zu files, the last %zu of this one are left out",
                                    kJobListSlots, reading.leftOut));
  }
  return std::move(reading.list);
}

// Puts the list into the working record, as an accepted job dialog does.
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

// `machineTimes` of the entries in their order; empty if no machine is given.
void PrintTable(const ResultTable& results, const std::vector<MachineTime>& machineTimes,
                const TimeTotals& totals) {
  const bool hasMachine = !machineTimes.empty();
  float total = 0;
  double machineTotal = 0;
  Print(std::string("  cut mm  rapid mm   cut min  rapid min  total min  feed  ") +
        (hasMachine ? "machine min  " : "") + "file\n");
  for (size_t i = 0; i < results.Recorded().size(); ++i) {
    const CutTimeEntry& entry = results.Recorded()[i];
    std::string machine;
    if (hasMachine) {
      machine = Format("%11.2f  ", machineTimes[i].totalMinutes);
      machineTotal += machineTimes[i].totalMinutes;
    }
    Print(Format("%8.1f  %8.1f  %8.2f  %9.2f  %9.2f  %4d  %s%s\n", entry.cutLength,
                 entry.rapidLength, entry.cutMinutes, entry.rapidMinutes, entry.totalMinutes,
                 entry.averageFeed, machine.c_str(), entry.fileName.c_str()));
    total += entry.totalMinutes;
  }
  Print(Format("total time %.2f min\n", total));
  if (hasMachine) Print(Format("machine time %.2f min\n", machineTotal));
  if (totals.programs > 1) Print(totals.Line(/*adjusts=*/true));
}

Json ResultsJson(const ResultTable& results, const std::vector<MachineTime>& machineTimes) {
  Json array = Json::array();
  for (size_t i = 0; i < results.Recorded().size(); ++i) {
    Json object = FieldsJson(results.Recorded()[i], EntryFields());
    if (!machineTimes.empty()) object["machine"] = MachineJson(machineTimes[i]);
    array.push_back(object);
  }
  return array;
}

void PrintInformation(const ResultTable& results) {
  const char* between = "";
  for (const CutTimeEntry& entry : results.Recorded()) {
    Print(between);
    for (const std::string& text : CutTimeListLines(entry)) Print(text + "\n");
    between = "\n";
  }
}

// The files to write from the results, as named on the command line.
struct Outputs {
  std::optional<std::string> report, list, listCopy, sheet, page, workbook;
  CsvOption csv;

  void AddTo(CommandLine* line) {
    line->AddOption("--report", &report, "OUT.tvx: write the text report");
    line->AddOption("--list", &list, "OUT.mcf: write the job list file");
    line->AddOption("--list-copy", &listCopy,
                    "OUT.mcf: write the job list file and copy the files of the list beside it");
    line->AddOption("--sheet", &sheet, "FILE: fill the first sheet of a workbook and save it");
    line->AddOption("--sheet-html", &page, "OUT.html: write the job sheet, one page to print");
    line->AddOption("--xlsx", &workbook,
                    "OUT.xlsx: write a workbook with pictures, without an office program");
    csv.AddTo(line);
  }
};

// The full drive path of a file to write.
std::string OutputPath(const Host& host, const std::string& argument) {
  return NormalDrivePath(host.DrivePath(argument));
}

void WriteOutput(const Host& host, const std::optional<std::string>& argument,
                 const std::function<bool(const std::string& path)>& write) {
  if (!argument) return;
  const std::string path = OutputPath(host, *argument);
  if (!write(path)) throw Failure{*argument, WriteProblem(host.files->LastError())};
}

// Returns false if a file could not be copied.
bool ReportFailedCopies(const std::vector<FailedCopy>& failed) {
  for (const FailedCopy& copy : failed) {
    PrintRemark(copy.source + ": cannot be copied to " + copy.destination + ": " +
                FileErrorText(copy.error));
  }
  return failed.empty();
}

bool WriteListCopy(const std::string& argument, const std::string& path, const ResultTable& results,
                   Files* files, std::vector<FailedCopy>* failed) {
  if (const auto same = FindSameName(path, results)) {
    throw Failure{argument, same->first + " and " + same->second + " have the same name"};
  }
  const size_t replaced = ProgramsToReplace(path, results, files).size();
  if (!WriteJobListFileCopy(path, results, files, failed)) return false;
  if (replaced > 0) {
    PrintRemark(argument + Format(": replaced %zu program%s that differed beside it", replaced,
                                  replaced == 1 ? "" : "s"));
  }
  return true;
}

void WriteSheet(const std::string& argument, const Host& host, ResultTable* results) {
  if (results->HasPart()) throw Failure{argument, WriteProblem(kPartSource)};
  const auto program = host.app.spreadsheets->Start(SpreadsheetForm::kFile);
  if (program == nullptr) throw Failure{argument, kNoSpreadsheetProgram};
  if (!WriteSpreadsheetFile(OutputPath(host, argument), results, program.get())) {
    const std::string problem = program->Problem();
    throw Failure{argument, problem.empty() ? "cannot be filled and saved" : problem};
  }
}

// Writes the spreadsheet last, since it rounds the figures of the results. Returns false if files
// of the list could not be copied; everything else was done.
bool WriteOutputs(const Outputs& outputs, const Host& host,
                  const std::vector<MachineTime>& machineTimes, ResultTable* results) {
  Files* const files = host.files.get();
  std::vector<FailedCopy> failed;
  WriteOutput(host, outputs.report,
              [&](const std::string& path) { return WriteTextReportFile(path, *results, files); });
  WriteOutput(host, outputs.list,
              [&](const std::string& path) { return WriteJobListFile(path, *results, files); });
  WriteOutput(host, outputs.listCopy, [&](const std::string& path) {
    return WriteListCopy(*outputs.listCopy, path, *results, files, &failed);
  });
  if (outputs.csv.path() != nullptr && results->HasPart()) {
    throw Failure{*outputs.csv.path(), WriteProblem(kPartSource)};
  }
  WriteOutput(host, outputs.page, [&](const std::string& path) {
    return WriteJobSheetFile(path, *results, host.app.LabelLanguage, files);
  });
  WriteOutput(host, outputs.workbook,
              [&](const std::string& path) { return WriteResultWorkbook(path, *results, files); });
  outputs.csv.Write(host, ResultsCsv(*results, machineTimes));
  const bool copied = ReportFailedCopies(failed);
  if (outputs.sheet) {
    ShowProgress(*outputs.sheet + ": filling");
    WriteSheet(*outputs.sheet, host, results);
  }
  return copied;
}

}  // namespace

int RunJobs(const Call& call) {
  Params params;
  Outputs outputs;
  MachineOption machineOption;
  bool json = false, information = false, pictures = false, noPictures = false, fresh = false;
  std::string argument;
  CommandLine line(call, "Runs a job list: a .mcf list, or a saved list (any other ending).");
  params.AddRecordOptionsTo(&line);
  line.AddFlag("--json", &json, "print one JSON document");
  line.AddFlag("--info", &information, "print the lines of the cut-time list for each file");
  outputs.AddTo(&line);
  machineOption.AddTo(&line);
  line.AddFlag("--pictures", &pictures, "write a picture of each file into the current folder");
  line.AddFlag("--no-pictures", &noPictures, "write none (the default)");
  line.AddFlag("--fresh", &fresh, kFreshHelp);
  line.AddArgument("LIST", &argument, "job list");
  line.Parse();
  params.Check();
  outputs.csv.Check();
  if (json && information) throw WrongCall{"--json and --info exclude each other"};

  Host host(call);
  ToolView view(&host);
  const std::optional<MachineProfile> machine = machineOption.Read(host);
  RunReport report(machine, &view);
  const JobList list = ReadList(host, host.ReadablePath(argument), argument, &report);
  params.Apply(&host, &view);
  AcceptList(list, pictures && !noPictures, &view);
  view.results.wanted = {.sheet = outputs.page.has_value(),
                         .workbook = outputs.workbook.has_value()};
  if (outputs.page) view.causes = std::make_unique<FeedCauses>();
  if (fresh) report.ReadFresh();
  RunAcceptedList(&view, &report);
  ShowProgress("");
  report.NoteMissingFiles(host);
  if (json) {
    Print(JsonText(ResultsJson(view.results, report.machineTimes())));
  } else if (information) {
    PrintInformation(view.results);
  } else {
    PrintTable(view.results, report.machineTimes(), report.totals());
  }
  EndIfInterrupted();  // the files are written from a whole run only
  const bool complete = WriteOutputs(outputs, host, report.machineTimes(), &view.results);
  return report.failed() || !complete ? 1 : 0;
}

}  // namespace tvx
