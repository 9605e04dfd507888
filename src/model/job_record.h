// The options of one job: the working record of a window and of each list entry.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "model/feed_options.h"

namespace tvx {

// Largest job list, and the number of slots of its arrays.
inline constexpr size_t kJobListSlots = 300;

// Every option that can differ from one NC file to the next, and the working parameters of a view.
struct JobRecord : FeedOptions, RestartOptions {
  int32_t RapidFeed = 5000;    // mm/min, and the word-address format's rapid threshold
  int32_t InputFileType = 1;   // 2: conversational format, any other: word-address
  int32_t FirstEditable = -1;  // entries of the job list with a lower index are frozen
  int32_t IntNcdataFlg = 0;    // not 0: coordinates are whole thousandths
  int32_t DeleteM30 = 0;       // 1: M30 is to be taken out when the file is transferred
  int32_t KeyCodeOn = 0;       // 1: the option line has a key-code part
  int32_t KeyCodeCount = 0;
  int32_t MetafileCreateChk = 1;  // 1: a run makes a picture file for each entry
  std::string WorkDir;            // directory of the NC files, from the configuration
  std::string NcdataExt = "*.nc";
  std::string KeyCodeText;   // the key-code words, each followed by CR LF
  std::string ConditionDir;  // directory in which condition files are offered
  int32_t RapidShown = 1;    // copy of the view's rapid display switch
  std::vector<std::string> FileNames = std::vector<std::string>(kJobListSlots);
  std::vector<std::string> OptionLines = std::vector<std::string>(kJobListSlots);
  std::vector<std::string> KeyCodes;
};

using JobMember = std::variant<int32_t JobRecord::*, float JobRecord::*, std::string JobRecord::*,
                               std::vector<std::string> JobRecord::*>;

struct JobField {
  const char* name;  // the exact name of the field
  JobMember member;
  bool isCopied = true;  // CopyJobRecord carries it
};

// All fields in their order.
std::span<const JobField> JobFields();

// The field of exactly this name, or null.
const JobField* FindJobField(std::string_view name);

// Sets a number or text field from its text, numbers as C's atoi and atof read them. Returns false,
// with the record unchanged, for an unknown name, a list field, or a number field whose text is not
// wholly one number.
bool SetJobField(JobRecord* record, std::string_view name, std::string_view text);

// Copies the fields that travel between records: all but AfaEnabled, FirstEditable, KeyCodeText,
// ConditionDir and RapidShown. `index` is a slot number that the copy does not use. Returns 1.
int CopyJobRecord(int index, JobRecord* destination, const JobRecord& source);

}  // namespace tvx
