// tvx-cli check: what the figures of a program leave out or understand otherwise than a machine.

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/format.h"
#include "cli/check_note.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "insight/program_check.h"
#include "insight/source_lines.h"

namespace tvx {
namespace {

struct CheckedFile {
  std::string argument;
  ProgramCheck check;
  // Of each id, the texts of the first lines.
  std::array<std::vector<std::string>, kRemarkIds> texts;
};

// The lines of the first `count` remarks of each id. Throws Failure if the file is not the one that
// was checked.
void ReadTexts(const ProgramFile& file, size_t count, Files* files, CheckedFile* checked) {
  const ProgramSource source{.path = file.path, .stamp = checked->check.stamp, .lines = {}};
  SourceLines lines(&source, files);
  for (size_t id = 0; id < kRemarkIds; ++id) {
    const std::vector<Remark>& stored = checked->check.lists[id].stored;
    for (size_t i = 0; i < std::min(count, stored.size()); ++i) {
      const Result<std::vector<std::string>> texts = lines.Read(stored[i].line, 1);
      if (!texts.ok()) throw Failure{file.argument, SourceProblem(texts.status)};
      checked->texts[id].push_back(texts.value.empty() ? "" : Printable(texts.value[0]));
    }
  }
}

Json FileJson(const CheckedFile& file) {
  Json remarks = Json::array();
  Json counts = Json::object();
  for (const RemarkKind& kind : RemarkKinds()) {
    const RemarkList& list = file.check.Of(kind.id);
    if (list.count > 0) counts[std::string(kind.name)] = list.count;
    const std::vector<std::string>& texts = file.texts[static_cast<size_t>(kind.id)];
    for (size_t i = 0; i < list.stored.size(); ++i) {
      Json remark = {{"id", kind.name},
                     {"class", ClassName(kind.remarkClass)},
                     {"line", list.stored[i].line},
                     {"detail", list.stored[i].detail}};
      if (i < texts.size()) remark["text"] = texts[i];
      remarks.push_back(std::move(remark));
    }
  }
  return {{"file", file.argument}, {"remarks", std::move(remarks)}, {"counts", std::move(counts)}};
}

std::string Row(std::string_view id, std::string_view remarkClass, const std::string& count,
                const std::string& line, std::string_view meaning) {
  return Format("  %-20.*s %-8.*s %8s %11s  %.*s\n", static_cast<int>(id.size()), id.data(),
                static_cast<int>(remarkClass.size()), remarkClass.data(), count.c_str(),
                line.c_str(), static_cast<int>(meaning.size()), meaning.data());
}

// A remark that stands alone shows its detail: the number of arcs, the tool.
std::string Meaning(const RemarkKind& kind, const RemarkList& list) {
  std::string meaning(kind.english);
  const bool isAlone = list.count == 1 && list.stored.size() == 1;
  if (isAlone && !list.stored[0].detail.empty()) meaning += ": " + list.stored[0].detail;
  return meaning;
}

std::string FileTable(const CheckedFile& file) {
  std::string text = file.argument + "\n";
  std::string rows, lines;
  for (const RemarkKind& kind : RemarkKinds()) {
    const RemarkList& list = file.check.Of(kind.id);
    if (list.count == 0) continue;
    rows += Row(kind.name, ClassName(kind.remarkClass), std::to_string(list.count),
                list.stored.empty() ? "" : std::to_string(list.stored.front().line),
                Meaning(kind, list));
    const std::vector<std::string>& texts = file.texts[static_cast<size_t>(kind.id)];
    if (!texts.empty()) lines.append("  ").append(kind.name).append("\n");
    for (size_t i = 0; i < texts.size(); ++i) {
      const Remark& remark = list.stored[i];
      lines += Format("  %11llu  %-16s  ", static_cast<unsigned long long>(remark.line),
                      remark.detail.c_str());
      lines += texts[i] + "\n";
    }
  }
  if (rows.empty()) return text + "  no remarks\n";
  return text + Row("id", "class", "count", "first line", "meaning") + rows + lines;
}

bool HasLostOrChanged(const ProgramCheck& check) {
  return check.Count(RemarkClass::kLost) + check.Count(RemarkClass::kChanged) > 0;
}

}  // namespace

int RunCheck(const Call& call) {
  Params params;
  bool json = false, strict = false;
  std::optional<int> lines;
  std::vector<std::string> arguments;
  CommandLine line(call,
                   "Prints what the figures of each program leave out or understand otherwise than "
                   "a machine, by id and line.");
  params.AddTo(&line);
  line.AddFlag("--json", &json, "print one JSON document");
  line.AddOption("--lines", &lines, "print the first N lines of each id, with their text");
  line.AddFlag("--strict", &strict, "exit status 1 if a remark is \"lost\" or \"changed\"");
  line.AddArguments("FILE", &arguments, "NC programs, read one after the other");
  line.Parse();
  params.Check();
  if (lines && *lines < 0) throw WrongCall{"check: --lines needs a number from 0 on"};

  Host host(call);
  const std::vector<ProgramFile> files = FindProgramFiles(host, arguments);
  ToolView view(&host);
  params.Apply(&host, &view);
  const size_t shown = lines ? static_cast<size_t>(*lines) : 0;
  CheckOptions options;
  options.storedPerId = std::max(options.storedPerId, shown);
  LoadStart start = TakeLoadStart(view.program, host.app.parserStates);
  Json document = Json::array();
  bool isClean = true;
  for (const ProgramFile& file : files) {
    CheckedFile checked;
    checked.argument = file.argument;
    checked.check = CheckProgramFile(file, options, view, &start);
    ReadTexts(file, shown, host.files.get(), &checked);
    isClean = isClean && !HasLostOrChanged(checked.check);
    if (json) {
      document.push_back(FileJson(checked));
    } else {
      Print(FileTable(checked));
    }
  }
  if (json) Print(JsonText(document));
  return strict && !isClean ? 1 : 0;
}

}  // namespace tvx
