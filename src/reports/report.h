// What a report declares: a file that is written from results, in the tool and in the window.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/message.h"
#include "base/status.h"
#include "evaluate/program_result.h"
#include "platform/files/files.h"

namespace tvx {

// What a report is written with, beside the results.
struct ReportTarget {
  std::string path;  // drive path; relative to the current directory for a mere name
  Language language = Language::kKorean;
  bool hasByteOrderMark = false;  // of values, for spreadsheet programs that need it
  Files* files = nullptr;
};

// A report that is more than one file written needs steps of its own in the tool and in the window.
enum class ReportSteps {
  kWriteFile,
  kCopyFiles,        // of the results, beside the job list
  kFillSpreadsheet,  // in another program
};

struct Report {
  const char* option;  // of tvx-cli run, with its dashes
  Message help;
  // On the button in the window's list of results; null for a report of the tool alone.
  const Message* button = nullptr;
  // What the window's file chooser lists.
  const char* ending = "";
  const char* fileKind = "";
  const char* chooserTitle = "";
  // Whether a file begins as one of this kind. The window asks before it replaces another; null for
  // a report for which the file chooser asks before it takes any existing file.
  bool (*isOfKind)(std::string_view start) = nullptr;
  bool usesCurrentDirectory = false;  // the window takes only the name of the chosen file
  bool isOfferedToOpen = false;       // in the window, once it is written
  Wanted needs = {};                  // of the results
  ReportSteps steps = ReportSteps::kWriteFile;
  // Creates or replaces the file of a report with the steps kWriteFile. After a failure an existing
  // file is unchanged.
  Status (*write)(std::span<const ProgramResult> results, const ReportTarget& target) = nullptr;
};

}  // namespace tvx
