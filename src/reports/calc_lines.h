// The line protocol between TVX and tvx-calc, which drives the spreadsheet program.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace tvx {

// tvx-calc is started with one argument, kCalcWindowForm or kCalcFileForm. Each line sent to it is
// a step: a word and, after a blank, its argument. It answers each step with one line, kCalcDone or
// kCalcFailed with the reason; a first answer, before any step, says whether the spreadsheet
// program has started. tvx-calc ends after a failure and at the end of its input. The workbook is
// then closed unsaved, unless kCalcLeave was done.

inline constexpr std::string_view kCalcWindowForm = "window";  // for the user to see
inline constexpr std::string_view kCalcFileForm = "file";      // without a display, to be saved

inline constexpr std::string_view kCalcOpen = "open";        // host path of the workbook
inline constexpr std::string_view kCalcSheet = "sheet";      // number, 1 for the first
inline constexpr std::string_view kCalcRange = "range";      // "A1", or "A1:B2"
inline constexpr std::string_view kCalcNumber = "number";    // value for the cells of the range
inline constexpr std::string_view kCalcText = "text";        // text for the cells of the range
inline constexpr std::string_view kCalcVisible = "visible";  // kCalcYes or kCalcNo
inline constexpr std::string_view kCalcLeave = "leave";      // leaves the workbook to the user
inline constexpr std::string_view kCalcSave = "save";

inline constexpr std::string_view kCalcYes = "yes";
inline constexpr std::string_view kCalcNo = "no";

inline constexpr std::string_view kCalcDone = "done";
inline constexpr std::string_view kCalcFailed = "failed";  // reason

// A line made of a word and any argument. Line breaks in the argument are written as "\n" and "\r",
// backslashes are doubled.
std::string CalcLine(std::string_view word, std::string_view argument);

// Splits such a line into word and argument.
std::pair<std::string, std::string> SplitCalcLine(std::string_view line);

}  // namespace tvx
