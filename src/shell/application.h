#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "feed/feed_pass.h"
#include "jobs/send_options.h"
#include "model/job_record.h"
#include "model/labels.h"
#include "model/parser_state.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/user_interface.h"
#include "reports/spreadsheet.h"
#include "shell/configuration.h"
#include "shell/user_keys.h"

namespace tvx {

// The application object, one per process: everything that the windows share.
class CTVXApp {
 public:
  // All outlive the application.
  CTVXApp(Files* files, UserInterface* ui, Programs* programs = NoPrograms(),
          Spreadsheets* spreadsheets = NoSpreadsheets());

  // The start of the program: sets the language of the labels, then reads configuration, lists and
  // user keys in their order. Files that are missing are no failure. Returns 1.
  int InitApplication(int32_t language = kKoreanLabels);

  Files* const files;
  UserInterface* const ui;
  Programs* const programs;
  Spreadsheets* const spreadsheets;

  Configuration configuration;
  std::vector<std::string> ExtensionList;
  std::vector<std::string> DirectoryList;
  std::vector<std::string> UserKeys = std::vector<std::string>(kUserKeyElements);
  // Exchange places between a view and the job dialog; slot 1 is the one in use.
  std::array<JobRecord, 17> JobSlots;
  // Modal state of the parser: what one file leaves, the next one starts with, in any window.
  ParserStates parserStates;
  // What one feed pass leaves for the next, in any window.
  FeedPassMemory feedPassMemory;
  // The spindle speed, rev/min, that the job dialog opens with: that of the default condition file
  // until a job dialog is accepted.
  int32_t rememberedSpindle = 1000;
  // The send options of the command of a single cut time: one object for the whole run, whatever
  // window it is used in.
  CSendOptionDlg sendOptions;
};

}  // namespace tvx
