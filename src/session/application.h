// The application: what all windows share.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/message.h"
#include "feed/feed_pass.h"
#include "insight/machine_profile.h"
#include "jobs/send_options.h"
#include "model/job_record.h"
#include "model/parser_state.h"
#include "platform/files/files.h"
#include "platform/processes/programs.h"
#include "platform/user_interface.h"
#include "platform/workers.h"
#include "reports/spreadsheet.h"
#include "settings/configuration.h"
#include "settings/user_keys.h"

namespace tvx {

// One per process.
class CTVXApp {
 public:
  // All outlive the application.
  CTVXApp(Files* files, UserInterface* ui, Programs* programs = NoPrograms(),
          Spreadsheets* spreadsheets = NoSpreadsheets());

  // Starts the program: sets the language of the labels, then reads the configuration, the lists
  // and the user keys in this order. A missing file is no failure; any other that cannot be read is
  // noted. Returns 1.
  int InitApplication(Language language = Language::kKorean);

  // Notes a file of settings that could not be read, unless it is missing.
  void NoteUnread(const Status& read);

  Files* const files;
  UserInterface* const ui;
  Programs* const programs;
  Spreadsheets* const spreadsheets;

  Language LabelLanguage = Language::kKorean;
  // Files of settings that are there and could not be read: their values are the defaults. To be
  // reported by whoever started the application or opened a view, which then clears it.
  std::vector<Status> unread;
  Configuration configuration;
  std::vector<std::string> ExtensionList;
  std::vector<std::string> DirectoryList;
  std::vector<std::string> UserKeys = std::vector<std::string>(kUserKeyElements);
  // Records that a view and the job dialog exchange; only kJobSlot is used.
  std::array<JobRecord, 17> JobSlots;
  // Modal state of the parser: each file starts with the state that the last one left, whatever
  // window it is loaded in.
  ParserStates parserStates;
  // State that one feed pass leaves for the next, in any window.
  FeedPassMemory feedPassMemory;
  // Processor cores that an adjustment may use.
  unsigned cores = CoreCount();
  // The spindle speed, rev/min, that the job dialog opens with: the one in the default condition
  // file until a job dialog is accepted.
  int32_t rememberedSpindle = 1000;
  // The machine that the user chose in the window, if any: results keep its time for the job sheet.
  std::optional<MachineProfile> machine;
  // InputFileType by the ending of a file, as the user has chosen; empty by default.
  std::map<std::string, int32_t> FormatOfEnding;
  // The send options of the command of a single cut time; all windows use the same object.
  CSendOptionDlg sendOptions;
};

}  // namespace tvx
