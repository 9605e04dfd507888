// tvx-cli time: what a program needs as programmed, and after the feed adjustment.

#include <optional>
#include <string>
#include <vector>

#include "base/csv.h"
#include "base/format.h"
#include "cli/check_note.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/csv_option.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/machine_option.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/time_totals.h"
#include "cli/tool_text.h"
#include "evaluate/program_result.h"
#include "reports/result_csv.h"

namespace tvx {
namespace {

struct Times {
  ProgramResult before;
  std::optional<ProgramResult> after;
};

Times TimeProgram(const ProgramFile& file, bool adjusts, CTVXView* view) {
  const auto check = NoteRemarks(file, *view, view->app->machine.has_value());
  LoadWholeProgram(file, view);
  Times times{EvaluateProgram(file, /*adjusts=*/false, check, view), std::nullopt};
  if (adjusts) {
    const ProgrammedTime before = {times.before.entry.totalMinutes, view->program.FeedBase};
    times.after = EvaluateProgram(file, /*adjusts=*/true, check, view);
    NoteLongerTime(file.argument, before, times.after->entry.totalMinutes, view->job.MaxFeed);
  }
  return times;
}

struct Figure {
  const char* name;
  float CutTimeEntry::*value;
};

constexpr Figure kFigures[] = {
    {"cutLength", &CutTimeEntry::cutLength},       {"rapidLength", &CutTimeEntry::rapidLength},
    {"cutMinutes", &CutTimeEntry::cutMinutes},     {"rapidMinutes", &CutTimeEntry::rapidMinutes},
    {"totalMinutes", &CutTimeEntry::totalMinutes},
};

Json FiguresJson(const ProgramResult& result) {
  const CutTimeEntry& entry = result.entry;
  Json object = Json::object();
  for (const Figure& figure : kFigures) object[figure.name] = SingleJson(entry.*figure.value);
  object["averageFeed"] = entry.averageFeed;
  if (const auto time = MachineTimeOf(result)) object["machine"] = MachineJson(*time);
  return object;
}

Json TimesJson(const ProgramFile& file, const Times& times) {
  Json object = {{"file", file.argument}, {"before", FiguresJson(times.before)}};
  if (times.after) object["after"] = FiguresJson(*times.after);
  return object;
}

// The keys of the JSON document, with a point between object and member.
std::string CsvNames(bool adjusts, bool hasMachine) {
  std::vector<std::string> row = {"file"};
  for (const std::string prefix : {"before.", "after."}) {
    if (prefix == "after." && !adjusts) continue;
    for (const Figure& figure : kFigures) row.push_back(prefix + figure.name);
    row.push_back(prefix + "averageFeed");
    if (hasMachine) AddMachineNames(prefix + "machine.", &row);
  }
  return CsvRow(row);
}

std::string CsvTimes(const ProgramFile& file, const Times& times) {
  std::vector<std::string> row = {CsvText(file.argument)};
  for (const ProgramResult* result : {&times.before, times.after ? &*times.after : nullptr}) {
    if (result == nullptr) continue;
    for (const Figure& figure : kFigures) row.push_back(CsvNumber(result->entry.*figure.value));
    row.push_back(std::to_string(result->entry.averageFeed));
    if (const auto time = MachineTimeOf(*result)) AddMachineValues(*time, &row);
  }
  return CsvRow(row);
}

// A row of the table for people: a figure before and after, and what became of the difference.
struct Row {
  Message label;
  const char* unit;
  float CutTimeEntry::*figure;
  bool isTime;
};

constexpr Row kRows[] = {
    {{"절삭길이", "cut length"}, "mm", &CutTimeEntry::cutLength, false},
    {{"급속이송길이", "rapid length"}, "mm", &CutTimeEntry::rapidLength, false},
    {{"절삭시간", "cut time"}, "min", &CutTimeEntry::cutMinutes, true},
    {{"급속이송시간", "rapid time"}, "min", &CutTimeEntry::rapidMinutes, true},
    {{"소요시간", "total time"}, "min", &CutTimeEntry::totalMinutes, true},
};

struct MachineRow {
  Message label;
  double MachineTime::*figure;
};

constexpr MachineRow kMachineRows[] = {
    {{"기계 절삭", "machine cut"}, &MachineTime::cutMinutes},
    {{"기계 급속이송", "machine rapid"}, &MachineTime::rapidMinutes},
    {{"기계 드웰", "machine dwell"}, &MachineTime::dwellMinutes},
    {{"기계 공구교환", "machine tools"}, &MachineTime::toolMinutes},
    {{"기계시간", "machine total"}, &MachineTime::totalMinutes},
};

std::string TableLine(const std::string& label, const std::string& unit, const std::string& before,
                      const std::string& after, const std::string& saved) {
  std::string line = "  " + PadRight(label, 14) + " " + PadRight(unit, 7);
  for (const std::string& figure : {before, after, saved}) line += " " + PadLeft(figure, 12);
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string MachineTable(const Times& times) {
  const auto timeBefore = MachineTimeOf(times.before);
  if (!timeBefore) return "";
  const auto timeAfter = times.after ? MachineTimeOf(*times.after) : std::nullopt;
  const auto minutes = [](double value) { return ShortestFloat(static_cast<float>(value)); };
  std::string text;
  for (const MachineRow& row : kMachineRows) {
    const double before = *timeBefore.*row.figure;
    std::string after, saved;
    if (timeAfter) {
      after = minutes(*timeAfter.*row.figure);
      saved = minutes(before - *timeAfter.*row.figure);
    }
    text += TableLine(Say(row.label), "min", minutes(before), after, saved);
  }
  return text;
}

std::string TimesTable(const ProgramFile& file, const Times& times) {
  std::string text = file.argument + "\n";
  const std::string programmed = Say({"조정 전", "programmed"});
  text += times.after
              ? TableLine("", "", programmed, Say({"조정 후", "adjusted"}), Say({"절약", "saved"}))
              : TableLine("", "", programmed, "", "");
  for (const Row& row : kRows) {
    const float before = times.before.entry.*row.figure;
    std::string after, saved;
    if (times.after) {
      after = ShortestFloat(times.after->entry.*row.figure);
      if (row.isTime) saved = ShortestFloat(before - times.after->entry.*row.figure);
    }
    text += TableLine(Say(row.label), row.unit, ShortestFloat(before), after, saved);
  }
  text += TableLine(Say({"평균절삭속도", "average feed"}), "mm/min",
                    std::to_string(times.before.entry.averageFeed),
                    times.after ? std::to_string(times.after->entry.averageFeed) : "", "");
  return text + MachineTable(times);
}

// A name that no program has is left out of the values. Of a program that is there and could not be
// read as a whole, nothing is known: values without it would pass for those of all programs.
bool IsOfAProgram(const Status& failure) {
  return !failure.ok() && failure.kind() != StatusKind::kMissing &&
         failure.kind() != StatusKind::kNoFile;
}

constexpr Message kTotalOfOne{"프로그램 {count}개의 합계", "total of {count} program"};
constexpr Message kTotal{"프로그램 {count}개의 합계", "total of {count} programs"};

// What the command prints and writes, program by program.
class TimesReport {
 public:
  TimesReport(bool adjusts, bool hasMachine, bool isJson)
      : adjusts_(adjusts), isJson_(isJson), rows_(CsvNames(adjusts, hasMachine)) {}

  // Prints the table of a program, unless a document is wanted.
  void Add(const ProgramFile& file, const Times& times) {
    rows_ += CsvTimes(file, times);
    const float before = times.before.entry.totalMinutes;
    totals_.Add(before, times.after ? times.after->entry.totalMinutes : before);
    if (isJson_) {
      document_.push_back(TimesJson(file, times));
    } else {
      Print(TimesTable(file, times));
    }
  }

  // Prints the document, or the totals if there were several arguments.
  void Finish(size_t arguments) const {
    if (isJson_) {
      Print(JsonText(document_));
    } else if (arguments > 1) {
      Print(Say(totals_.programs == 1 ? kTotalOfOne : kTotal, {{"count", totals_.programs}}) +
            "\n  " + totals_.Line(adjusts_));
    }
  }

  const std::string& rows() const { return rows_; }  // comma-separated values

 private:
  bool adjusts_;
  bool isJson_;
  std::string rows_;
  Json document_ = Json::array();
  TimeTotals totals_;
};

}  // namespace

int RunTime(const Call& call) {
  Params params(/*adjusts=*/true);
  bool json = false, fresh = false;
  CsvOption csv;
  MachineOption machineOption;
  std::vector<std::string> arguments;
  CommandLine line(
      call, {"프로그램마다 이동 길이와 시간을 조정 전과 피드 조정 후로 출력합니다. 읽을 수 없는 "
             "프로그램은 알리고 나머지를 계속합니다. 창에서처럼 모달 상태가 다음 프로그램으로 "
             "이어지므로 순서에 따라 결과가 다를 수 있습니다(--fresh 참조).",
             "Prints how far the tool travels in each program and how long that takes, "
             "as programmed and after the feed adjustment. A program that cannot be read is "
             "reported, and the others follow. Modal state goes from program to program, as "
             "in the window, so that their order matters: see --fresh."});
  params.AddTo(&line);
  line.AddFlag("--fresh", &fresh, kFreshHelp);
  line.AddFlag("--json", &json, kJsonHelp);
  csv.AddTo(&line);
  machineOption.AddTo(&line);
  line.AddArguments("FILE", &arguments,
                    {"차례로 불러올 NC 프로그램, 표준 입력은 -",
                     "NC programs, loaded one after the other; - for standard input"});
  line.Parse();
  params.Check();
  csv.Check();

  Host host(call);
  ToolView view(&host);
  params.Apply(&host, &view);
  host.app.machine = machineOption.Read(host);
  view.wanted.machine = true;
  TimesReport report(params.Adjusts(), host.app.machine.has_value(), json);
  bool failed = false, isIncomplete = false;
  for (const std::string& argument : arguments) {
    try {
      const ProgramFile file{argument, host.ProgramPath(argument)};
      if (fresh) ForgetModalState(&view);
      report.Add(file, TimeProgram(file, params.Adjusts(), &view));
    } catch (const Failure& failure) {
      PrintRemark(failure.file + ": " + failure.reason);
      failed = true;
      isIncomplete = isIncomplete || IsOfAProgram(failure.status);
    }
  }
  report.Finish(arguments.size());
  csv.Write(host, report.rows(), isIncomplete);
  return failed ? 1 : 0;
}

}  // namespace tvx
