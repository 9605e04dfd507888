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
#include "cli/tool_text.h"
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
      if (!texts.ok()) throw Failure{file.argument, Say(SourceProblem(texts.status))};
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
                     {"class", TextOf(kind.remarkClass).english},
                     {"line", list.stored[i].line},
                     {"detail", list.stored[i].detail}};
      if (i < texts.size()) remark["text"] = texts[i];
      remarks.push_back(std::move(remark));
    }
  }
  return {{"file", file.argument}, {"remarks", std::move(remarks)}, {"counts", std::move(counts)}};
}

std::string Row(const std::string& id, const std::string& remarkClass, const std::string& count,
                const std::string& line, const std::string& meaning) {
  return "  " + PadRight(id, 20) + " " + PadRight(remarkClass, 8) + " " + PadLeft(count, 8) + " " +
         PadLeft(line, 11) + "  " + meaning + "\n";
}

// A remark that stands alone shows its detail: the number of arcs, the tool.
std::string Meaning(const RemarkKind& kind, const RemarkList& list) {
  std::string meaning = Say(kind.text);
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
    rows += Row(std::string(kind.name), Say(TextOf(kind.remarkClass)), std::to_string(list.count),
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
  if (rows.empty()) return text + "  " + Say({"해당하는 줄이 없습니다", "no remarks"}) + "\n";
  return text +
         Row("id", Say({"구분", "class"}), Say({"개수", "count"}), Say({"첫 줄", "first line"}),
             Say({"내용", "meaning"})) +
         rows + lines;
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
  CommandLine line(
      call, {"프로그램마다 시간과 경로에서 빠지거나 기계와 다르게 읽은 줄을 종류와 줄 번호로 "
             "출력합니다.",
             "Prints what the figures of each program leave out or understand otherwise than "
             "a machine, by id and line."});
  params.AddTo(&line);
  line.AddFlag("--json", &json, kJsonHelp);
  line.AddOption("--lines", &lines,
                 {"종류마다 처음 N줄을 내용과 함께 출력",
                  "print the first N lines of each id, with their text"});
  line.AddFlag("--strict", &strict,
               {"\"빠짐\"이나 \"다름\"이 있으면 종료 코드 1",
                "exit status 1 if a remark is \"lost\" or \"changed\""});
  line.AddArguments("FILE", &arguments, kFilesHelp);
  line.Parse();
  params.Check();
  if (lines && *lines < 0)
    throw WrongCall{Say({"check: --lines에는 0 이상의 수가 필요합니다",
                         "check: --lines needs a number from 0 on"})};

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
