// The settings of the parameter file are copied in and out; the parameter file is written on
// demand.
#include "settings/option_dialog.h"

#include "base/format.h"
#include "base/scan.h"
#include "base/text.h"
#include "platform/files/user_files.h"
#include "settings/parameter_file.h"

namespace tvx {

namespace {

// Copies all settings of the parameter file, also those without a control.
void CopySettings(const JobRecord& from, JobRecord* to) {
  for (const ParameterLine& setting : ParameterFileLines()) {
    std::visit(
        [&](auto member) {
          if constexpr (!std::is_same_v<decltype(member), SpindleSpeed>) to->*member = from.*member;
        },
        setting.value);
  }
}

}  // namespace

void COptionDlg::Open(JobRecord* working, std::string_view environmentDirectory) {
  working_ = working;
  environmentDirectory_ = environmentDirectory;
  CopySettings(*working, &own);
}

void COptionDlg::ToggleMetafileCreate() {
  own.MetafileCreateChk = own.MetafileCreateChk == 1 ? 0 : 1;
}

void COptionDlg::ToggleIntNcdata() {
  own.IntNcdataFlg = own.IntNcdataFlg == 0 ? 1 : 0;
}

int COptionDlg::ShownRapidFeed() const {
  const std::string digits = Format("%d", own.RapidFeed);
  for (size_t i = 0; i < kRapidFeeds.size(); ++i) {
    if (std::string_view(kRapidFeeds[i]).starts_with(digits)) return static_cast<int>(i);
  }
  return -1;
}

void COptionDlg::ChooseRapidFeed(size_t entry) {
  own.RapidFeed = TextToInt(kRapidFeeds.at(entry));
}

void COptionDlg::EditNcdataExt(std::string_view text) {
  size_t end = 0;
  for (size_t characters = 0; end < text.size() && characters < kLongestExtension; ++characters) {
    end = CharacterEnd(text, end);
  }
  own.NcdataExt = text.substr(0, end);
}

void COptionDlg::Save() {
  const Status written = WriteParameterFile(environmentDirectory_, own, files_);
  ShowWritten(written, ParameterPath(environmentDirectory_), ui_);
  if (!written.ok()) ShowCannotOpen(ui_);
}

Closing COptionDlg::Accept() {
  const int32_t oldStep = working_->FeedChgAng;
  CopySettings(own, working_);
  if (own.FeedChgAng < FieldOf(&JobRecord::FeedChgAng).range.lowest) working_->FeedChgAng = oldStep;
  return Closing::kAccepted;
}

}  // namespace tvx
