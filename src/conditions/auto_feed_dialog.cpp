// Each field is text that is stored at once; a condition file is read and written by two buttons.
#include "conditions/auto_feed_dialog.h"

#include <algorithm>

#include "base/format.h"
#include "base/path_text.h"
#include "base/scan.h"
#include "conditions/condition_file.h"
#include "platform/files/user_files.h"

namespace tvx {

namespace {

void Store(std::string_view text, int32_t* value) {
  *value = TextToInt(text);
}
void Store(std::string_view text, float* value) {
  *value = TextToFloat(text);
}
void Store(std::string_view text, std::string* value) {
  *value = text;
}

FileQuestion ConditionFileQuestion(const JobRecord& job) {
  FileQuestion question;
  question.fileName = job.ConditionDir + "\\*.afa";
  return question;
}

}  // namespace

bool ChooseConditionFile(JobRecord* job, int32_t* spindleSpeed, Files* files, UserInterface* ui,
                         std::string* fileName) {
  std::string path;
  if (!ui->ChooseFile(ConditionFileQuestion(*job), &path)) return false;
  if (!ReadConditionFile(path, job, spindleSpeed, files).ok()) return false;
  *fileName = NameOfPath(path, kAnySlash);
  return true;
}

std::span<const FeedField* const> AutoFeedFields() {
  static const std::vector<const FeedField*> kFields = [] {
    auto fields = FieldsOfDialog(FeedDialog::kCondition);
    std::ranges::sort(fields, {}, [](const FeedField* f) { return f->conditionLine.number; });
    return fields;
  }();
  return kFields;
}

void CAutoFeedDlg::Open(JobRecord* target) {
  target_ = target;
  CopyJobRecord(0, &own, *target);
  own.ConditionDir = target->ConditionDir;
  fileCaption = kFileButton;
  ShowFields();
}

// Text that is shown is stored like an edit by the user.
void CAutoFeedDlg::ShowFields() {
  texts.resize(AutoFeedFields().size());
  size_t next = 0;
  for (const FeedField* const field : AutoFeedFields()) {
    Edit(next++, ValueText(own, *field, [](float value) { return Format("%6.3f", value); }));
  }
}

void CAutoFeedDlg::Edit(size_t index, std::string_view text) {
  texts.at(index) = text;
  std::visit([&](auto member) { Store(text, &(own.*member)); }, AutoFeedFields()[index]->member);
}

void CAutoFeedDlg::ReadFile() {
  std::string fileName;
  if (ChooseConditionFile(&own, &SpindleSpeed, files_, ui_, &fileName)) {
    ShowFields();
    fileCaption = std::string(kFileButton) + " " + fileName;
  } else {
    fileCaption = kFileButton;
  }
}

void CAutoFeedDlg::SaveFile() {
  FileQuestion question = ConditionFileQuestion(own);
  question.save = true;
  question.defaultExtension = "afa";
  std::string path;
  ui_->ChooseFile(question, &path);
  if (!MayReplace(path, IsConditionFile, files_, ui_)) return;
  const Status written = WriteConditionFile(path, own, SpindleSpeed, files_);
  if (!path.empty()) ShowWritten(written, path, ui_);
  if (!written.ok())
    ui_->ShowMessage({.text = ui_->Say({"화일을 열수 없읍니다. ", "The file cannot be opened. "})});
}

Closing CAutoFeedDlg::Accept() {
  CopyJobRecord(0, target_, own);
  return Closing::kAccepted;
}

}  // namespace tvx
