// The options of one job: the working record of a window and of each list entry.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tvx {

// Largest job list, and the number of slots of its arrays.
inline constexpr size_t kJobListSlots = 300;

// Every option that can differ from one NC file to the next, and the working parameters of a view.
// Lengths in mm, feeds in mm/min, angles in degrees, ratios and weights are pure numbers.
struct JobRecord {
  int32_t RapidFeed = 5000;    // rapid traverse, and the word-address format's rapid threshold
  int32_t InputFileType = 1;   // 2: conversational format, any other: word-address
  int32_t AfaEnabled = 0;      // 1: the feed pass runs for this file
  int32_t FirstEditable = -1;  // entries of the job list with a lower index are frozen
  int32_t IntNcdataFlg = 0;    // not 0: coordinates are whole thousandths
  float ToolDiameter = 10.0F;
  float SafetyDistance = 5.0F;   // reach of the adjustment around a corner
  float CornerMinAngle = 10.0F;  // a corner counts only above this angle
  float CornerMaxRatio = 0.1F;   // lowest corner feed as a fraction of MaxFeed
  float SlopeMinAngle = 10.0F;
  float SlopeMaxRatio = 0.1F;
  int32_t ConCorChk = 1;      // 1: every corner of the Z profile counts, 0: only upward ones
  int32_t UpDownChk = 1;      // 1: falling moves take ZupZdown and slopes are held in their range
  int32_t MaxFeed = 1000;     // replaces all programmed feeds
  int32_t PlungeFeed = 1000;  // feed of a straight plunge that opens a run
  int32_t DeleteM30 = 0;      // 1: M30 is to be taken out when the file is transferred
  int32_t KeyCodeOn = 0;      // 1: the option line has a key-code part
  int32_t KeyCodeCount = 0;
  int32_t MetafileCreateChk = 1;  // 1: a run makes a picture file for each entry
  std::string WorkDir;            // directory of the NC files, from the configuration
  std::string Material = "STEEL(S45C)";
  std::string NcdataExt = "*.nc";
  std::string KeyCodeText;   // the key-code words, each followed by CR LF
  std::string ConditionDir;  // directory in which condition files are offered
  int32_t RapidShown = 1;    // copy of the view's rapid display switch
  std::vector<std::string> FileNames = std::vector<std::string>(kJobListSlots);
  std::vector<std::string> OptionLines = std::vector<std::string>(kJobListSlots);
  std::vector<std::string> KeyCodes;
  int32_t FeedChgSmoothCheck = 0;  // 1: feed changes are drawn as ramps
  int32_t XyChgReduceCheck = 0;    // not 0: look distance of the XY search x 0.3
  int32_t FeedChgAng = 10;         // feed step, mm/min
  float CorWeight0 = 1.0F, CorWeight30 = 0.7F, CorWeight60 = 0.3F;
  float SideWeight0 = 1.0F, SideWeight30 = 0.7F, SideWeight60 = 0.3F;
  float SideCorRat = 1.0F;  // slope ratio / corner ratio
  float ZupZdown = 1.0F;    // factor on the feed of a falling move
  int32_t AfaByMaster = 0;  // 1: the feed pass also uses the master model
  std::string AfaMasterFile;
  int32_t RestartOn = 0;
  int32_t RestartKind = 0;      // 1 sequence number, 2 NC block, 3 Z area, 4 coordinate
  int32_t RestartNumber = 200;  // for kinds 1 and 2
  float RestartZMax = 200.0F, RestartZMin = -200.0F;
  float RestartX = 9999.0F, RestartY = 9999.0F, RestartZ = 9999.0F;  // all 9999: no point set
  float RestartTolerance = 1.5F;
};

using JobMember = std::variant<int32_t JobRecord::*, float JobRecord::*, std::string JobRecord::*,
                               std::vector<std::string> JobRecord::*>;

struct JobField {
  const char* name;  // the exact name of the field
  JobMember member;
  bool copied;  // CopyJobRecord carries it
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

// True if the path can name a master model: in the encoding of the files it has more than 4 bytes.
bool NamesMasterFile(std::string_view path);

}  // namespace tvx
