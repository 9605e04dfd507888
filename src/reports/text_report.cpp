// The lines of the text report.
#include "reports/text_report.h"

#include "base/text.h"
#include "reports/report.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr int kRapidLengthDecimals = 3;

void AddLine(const std::string& line, std::string* report) {
  *report += kLineEnd + ("\t" + line);
}

void AddRestart(const CutTimeEntry& entry, std::string* report) {
  AddLine(entry.RestartOn == 1 ? "Restart ON" : "Restart OFF", report);
  if (entry.RestartOn != 1) return;
  for (const std::string& line : RestartReportLines(entry, Language::kKorean))
    AddLine(line, report);
}

void AddEntry(const CutTimeEntry& entry, std::string* report) {
  *report += kLineEnd + ("화일이름 " + entry.fileName);
  AddLine("Dir : " + entry.dirName + " ", report);
  AddRestart(entry, report);
  for (const std::string& line : ConditionLines(entry, "", Language::kKorean))
    AddLine(line, report);
  for (const std::string& line : FigureLines(entry, kRapidLengthDecimals, Language::kKorean))
    AddLine(line, report);
  AddLine("그림화일 " + entry.pictureName + kLineEnd, report);
}

}  // namespace

std::string TextReport(std::span<const ProgramResult> results) {
  std::string report;
  for (const ProgramResult& result : results) AddEntry(result.entry, &report);
  return report;
}

Status WriteTextReportFile(const std::string& path, std::span<const ProgramResult> results,
                           Files* files) {
  if (HasIncomplete(results)) return {StatusKind::kPartSource, path};
  return WriteWholeFile(files, path, EncodeCp949(TextReport(results)));
}

extern const Report kTextReport;
constexpr Message kTextButton{"화일 출력", "Write report"};
constinit const Report kTextReport = {
    .option = "--report",
    .help = {"OUT.tvx: 텍스트 보고서 쓰기", "OUT.tvx: write the text report"},
    .button = &kTextButton,
    .ending = "tvx",
    .fileKind = "TVX file",
    .usesCurrentDirectory = true,
    .write = [](std::span<const ProgramResult> results,
                const ReportTarget& to) { return WriteTextReportFile(to.path, results, to.files); },
};

}  // namespace tvx
