// tvx-cli machine: shows a machine file, and fits one to measured times.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/format.h"
#include "cli/check_note.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/machine_option.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "insight/machine_fit.h"

namespace tvx {
namespace {

constexpr double kPerCent = 100;

// A row of the list of measured times.
struct Measurement {
  std::string program;
  double minutes;
};

// The minutes of a row; 0 for a word that is no finite number.
double ParseMinutes(std::string_view word) {
  double minutes = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), minutes);
  const bool isNumber = error == std::errc() && end == word.data() + word.size();
  return isNumber && std::isfinite(minutes) ? minutes : 0;
}

// The rows of a list `program,minutes`, with or without such a head line. A program with a comma in
// its name may be in double quotes. Throws Failure for a row that is none.
std::vector<Measurement> ParseMeasurements(const std::string& text, const std::string& argument) {
  std::vector<Measurement> measurements;
  int number = 0;
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find('\n', at), text.size());
    std::string row = text.substr(at, end - at);
    at = end + 1;
    ++number;
    row.erase(row.find_last_not_of(" \t\r") + 1);
    if (row.empty() || (number == 1 && row == "program,minutes")) continue;

    const size_t comma = row.rfind(',');
    const auto fail = [&](const Message& reason) {
      throw Failure{argument, Say({"{line}번 줄: {reason}", "line {line}: {reason}"},
                                  {{"line", number}, {"reason", Say(reason)}})};
    };
    if (comma == std::string::npos || comma == 0)
      fail({"program,minutes 형식이 아닙니다", "is not program,minutes"});
    std::string program = row.substr(0, comma);
    if (program.size() > 2 && program.front() == '"' && program.back() == '"') {
      program = program.substr(1, program.size() - 2);
    }
    const double minutes = ParseMinutes(std::string_view(row).substr(comma + 1));
    if (minutes <= 0)
      fail({"시간은 0보다 큰 수여야 합니다", "the minutes must be a number above 0"});
    measurements.push_back({program, minutes});
  }
  if (measurements.empty())
    throw Failure{argument, Say({"측정한 시간이 없습니다", "contains no measured times"})};
  return measurements;
}

// Programs of a list are looked for as any argument, else beside the list.
ProgramFile FindProgram(const Host& host, const std::string& name, const std::string& listPath) {
  const std::string path = host.DrivePath(name);
  const Status opened = host.files->OpenForReading(path).status;
  if (opened.ok()) return {name, path};
  const std::string beside = listPath.substr(0, listPath.find_last_of("\\/:") + 1) + name;
  if (host.files->OpenForReading(beside).ok()) return {name, beside};
  throw Failure{name, ReadProblem(opened), opened};
}

// A program in memory for as long as the fit takes.
struct LoadedProgram {
  std::unique_ptr<CTVXView> view;
  MeasuredProgram measured;
};

LoadedProgram Load(const ProgramFile& file, double minutes, const Params& params, Host* host) {
  // A stopwatch starts with every program: none of them inherits the state of the one before.
  host->app.parserStates = {};
  host->app.feedPassMemory = {};
  LoadedProgram loaded{std::make_unique<CTVXView>(&host->app), {}};
  CTVXView* const view = loaded.view.get();
  params.Apply(host, view);
  const ProgramPauses pauses = PausesOf(NoteRemarks(file, *view, /*wantsCheck=*/true).get());
  PrepareProgram(file, params.Adjusts(), view);
  loaded.measured = {&view->program.store, pauses, minutes};
  return loaded;
}

std::string FitTable(const std::vector<Measurement>& measurements,
                     const std::vector<MeasuredProgram>& programs, const MachineFit& fit) {
  const std::string error = PadLeft(Say({"오차 %", "error %"}), 9);
  std::string text = PadLeft(Say({"측정 min", "measured min"}), 12) +
                     PadLeft(Say({"전 min", "before min"}), 12) + error +
                     PadLeft(Say({"후 min", "after min"}), 12) + error + "  " +
                     Say({"프로그램", "program"}) + "\n";
  for (size_t i = 0; i < programs.size(); ++i) {
    const double minutes = programs[i].minutes;
    text += Format("%12.3f  %10.3f  %+7.1f  %10.3f  %+7.1f  %s\n", minutes, fit.before[i],
                   (fit.before[i] / minutes - 1) * kPerCent, fit.after[i],
                   (fit.after[i] / minutes - 1) * kPerCent, measurements[i].program.c_str());
  }
  const auto percent = [&](const std::vector<double>& minutes) {
    return Format("%.2f", RelativeError(programs, minutes) * kPerCent);
  };
  text += Say({"제곱평균제곱근 오차: 전 {before} %, 후 {after} %\n",
               "root mean square error: {before} % before, {after} % after\n"},
              {{"before", percent(fit.before)}, {"after", percent(fit.after)}});
  return text + Say({"Acceleration 배율 {scale}, Factor {factor}\n",
                     "scale of Acceleration {scale}, Factor {factor}\n"},
                    {{"scale", Format("%.4g", fit.scale)},
                     {"factor", Format("%.4g", fit.profile.Factor)}});
}

}  // namespace

int RunMachineShow(const Call& call) {
  std::string argument;
  CommandLine line(call, {"기본값까지 포함하여 기계 화일의 값을 출력합니다.",
                          "Prints the values of a machine file, defaults included."});
  line.AddArgument("FILE.machine", &argument, {"기계 화일", "machine file"});
  line.Parse();
  const Host host(call);
  Print(MachineProfileText(ReadMachine(host, argument)));
  return 0;
}

int RunMachineFit(const Call& call) {
  Params params;
  std::optional<std::string> list, out;
  std::string argument;
  CommandLine line(call,
                   {"측정한 시간에 가장 잘 맞는 기계 화일의 Acceleration 배율과 Factor를 찾습니다.",
                    "Finds the scale of Acceleration and the Factor of a machine file that fit "
                    "measured times best."});
  params.AddTo(&line);
  line.AddOption("--measured", &list,
                 {"LIST.csv: 초시계로 잰 시간, 한 줄에 program,minutes",
                  "LIST.csv: rows of program,minutes by the stopwatch"});
  line.RequireOption("--measured");
  line.AddOption(
      "-o", &out,
      {"OUT.machine: 맞춘 기계 화일 쓰기", "OUT.machine: write the fitted machine file"});
  line.AddArgument("FILE.machine", &argument,
                   {"처음 값으로 쓸 기계 화일", "machine file to start from"});
  line.Parse();
  params.Check();

  Host host(call);
  const MachineProfile profile = ReadMachine(host, argument);
  const std::string listPath = host.ReadablePath(*list);
  const Result<std::string> text = ReadSettings(host.files.get(), listPath);
  ThrowIfUnread(*list, text.status);
  const std::vector<Measurement> measurements = ParseMeasurements(text.value, *list);
  std::vector<LoadedProgram> loaded;
  std::vector<MeasuredProgram> programs;
  for (const Measurement& measurement : measurements) {
    const ProgramFile file = FindProgram(host, measurement.program, listPath);
    loaded.push_back(Load(file, measurement.minutes, params, &host));
    programs.push_back(loaded.back().measured);
  }
  const MachineFit fit = FitMachine(profile, programs);
  ShowProgress("");
  Print(FitTable(measurements, programs, fit));
  if (out) {
    const std::string path = host.DrivePath(*out);
    const Status written = WriteMachineProfile(path, fit.profile, host.files.get());
    ThrowIfUnwritten(*out, written);
  }
  return 0;
}

}  // namespace tvx
