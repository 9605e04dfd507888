// Writes the page from its top to its end. All texts are in tables of both languages; every name is
// escaped in one place, Page::Text.
#include "reports/job_sheet.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <optional>
#include <vector>

#include "base/base64.h"
#include "base/format.h"
#include "base/scan.h"
#include "base/text.h"
#include "model/option_fields.h"
#include "model/option_labels.h"
#include "reports/report.h"
#include "stats/entry_lines.h"
#include "view/output_buffer.h"

namespace tvx {

namespace {

constexpr Message kTitle{"작업 시트", "Job sheet"};
constexpr Message kPrograms{"프로그램", "Programs"};
constexpr Message kProgram{"프로그램", "Program"};
constexpr Message kProgrammed{"조정 전", "Programmed"};
constexpr Message kAdjusted{"조정 후", "Adjusted"};
constexpr Message kSaved{"단축", "Saved"};
constexpr Message kTotalTime{"소요시간", "Total time"};
constexpr Message kMachineTime{"기계시간", "Machine time"};
constexpr Message kRemarks{"검사", "Program check"};
constexpr Message kNotChecked{"검사하지 않았습니다.", "Not checked."};
constexpr Message kNoRemarks{"시간에서 빠지거나 다르게 읽은 줄이 없습니다.",
                             "No line is left out of the times or read differently."};
constexpr Message kCauses{"피드를 늦춘 규칙", "Rules that slow the feed"};
constexpr Message kHighestFeed{"최대피드일 때", "at the maximum feed"};
constexpr Message kUnexplained{"그 밖", "other"};
constexpr Message kAverageFeed{"평균절삭속도", "Average feed"};
constexpr Message kConditions{"조건", "Conditions"};
constexpr Message kNoAdjustment{"피드 자동 조정 없음", "No feed adjustment"};
constexpr Message kNoPrograms{"결과가 없습니다.", "There are no results."};
constexpr Message kMachineParts{
    "절삭 {cuts}, 급속이송 {rapids}, 드웰 {dwells}, 공구교환 {tools} min",
    "cuts {cuts}, rapids {rapids}, dwells {dwells}, tool changes {tools} min"};

constexpr char kUnknown[] = "–";

// Colours for light and dark screens; paper is always light. A program is not divided between two
// pages of A4 as long as it fits on one.
constexpr char kStyle[] = R"(
:root { color-scheme: light dark; --page: #ffffff; --text: #1b1f24; --weak: #5c6570; --line: #c9ced6;
  --band: #f1f3f6; --mark: #0b5cad; --lost: #b3261e; }
@media (prefers-color-scheme: dark) {
  :root { --page: #15181c; --text: #e6e8eb; --weak: #a3abb5; --line: #3b424b; --band: #20252b;
    --mark: #7db7f5; --lost: #ff8a80; }
}
@page { size: A4; margin: 12mm; }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 16px; max-width: 60rem; background: var(--page); color: var(--text);
  font: 14px/1.4 system-ui, "Malgun Gothic", "Noto Sans CJK KR", NanumGothic, sans-serif; }
h1 { font-size: 1.6em; margin: 0 0 .5em; }
h2 { font-size: 1.15em; margin: 0; overflow-wrap: anywhere; }
h3 { font-size: .95em; margin: .8em 0 .2em; }
table { border-collapse: collapse; width: 100%; }
th, td { padding: 2px 6px; border-bottom: 1px solid var(--line); text-align: left;
  vertical-align: top; }
thead th { background: var(--band); }
thead { display: table-header-group; }
tr { break-inside: avoid; }
td.number, th.number { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
td.name { overflow-wrap: anywhere; }
th { font-weight: 600; word-break: keep-all; }
tbody th { white-space: nowrap; }
.rows td { white-space: nowrap; width: 1%; }
.rows td.name { white-space: normal; width: auto; }
a { color: var(--mark); text-decoration: none; }
.weak { color: var(--weak); font-weight: normal; }
.lost { color: var(--lost); font-weight: 600; }
.clock { display: block; color: var(--weak); }
.totals { display: flex; flex-wrap: wrap; gap: 8px; margin-bottom: 16px; }
.total { flex: 1 1 7rem; padding: 6px 10px; background: var(--band); border: 1px solid var(--line); }
.total .value { font-size: 1.2em; font-weight: 600; white-space: nowrap; }
.program { margin-top: 24px; padding-top: 8px; border-top: 2px solid var(--mark);
  break-inside: avoid; }
.directory { margin: 0 0 6px; color: var(--weak); overflow-wrap: anywhere; }
.pair { display: flex; gap: 14px; align-items: flex-start; }
.pair > div { flex: 1 1 0; min-width: 0; }
.picture { display: block; width: 100%; height: auto; background: #ffffff;
  border: 1px solid var(--line); }
.conditions { columns: 3; column-gap: 14px; }
.condition { break-inside: avoid; display: flex; justify-content: space-between; gap: 6px;
  border-bottom: 1px solid var(--line); }
.condition span:last-child { text-align: right; overflow-wrap: anywhere; }
@media (max-width: 40rem) {
  .pair { display: block; }
  .conditions { columns: 1; }
}
@media print {
  :root { color-scheme: light; --page: #ffffff; --text: #000000; --weak: #444444; --line: #bbbbbb;
    --band: #eeeeee; --mark: #000000; --lost: #000000; }
  body { padding: 0; max-width: none; font-size: 8.5pt; line-height: 1.2;
    print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  .pair { display: flex; }
  .pair > .drawing { flex: 0 0 38%; }
  .conditions { columns: 3; }
  th, td { padding: 1px 4px; }
  .totals { gap: 4px; }
  .total { flex-basis: 0; padding: 4px 6px; }
  .program { margin-top: 4mm; padding-top: 1mm; }
  h3 { margin-top: .4em; }
}
)";

// Collects pieces and writes them to the file.
class Page {
 public:
  Page(OutputFile* file, Language language) : buffer_(file), language_(language) {}

  Language language() const { return language_; }
  const char* In(const Message& message) const { return message.In(language_); }

  // Markup as it is.
  void Mark(std::string_view markup) { buffer_.Write(markup); }
  void Text(std::string_view text) { buffer_.Write(MarkupText(text)); }
  void Text(const Message& message) { Text(In(message)); }

  // An element with a text. `tag` may hold attributes.
  template <typename T>
  void Element(const std::string& tag, const T& text) {
    Mark("<" + tag + ">");
    Text(text);
    Mark("</" + tag.substr(0, tag.find(' ')) + ">");
  }

  Status Finish() {
    buffer_.Flush();
    return buffer_.status();
  }

 private:
  OutputBuffer buffer_;
  Language language_;
};

constexpr char kNumberCell[] = "td class=\"number\"";

// The clock text below minutes; empty for an unknown time.
std::string ClockBelow(double minutes) {
  return std::isfinite(minutes) ? ClockText(minutes) : "";
}

std::string MinutesText(double minutes) {
  if (!std::isfinite(minutes)) return kUnknown;
  const std::string text = Format("%.2f min", minutes);
  return text == "-0.00 min" ? "0.00 min" : text;
}

// The times of one program or of all; a time that is not known is NaN.
struct Times {
  double programmed = NAN;
  double adjusted = NAN;  // by the feeds in force
  double Saved() const { return programmed - adjusted; }
};

// The figures of a result before the adjustment, which changes no rapid; nothing if unknown.
std::optional<CutTimeEntry> ProgrammedOf(const ProgramResult& result) {
  if (result.entry.AfaEnabled != 1) return result.entry;
  if (!result.programmed) return std::nullopt;
  CutTimeEntry programmed = result.entry;
  programmed.cutMinutes = result.programmed->cutMinutes;
  programmed.averageFeed = result.programmed->averageFeed;
  programmed.totalMinutes = *MinutesBefore(result);
  return programmed;
}

uint64_t CountOfClass(const RemarkCounts& counts, RemarkClass remarkClass) {
  uint64_t count = 0;
  for (const RemarkKind& kind : RemarkKinds()) {
    if (kind.remarkClass == remarkClass) count += counts[static_cast<size_t>(kind.id)];
  }
  return count;
}

std::string CountText(uint64_t count) {
  return std::to_string(count);
}

// "lost 3, changed 1", as the window shows it.
std::string ClassCounts(const Page& page, const RemarkCounts& counts) {
  const auto count = [&](RemarkClass remarkClass) {
    return page.In(TextOf(remarkClass)) + (" " + CountText(CountOfClass(counts, remarkClass)));
  };
  return count(RemarkClass::kLost) + ", " + count(RemarkClass::kChanged);
}

// The sums of the list. The times are added in single precision, as the list itself adds them.
struct Totals {
  Times time;
  double machine = NAN;  // NaN without a machine, and if it is not known for every program
  bool hasMachine = false;
  std::optional<RemarkCounts> remarks;  // of the programs that were checked
};

Totals TotalsOf(std::span<const ProgramResult> results) {
  Totals totals;
  float programmed = 0, adjusted = 0;
  double machine = 0;
  for (const ProgramResult& result : results) {
    const auto before = ProgrammedOf(result);
    programmed += before ? before->totalMinutes : NAN;
    adjusted += result.entry.totalMinutes;
    const auto estimate = MachineTimeOf(result);
    machine += estimate ? estimate->totalMinutes : NAN;
    totals.hasMachine = totals.hasMachine || estimate;
    if (const auto counts = RemarksOf(result)) {
      if (!totals.remarks) totals.remarks.emplace();
      for (size_t i = 0; i < kRemarkIds; ++i) (*totals.remarks)[i] += (*counts)[i];
    }
  }
  totals.time = {programmed, adjusted};
  totals.machine = machine;
  return totals;
}

void AddTotal(const char* label, const std::string& value, const std::string& below, Page* page) {
  page->Mark("<div class=\"total\">");
  page->Element("div class=\"weak\"", label);
  page->Element("div class=\"value\"", value);
  if (!below.empty()) page->Element("div class=\"weak\"", below);
  page->Mark("</div>\n");
}

void AddTimeTotal(const char* label, double minutes, Page* page) {
  AddTotal(label, MinutesText(minutes), ClockBelow(minutes), page);
}

void AddTotals(std::span<const ProgramResult> results, const Totals& totals, Page* page) {
  page->Mark("<div class=\"totals\">\n");
  AddTotal(page->In(kPrograms), Format("%zu", results.size()), "", page);
  AddTimeTotal(page->In(kProgrammed), totals.time.programmed, page);
  AddTimeTotal(page->In(kAdjusted), totals.time.adjusted, page);
  AddTimeTotal(page->In(kSaved), totals.time.Saved(), page);
  if (totals.hasMachine) AddTimeTotal(page->In(kMachineTime), totals.machine, page);
  if (totals.remarks) {
    AddTotal(page->In(kRemarks), ClassCounts(*page, *totals.remarks), "", page);
  }
  page->Mark("</div>\n");
}

// A number cell with the same time below it as a clock shows it.
void AddTimeCell(double minutes, Page* page) {
  page->Mark("<td class=\"number\">" + MinutesText(minutes));
  const std::string clock = ClockBelow(minutes);
  if (!clock.empty()) page->Mark("<span class=\"clock\">" + clock + "</span>");
  page->Mark("</td>");
}

void AddListRow(const ProgramResult& result, size_t number, const Totals& totals, Page* page) {
  const auto programmed = ProgrammedOf(result);
  const Times times = {programmed ? programmed->totalMinutes : NAN, result.entry.totalMinutes};
  page->Mark("<tr>");
  page->Element(kNumberCell, Format("%zu", number));
  page->Mark(Format("<td class=\"name\"><a href=\"#program%zu\">", number));
  page->Text(result.entry.fileName);
  page->Mark("</a></td>");
  AddTimeCell(times.programmed, page);
  AddTimeCell(times.adjusted, page);
  AddTimeCell(times.Saved(), page);
  if (totals.hasMachine) {
    const auto machine = MachineTimeOf(result);
    AddTimeCell(machine ? machine->totalMinutes : NAN, page);
  }
  if (totals.remarks) {
    const auto counts = RemarksOf(result);
    const bool isHurt = counts && CountOfClass(*counts, RemarkClass::kLost) > 0;
    page->Element(isHurt ? "td class=\"lost\"" : "td",
                  counts ? ClassCounts(*page, *counts) : kUnknown);
  }
  page->Mark("</tr>\n");
}

// One row for each program. A page of one program has no such table.
void AddList(std::span<const ProgramResult> results, const Totals& totals, Page* page) {
  if (results.size() < 2) return;
  page->Mark("<table>\n<thead><tr><th class=\"number\">#</th>");
  page->Element("th", kProgram);
  for (const Message* const title : {&kProgrammed, &kAdjusted, &kSaved}) {
    page->Element("th class=\"number\"", *title);
  }
  if (totals.hasMachine) page->Element("th class=\"number\"", kMachineTime);
  if (totals.remarks) page->Element("th", kRemarks);
  page->Mark("</tr></thead>\n<tbody>\n");
  size_t number = 0;
  for (const ProgramResult& result : results) AddListRow(result, ++number, totals, page);
  page->Mark("</tbody>\n</table>\n");
}

void AddPicture(const ProgramResult& result, Page* page) {
  const bool isSvg = !result.pictures.svg.empty();
  const std::string& bytes = isSvg ? result.pictures.svg : result.pictures.png;
  if (bytes.empty()) return;
  page->Mark(
      Format("<div class=\"drawing\"><img class=\"picture\" width=\"%d\" height=\"%d\" alt=\"",
             kSheetPicture.width, kSheetPicture.height));
  page->Text(result.entry.fileName);
  page->Mark(isSvg ? "\" src=\"data:image/svg+xml;base64," : "\" src=\"data:image/png;base64,");
  page->Mark(Base64(bytes));
  page->Mark("\"></div>\n");
}

// A figure that the adjustment changes.
struct TimeRow {
  Message label;
  float CutTimeEntry::*minutes;
};
constexpr TimeRow kTimeRows[] = {
    {{"절삭시간", "Cut time"}, &CutTimeEntry::cutMinutes},
    {{"급속이송시간", "Rapid time"}, &CutTimeEntry::rapidMinutes},
    {kTotalTime, &CutTimeEntry::totalMinutes},
};

void AddTimeRow(const TimeRow& row, const ProgramResult& result, Page* page) {
  const CutTimeEntry& entry = result.entry;
  const auto programmed = ProgrammedOf(result);
  const bool isAdjusted = entry.AfaEnabled == 1;
  const Times times = {programmed ? (*programmed).*row.minutes : NAN,
                       isAdjusted ? entry.*row.minutes : NAN};
  page->Mark("<tr>");
  page->Element("th", row.label);
  AddTimeCell(times.programmed, page);
  AddTimeCell(times.adjusted, page);
  AddTimeCell(times.Saved(), page);
  page->Mark("</tr>\n");
}

// A row with one value that belongs to no column.
void AddWideRow(const Message& label, const std::string& value, Page* page) {
  page->Mark("<tr>");
  page->Element("th", label);
  page->Element("td class=\"number\" colspan=\"3\"", value);
  page->Mark("</tr>\n");
}

std::string MachineParts(const MachineTime& time, Language language) {
  const auto minutes = [](double value) { return Format("%.1f", value); };
  return Say(kMachineParts, language,
             {{"cuts", minutes(time.cutMinutes)},
              {"rapids", minutes(time.rapidMinutes)},
              {"dwells", minutes(time.dwellMinutes)},
              {"tools", minutes(time.toolMinutes)}});
}

void AddMachineRow(const MachineTime& time, const std::string& machine, Page* page) {
  page->Mark("<tr>");
  page->Element("th", kMachineTime);
  page->Mark("<td colspan=\"3\">");
  page->Text(MinutesText(time.totalMinutes) + " (" + ClockText(time.totalMinutes) + "), ");
  page->Text(machine);
  page->Element("span class=\"clock\"", MachineParts(time, page->language()));
  page->Mark("</td></tr>\n");
}

void AddFigures(const ProgramResult& result, Page* page) {
  const CutTimeEntry& entry = result.entry;
  page->Mark("<div><table>\n<thead><tr><th></th>");
  for (const Message* const title : {&kProgrammed, &kAdjusted, &kSaved}) {
    page->Element("th class=\"number\"", *title);
  }
  page->Mark("</tr></thead>\n<tbody>\n");
  for (const TimeRow& row : kTimeRows) AddTimeRow(row, result, page);
  const auto programmed = ProgrammedOf(result);
  page->Mark("<tr>");
  page->Element("th", kAverageFeed);
  page->Element(kNumberCell, programmed ? Format("%d mm/min", programmed->averageFeed) : kUnknown);
  page->Element(kNumberCell,
                entry.AfaEnabled == 1 ? Format("%d mm/min", entry.averageFeed) : kUnknown);
  page->Mark("<td></td></tr>\n");
  AddWideRow({"절삭길이", "Cut length"}, Format("%.3f m", Metres(entry.cutLength)), page);
  AddWideRow({"급속이송길이", "Rapid length"}, Format("%.3f m", Metres(entry.rapidLength)), page);
  if (const auto time = MachineTimeOf(result)) {
    AddMachineRow(*time, result.machine->profile.Name, page);
  }
  page->Mark("</tbody>\n</table></div>\n");
}

void AddRemarks(const ProgramResult& result, Page* page) {
  const auto counts = RemarksOf(result);
  page->Mark("<div>");
  page->Element("h3", kRemarks);
  const bool isClean = counts && CountOfClass(*counts, RemarkClass::kLost) == 0 &&
                       CountOfClass(*counts, RemarkClass::kChanged) == 0;
  if (!counts) page->Element("div class=\"weak\"", kNotChecked);
  if (isClean) page->Element("div class=\"weak\"", kNoRemarks);
  if (counts && *counts != RemarkCounts{}) {
    page->Mark("<table class=\"rows\"><tbody>\n");
    for (const RemarkKind& kind : RemarkKinds()) {
      const uint64_t count = (*counts)[static_cast<size_t>(kind.id)];
      if (count == 0) continue;
      page->Mark("<tr>");
      page->Element(kind.remarkClass == RemarkClass::kLost ? "td class=\"lost\"" : "td",
                    TextOf(kind.remarkClass));
      page->Element(kNumberCell, CountText(count));
      page->Element("td class=\"name\"", page->In(kind.text));
      page->Mark("</tr>\n");
    }
    page->Mark("</tbody></table>\n");
  }
  page->Mark("</div>\n");
}

// Minutes and their share of the cut time.
void AddCause(const Message& label, double minutes, double all, Page* page) {
  page->Mark("<tr>");
  page->Element("td class=\"name\"", label);
  page->Element(kNumberCell, MinutesText(minutes));
  page->Element(kNumberCell, all > 0 ? Format("%.1f %%", minutes / all * 100) : kUnknown);
  page->Mark("</tr>\n");
}

void AddCauses(const ProgramResult& result, Page* page) {
  if (!result.causes) return;
  const CauseMinutes& causes = *result.causes;
  page->Mark("<div>");
  page->Element("h3", kCauses);
  page->Mark("<table class=\"rows\"><tbody>\n");
  for (size_t i = 0; i < kFeedRules; ++i) {
    if (causes.byRule[i] == 0) continue;
    AddCause(TextOf(static_cast<FeedRule>(i)), causes.byRule[i], causes.straightCuts, page);
  }
  constexpr double kShownMinutes = 0.005;
  if (std::abs(causes.unexplained) >= kShownMinutes) {
    AddCause(kUnexplained, causes.unexplained, causes.straightCuts, page);
  }
  AddCause(kHighestFeed, causes.atHighestFeed, causes.straightCuts, page);
  page->Mark("</tbody></table>\n</div>\n");
}

// Sizes and feeds come first, then other values, then the switches and the master model.
int PlaceOnSheet(const FeedField* field) {
  if (field->form != FeedForm::kValue) return 2;
  return std::string_view(field->unit).starts_with("mm") ? 0 : 1;
}

std::vector<const FeedField*> ConditionsOfSheet() {
  std::vector<const FeedField*> fields;
  for (const FeedField& field : FeedFields()) {
    if (field.isInResults && field.form != FeedForm::kHidden) fields.push_back(&field);
  }
  std::ranges::stable_sort(fields, {}, PlaceOnSheet);
  return fields;
}

std::string ConditionText(const CutTimeEntry& entry, const FeedField& field) {
  const std::string_view unit = field.unit;
  const char* const gap = unit.starts_with("mm") ? " " : "";
  return ShownText(entry, field, field.decimals) + gap + field.unit;
}

void AddCondition(const Message& label, const std::string& value, Page* page) {
  page->Mark("<div class=\"condition\">");
  page->Element("span class=\"weak\"", label);
  page->Element("span", value);
  page->Mark("</div>\n");
}

void AddConditions(const CutTimeEntry& entry, Page* page) {
  page->Element("h3", kConditions);
  page->Mark("<div class=\"conditions\">\n");
  AddCondition({"급속이송속도", "Rapid feed"}, Format("%d mm/min", entry.RapidFeed), page);
  if (entry.AfaEnabled == 1) {
    for (const FeedField* const field : ConditionsOfSheet()) {
      AddCondition(field->title, ConditionText(entry, *field), page);
    }
  } else {
    AddCondition({"AFA", "AFA"}, page->In(kNoAdjustment), page);
  }
  if (entry.RestartOn == 1) {
    const std::string position = RestartPosition(entry, page->language());
    AddCondition(kRestartLabel, position.empty() ? "Restart ON" : position, page);
  }
  page->Mark("</div>\n");
}

void AddProgram(const ProgramResult& result, size_t number, Page* page) {
  const CutTimeEntry& entry = result.entry;
  page->Mark(
      Format("<div class=\"program\" id=\"program%zu\">\n<h2><span class=\"weak\">%zu</span> ",
             number, number));
  page->Text(entry.fileName);
  page->Mark("</h2>\n");
  if (!entry.dirName.empty()) page->Element("p class=\"directory\"", entry.dirName);
  page->Mark("<div class=\"pair\">\n");
  AddPicture(result, page);
  AddFigures(result, page);
  page->Mark("</div>\n<div class=\"pair\">\n");
  AddCauses(result, page);
  AddRemarks(result, page);
  page->Mark("</div>\n");
  AddConditions(entry, page);
  page->Mark("</div>\n");
}

void AddPage(std::span<const ProgramResult> results, Page* page) {
  page->Mark("<!DOCTYPE html>\n<html lang=\"");
  page->Mark(page->language() == Language::kEnglish ? "en" : "ko");
  page->Mark("\">\n<head>\n<meta charset=\"utf-8\">\n");
  page->Mark("<meta name=\"viewport\" content=\"width=device-width\">\n");
  page->Element("title", kTitle);
  page->Mark("\n<style>");
  page->Mark(kStyle);
  page->Mark("</style>\n</head>\n<body>\n");
  page->Element("h1", kTitle);
  page->Mark("\n");
  const Totals totals = TotalsOf(results);
  AddTotals(results, totals, page);
  if (results.empty()) page->Element("p", kNoPrograms);
  AddList(results, totals, page);
  size_t number = 0;
  for (const ProgramResult& result : results) AddProgram(result, ++number, page);
  page->Mark("</body>\n</html>\n");
}

}  // namespace

bool IsJobSheet(std::string_view start) {
  constexpr std::string_view kStart = "<!DOCTYPE html";
  return EqualNoCase(start.substr(0, kStart.size()), kStart);
}

Status WriteJobSheetFile(const std::string& path, std::span<const ProgramResult> results,
                         Language language, Files* files) {
  if (HasIncomplete(results)) return {StatusKind::kPartSource, path};
  const Result<std::unique_ptr<OutputFile>> file = files->Create(path);
  if (!file.ok()) return file.status;
  const auto page = std::make_unique<Page>(file.value.get(), language);
  AddPage(results, page.get());
  const Status written = page->Finish();
  return written.ok() ? file.value->Commit() : written;
}

extern const Report kJobSheetReport;
constexpr Message kJobSheetButton{"HTML", "HTML"};
constinit const Report kJobSheetReport = {
    .option = "--sheet-html",
    .help = {"OUT.html: 인쇄할 작업 시트 쓰기", "OUT.html: write the job sheet, one page to print"},
    .button = &kJobSheetButton,
    .ending = "html",
    .fileKind = "HTML file",
    .isOfKind = IsJobSheet,
    .isOfferedToOpen = true,
    .needs =
        {.programmed = true, .causes = true, .machine = true, .sheetPicture = true, .check = true},
    .write =
        [](std::span<const ProgramResult> results, const ReportTarget& to) {
          return WriteJobSheetFile(to.path, results, to.language, to.files);
        },
};

}  // namespace tvx
