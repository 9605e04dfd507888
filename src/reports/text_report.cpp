// The lines of the text report.
#include "reports/text_report.h"

#include "base/format.h"
#include "base/text.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr int kRapidLengthDecimals = 3;

void AddLine(const std::string& line, std::string* report) {
  *report += kLineEnd + ("\t" + line);
}

// Differs from RestartLines, which the windows show: three decimals, the upper bound of the Z area
// first, and the tolerance of a point on a separate line.
void AddRestart(const CutTimeEntry& entry, std::string* report) {
  if (entry.RestartOn != 1) {
    AddLine("Restart OFF", report);
    return;
  }
  AddLine("Restart ON", report);
  switch (entry.RestartKind) {
    case 1:
      AddLine(Format("재전송: 번호-> %d ", entry.RestartNumber), report);
      break;
    case 2:
      AddLine(Format("재전송: 블록-> %d ", entry.RestartNumber), report);
      break;
    case 3:
      AddLine(Format("재전송: Z영역->(%6.3f - %6.3f) ", entry.RestartZMax, entry.RestartZMin),
              report);
      break;
    case 4:
      AddLine(Format("재전송: 좌표->XYZ(%6.3f, %6.3f, %6.3f)", entry.RestartX, entry.RestartY,
                     entry.RestartZ),
              report);
      AddLine(Format("공차->%6.2f", entry.RestartTolerance), report);
      break;
    default:
      break;
  }
}

void AddEntry(const CutTimeEntry& entry, std::string* report) {
  *report += kLineEnd + ("화일이름 " + entry.fileName);
  AddLine("Dir : " + entry.dirName + " ", report);
  AddRestart(entry, report);
  for (const std::string& line : ConditionLines(entry, "")) AddLine(line, report);
  for (const std::string& line : FigureLines(entry, kRapidLengthDecimals)) AddLine(line, report);
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

}  // namespace tvx
