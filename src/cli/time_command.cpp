// tvx-cli time: what a program needs as programmed, and after the feed adjustment.

#include <optional>
#include <string>
#include <vector>

#include "base/format.h"
#include "cli/check_note.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"

namespace tvx {
namespace {

struct Times {
  CutTimeEntry before;
  std::optional<CutTimeEntry> after;
};

Times TimeProgram(const ProgramFile& file, bool adjusts, CTVXView* view) {
  PrintCheckNote(file, *view);
  LoadWholeProgram(file, view);
  Times times{CountProgram(file, view), std::nullopt};
  if (adjusts) {
    AdjustProgram(file, view);
    times.after = CountProgram(file, view);
  }
  return times;
}

Json FiguresJson(const CutTimeEntry& entry) {
  return {{"cutLength", entry.cutLength},       {"rapidLength", entry.rapidLength},
          {"cutMinutes", entry.cutMinutes},     {"rapidMinutes", entry.rapidMinutes},
          {"totalMinutes", entry.totalMinutes}, {"averageFeed", entry.averageFeed}};
}

Json TimesJson(const ProgramFile& file, const Times& times) {
  Json object = {{"file", file.argument}, {"before", FiguresJson(times.before)}};
  if (times.after) object["after"] = FiguresJson(*times.after);
  return object;
}

// A row of the table for people: a figure before and after, and what became of the difference.
struct Row {
  const char* label;
  const char* unit;
  float CutTimeEntry::*figure;
  bool isTime;
};

constexpr Row kRows[] = {
    {"cut length", "mm", &CutTimeEntry::cutLength, false},
    {"rapid length", "mm", &CutTimeEntry::rapidLength, false},
    {"cut time", "min", &CutTimeEntry::cutMinutes, true},
    {"rapid time", "min", &CutTimeEntry::rapidMinutes, true},
    {"total time", "min", &CutTimeEntry::totalMinutes, true},
};

std::string TableLine(const std::string& label, const std::string& unit, const std::string& before,
                      const std::string& after, const std::string& saved) {
  std::string line = Format("  %-14s %-7s %12s %12s %12s", label.c_str(), unit.c_str(),
                            before.c_str(), after.c_str(), saved.c_str());
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string TimesTable(const ProgramFile& file, const Times& times) {
  std::string text = file.argument + "\n";
  text += times.after ? TableLine("", "", "programmed", "adjusted", "saved")
                      : TableLine("", "", "programmed", "", "");
  for (const Row& row : kRows) {
    const float before = times.before.*row.figure;
    std::string after, saved;
    if (times.after) {
      after = ShortestFloat((*times.after).*row.figure);
      if (row.isTime) saved = ShortestFloat(before - (*times.after).*row.figure);
    }
    text += TableLine(row.label, row.unit, ShortestFloat(before), after, saved);
  }
  return text + TableLine("average feed", "mm/min", std::to_string(times.before.averageFeed),
                          times.after ? std::to_string(times.after->averageFeed) : "", "");
}

}  // namespace

int RunTime(const Call& call) {
  Params params(/*adjusts=*/true);
  bool json = false;
  std::vector<std::string> arguments;
  CommandLine line(call,
                   "Prints how far the tool travels in each program and how long that takes, "
                   "as programmed and after the feed adjustment.");
  params.AddTo(&line);
  line.AddFlag("--json", &json, "print one JSON document");
  line.AddArguments("FILE", &arguments, "NC programs, loaded one after the other");
  line.Parse();
  params.Check();

  Host host(call);
  const std::vector<ProgramFile> files = FindProgramFiles(host, arguments);
  CTVXView view(&host.app);
  params.Apply(&host, &view);
  Json document = Json::array();
  for (const ProgramFile& file : files) {
    const Times times = TimeProgram(file, params.Adjusts(), &view);
    if (json) {
      document.push_back(TimesJson(file, times));
    } else {
      Print(TimesTable(file, times));
    }
  }
  if (json) Print(JsonText(document));
  return 0;
}

}  // namespace tvx
