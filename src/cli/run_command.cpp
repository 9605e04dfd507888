// tvx-cli run: the multi-file run over a job list.

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/format.h"
#include "base/scan.h"
#include "base/text.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/machine_option.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/run_outputs.h"
#include "cli/run_report.h"
#include "cli/time_totals.h"
#include "cli/tool_text.h"
#include "jobs/job_list.h"
#include "reports/cut_time_list.h"
#include "session/job_list_run.h"

namespace tvx {
namespace {

// The drawing area that the pictures of a run are fitted to, pixels.
constexpr int32_t kPictureWidth = 800;
constexpr int32_t kPictureHeight = 600;

constexpr Message kNoPlainName{"{line}번 줄: 화일 이름이 아닙니다: '{word}'",
                               "line {line}: '{word}' is no plain file name"};
constexpr Message kAboveRoot{"{line}번 줄: 드라이브나 폴더의 맨 위보다 위를 가리킵니다: '{word}'",
                             "line {line}: '{word}' leads above the root of its drive or folder"};
constexpr Message kListFull{"리스트에는 화일이 {most}개까지 들어가므로 마지막 {count}개를 뺐습니다",
                            "a list holds {most} files, the last {count} of this one are left out"};

// The lines of a .mcf list get the drive of the list file; those of any other list do not change.
JobList ReadList(const Host& host, const std::string& drivePath, const std::string& argument,
                 RunReport* report) {
  const Result<std::string> bytes = ReadSettings(host.files.get(), drivePath);
  ThrowIfUnread(argument, bytes.status);
  const bool isMcf = EndsWithNoCase(drivePath, ".mcf");
  ListReading reading =
      ReadJobList(DecodeCp949(bytes.value), isMcf ? std::optional(drivePath[0]) : std::nullopt);
  if (reading.problem != ListProblem::kNone) {
    const bool isName = reading.problem == ListProblem::kName;
    throw Failure{argument, Say(isName ? kNoPlainName : kAboveRoot,
                                {{"line", reading.line}, {"word", reading.word}})};
  }
  if (reading.leftOut > 0) {
    report->Fail(argument, Say(kListFull, {{"most", kJobListSlots}, {"count", reading.leftOut}}));
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

void PrintTable(std::span<const ProgramResult> results, const TimeTotals& totals) {
  const bool hasMachine = !results.empty() && results.front().machine.has_value();
  float total = 0;
  double machineTotal = 0;
  const auto heading = [](const Message& title, size_t columns) {
    return PadLeft(Say(title), columns) + "  ";
  };
  Print(heading({"절삭 mm", "cut mm"}, 8) + heading({"급속 mm", "rapid mm"}, 8) +
        heading({"절삭 min", "cut min"}, 8) + heading({"급속 min", "rapid min"}, 9) +
        heading({"소요 min", "total min"}, 9) + heading({"피드", "feed"}, 4) +
        (hasMachine ? heading({"기계 min", "machine min"}, 11) : "") + Say({"화일", "file"}) +
        "\n");
  for (const ProgramResult& result : results) {
    const CutTimeEntry& entry = result.entry;
    std::string machine;
    if (const auto time = MachineTimeOf(result)) {
      machine = Format("%11.2f  ", time->totalMinutes);
      machineTotal += time->totalMinutes;
    }
    Print(Format("%8.1f  %8.1f  %8.2f  %9.2f  %9.2f  %4d  %s%s\n", entry.cutLength,
                 entry.rapidLength, entry.cutMinutes, entry.rapidMinutes, entry.totalMinutes,
                 entry.averageFeed, machine.c_str(), entry.fileName.c_str()));
    total += entry.totalMinutes;
  }
  const auto minutes = [](double value) { return Format("%.2f", value); };
  Print(Say({"전체 시간 {minutes} min\n", "total time {minutes} min\n"},
            {{"minutes", minutes(total)}}));
  if (hasMachine) {
    Print(Say({"기계시간 {minutes} min\n", "machine time {minutes} min\n"},
              {{"minutes", minutes(machineTotal)}}));
  }
  if (totals.programs > 1) Print(totals.Line(/*adjusts=*/true));
}

Json ResultsJson(std::span<const ProgramResult> results) {
  Json array = Json::array();
  for (const ProgramResult& result : results) {
    Json object = FieldsJson(result.entry, EntryFields());
    if (const auto time = MachineTimeOf(result)) object["machine"] = MachineJson(*time);
    array.push_back(object);
  }
  return array;
}

void PrintInformation(std::span<const ProgramResult> results) {
  const char* between = "";
  for (const ProgramResult& result : results) {
    Print(between);
    for (const std::string& text : CutTimeListLines(result.entry, Language::kKorean)) {
      Print(text + "\n");
    }
    between = "\n";
  }
}

}  // namespace

int RunJobs(const Call& call) {
  Params params;
  RunOutputs outputs;
  MachineOption machineOption;
  bool json = false, information = false, pictures = false, noPictures = false, fresh = false;
  std::string argument;
  CommandLine line(call, {"작업 리스트를 실행합니다: .mcf 리스트, 또는 저장한 리스트(다른 확장자).",
                          "Runs a job list: a .mcf list, or a saved list (any other ending)."});
  params.AddRecordOptionsTo(&line);
  line.AddFlag("--json", &json, kJsonHelp);
  line.AddFlag(
      "--info", &information,
      {"화일마다 결과 목록의 정보를 출력", "print the lines of the cut-time list for each file"});
  outputs.AddTo(&line);
  machineOption.AddTo(&line);
  line.AddFlag("--pictures", &pictures,
               {"현재 폴더에 화일마다 그림화일 쓰기",
                "write a picture of each file into the current folder"});
  line.AddFlag("--no-pictures", &noPictures,
               {"그림화일을 쓰지 않음 (기본)", "write none (the default)"});
  line.AddFlag("--fresh", &fresh, kFreshHelp);
  line.AddArgument("LIST", &argument, {"작업 리스트", "job list"});
  line.Parse();
  params.Check();
  outputs.Check();
  if (json && information) {
    throw WrongCall{
        Say({"--json과 --info는 함께 쓸 수 없습니다", "--json and --info exclude each other"})};
  }

  Host host(call);
  ToolView view(&host);
  host.app.machine = machineOption.Read(host);
  RunReport report(&view);
  const JobList list = ReadList(host, host.ReadablePath(argument), argument, &report);
  params.Apply(&host, &view);
  AcceptList(list, pictures && !noPictures, &view);
  view.wanted = Union(outputs.Needs(),
                      {.programmed = true, .machine = true, .check = host.app.machine.has_value()});
  if (view.wanted.causes) view.FollowCauses();
  if (fresh) report.ReadFresh();
  RunAcceptedList(&view, &report);
  ShowProgress("");
  report.NoteMissingFiles(host);
  const std::span<const ProgramResult> results = view.results.recorded;
  if (json) {
    Print(JsonText(ResultsJson(results)));
  } else if (information) {
    PrintInformation(results);
  } else {
    PrintTable(results, report.totals());
  }
  EndIfInterrupted();  // the files are written from a whole run only
  const bool complete = outputs.Write(host, results);
  return report.failed() || !complete ? 1 : 0;
}

}  // namespace tvx
