// The table of the parameter file, and its reader and writer.
#include "settings/parameter_file.h"

#include "base/text.h"

namespace tvx {

namespace {

using enum LineReading;

const ParameterLine kLines[] = {
    {"IntNcdataFlg", &JobRecord::IntNcdataFlg, kByKey},
    {"NCDATA확장자", &JobRecord::NcdataExt, kByKey},
    {"AfaByMasterFlg", &JobRecord::AfaByMaster, kNever},
    {"MetafileCreateChk", &JobRecord::MetafileCreateChk, kNever},
    {"InputFileType", &JobRecord::InputFileType, kByKey},
    {"RapidFeed", &JobRecord::RapidFeed, kByKey},
    {"FeedChgSmoothCheck", &JobRecord::FeedChgSmoothCheck, kNever},
    {"XyChgReduceCheck", &JobRecord::XyChgReduceCheck, kNever},
    {"FeedChgAng", &JobRecord::FeedChgAng, kNever},
    {"CorWeight0", &JobRecord::CorWeight0, kNever},
    {"CorWeight30", &JobRecord::CorWeight30, kNever},
    {"CorWeight60", &JobRecord::CorWeight60, kNever},
    {"SideWeight0", &JobRecord::SideWeight0, kNever},
    {"SideWeight30", &JobRecord::SideWeight30, kNever},
    {"SideWeight60", &JobRecord::SideWeight60, kNever},
    {"ZupZdown", &JobRecord::ZupZdown, kNever},
};

}  // namespace

std::string ParameterPath(const std::string& environmentDir) {
  return environmentDir + "\\tvx.par";
}

Status ReadParameterFile(const std::string& environmentDir, JobRecord* record, Files* files) {
  const Result<std::string> bytes = ReadSettings(files, ParameterPath(environmentDir));
  if (!bytes.ok()) return bytes.status;
  const std::string text = DecodeCp949(bytes.value);
  WordScanner words(text);
  ReadLinesByKey(kLines, &words, record, nullptr);
  return {};
}

Status WriteParameterFile(const std::string& environmentDir, const JobRecord& record,
                          Files* files) {
  const std::string text = PrintLines(kLines, record, /*spindle=*/0);
  return WriteWholeFile(files, ParameterPath(environmentDir), text);
}

}  // namespace tvx
