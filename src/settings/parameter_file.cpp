// The lines of the parameter file, and its reader and writer.
#include "settings/parameter_file.h"

#include "base/text.h"

namespace tvx {

std::span<const ParameterLine> ParameterFileLines() {
  using enum LineReading;
  static const std::vector<ParameterLine> kLines = LinesOfFile(
      {
          {{1, "IntNcdataFlg"}, &JobRecord::IntNcdataFlg},
          {{2, "NCDATA확장자"}, &JobRecord::NcdataExt},
          {{4, "MetafileCreateChk", kNever}, &JobRecord::MetafileCreateChk},
          {{5, "InputFileType"}, &JobRecord::InputFileType},
          {{6, "RapidFeed"}, &JobRecord::RapidFeed},
      },
      &FeedField::parameterLine);
  return kLines;
}

std::string ParameterPath(const std::string& environmentDir) {
  return environmentDir + "\\tvx.par";
}

Status ReadParameterFile(const std::string& environmentDir, JobRecord* record, Files* files) {
  const Result<std::string> bytes = ReadSettings(files, ParameterPath(environmentDir));
  if (!bytes.ok()) return bytes.status;
  const std::string text = DecodeCp949(bytes.value);
  WordScanner words(text);
  ReadLinesByKey(ParameterFileLines(), &words, record, nullptr);
  return {};
}

Status WriteParameterFile(const std::string& environmentDir, const JobRecord& record,
                          Files* files) {
  const std::string text = PrintLines(ParameterFileLines(), record, /*spindle=*/0);
  return WriteWholeFile(files, ParameterPath(environmentDir), text);
}

}  // namespace tvx
