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
    const auto fail = [&](const char* reason) {
      throw Failure{argument, Format("line %d: %s", number, reason)};
    };
    if (comma == std::string::npos || comma == 0) fail("is not program,minutes");
    std::string program = row.substr(0, comma);
    if (program.size() > 2 && program.front() == '"' && program.back() == '"') {
      program = program.substr(1, program.size() - 2);
    }
    const double minutes = ParseMinutes(std::string_view(row).substr(comma + 1));
    if (minutes <= 0) fail("the minutes must be a number above 0");
    measurements.push_back({program, minutes});
  }
  if (measurements.empty()) throw Failure{argument, "contains no measured times"};
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
  std::string text = "measured min  before min  error %   after min  error %  program\n";
  for (size_t i = 0; i < programs.size(); ++i) {
    const double minutes = programs[i].minutes;
    text += Format("%12.3f  %10.3f  %+7.1f  %10.3f  %+7.1f  %s\n", minutes, fit.before[i],
                   (fit.before[i] / minutes - 1) * kPerCent, fit.after[i],
                   (fit.after[i] / minutes - 1) * kPerCent, measurements[i].program.c_str());
  }
  text += Format("root mean square error: %.2f %% before, %.2f %% after\n",
                 RelativeError(programs, fit.before) * kPerCent,
                 RelativeError(programs, fit.after) * kPerCent);
  return text + Format("scale of Acceleration %.4g, Factor %.4g\n", fit.scale, fit.profile.Factor);
}

}  // namespace

int RunMachineShow(const Call& call) {
  std::string argument;
  CommandLine line(call, "Prints the values of a machine file, defaults included.");
  line.AddArgument("FILE.machine", &argument, "machine file");
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
                   "Finds the scale of Acceleration and the Factor of a machine file that fit "
                   "measured times best.");
  params.AddTo(&line);
  line.AddOption("--measured", &list, "LIST.csv: rows of program,minutes by the stopwatch");
  line.RequireOption("--measured");
  line.AddOption("-o", &out, "OUT.machine: write the fitted machine file");
  line.AddArgument("FILE.machine", &argument, "machine file to start from");
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
