// Checks the shared options after the parse and applies them in their fixed order.

#include "cli/params.h"

#include <variant>

#include "cli/command.h"
#include "cli/nearest_name.h"
#include "cli/tool_text.h"
#include "conditions/condition_file.h"
#include "master/master_file.h"
#include "model/job_record.h"

namespace tvx {
namespace {

struct Setting {
  std::string name;
  std::string value;
};

Setting SplitSetting(const std::string& word) {
  const size_t equals = word.find('=');
  if (equals == std::string::npos) {
    throw WrongCall{
        Say({"--set: NAME=VALUE 형식이 아닙니다: '{word}'", "--set needs NAME=VALUE, not '{word}'"},
            {{"word", word}})};
  }
  return {word.substr(0, equals), word.substr(equals + 1)};
}

Message Misfit(const JobField& field) {
  if (std::holds_alternative<int32_t JobRecord::*>(field.member))
    return {"{what}: 정수가 아닙니다: '{value}'", "{what}: '{value}' is no whole number"};
  if (std::holds_alternative<float JobRecord::*>(field.member))
    return {"{what}: 숫자가 아닙니다: '{value}'", "{what}: '{value}' is no number"};
  return {"{what}: 리스트에는 줄 수 없는 값입니다: '{value}'",
          "{what}: '{value}' is no value for a list"};
}

void CheckSetting(const std::string& word) {
  const Setting setting = SplitSetting(word);
  const JobField* field = FindJobField(setting.name);
  if (field == nullptr) {
    std::vector<std::string> names;
    for (const JobField& known : JobFields()) names.emplace_back(known.name);
    throw WrongCall{Say({"--set: 없는 필드입니다: '{name}'", "--set: unknown field '{name}'"},
                        {{"name", setting.name}}) +
                    DidYouMean(setting.name, names)};
  }
  JobRecord scratch;
  if (!SetJobField(&scratch, setting.name, setting.value)) {
    throw WrongCall{
        Say(Misfit(*field), {{"what", "--set " + setting.name}, {"value", setting.value}})};
  }
}

}  // namespace

void FieldSettings::AddTo(CommandLine* line) {
  line->AddRepeated(
      "--set", &words_,
      {"NAME=VALUE: 작업 조건의 필드 값을 정하기", "NAME=VALUE: set a field of the job record"});
}

void FieldSettings::Check() const {
  for (const std::string& word : words_) CheckSetting(word);
}

void FieldSettings::Apply(JobRecord* record) const {
  for (const std::string& word : words_) {
    const Setting setting = SplitSetting(word);
    SetJobField(record, setting.name, setting.value);
  }
}

void Params::AddRecordOptionsTo(CommandLine* line) {
  line->AddOption("--condition", &condition_,
                  {"FILE.afa: 조건화일 읽기", "FILE.afa: read a condition file"});
  settings_.AddTo(line);
  line->AddOption("--jobs", &jobs_,
                  {"프로세서 코어를 N개까지 써서 조정 (기본: 모두)",
                   "adjust on N processor cores at most (default: all)"});
}

void Params::AddTo(CommandLine* line) {
  AddRecordOptionsTo(line);
  line->AddFlag("--afa", &afa_,
                adjusts_ ? Message{"피드를 조정 (기본)", "adjust the feeds (the default)"}
                         : Message{"피드를 조정", "adjust the feeds"});
  line->AddFlag(
      "--no-afa", &noAfa_,
      adjusts_ ? Message{"피드를 조정하지 않음", "do not adjust the feeds"}
               : Message{"피드를 조정하지 않음 (기본)", "do not adjust the feeds (the default)"});

  line->AddOption("--master", &master_,
                  {"FILE.mma: 마스터 모델을 읽고 그것으로도 조정",
                   "FILE.mma: read a master model, and adjust by it"});
}

void Params::Check() {
  if (afa_ && noAfa_)
    throw WrongCall{
        Say({"--afa와 --no-afa는 함께 쓸 수 없습니다", "--afa and --no-afa exclude each other"})};
  if (afa_ || noAfa_) adjusts_ = afa_;
  if (jobs_ && *jobs_ < 1) {
    throw WrongCall{
        Say({"--jobs에는 1 이상의 수가 필요합니다", "--jobs needs a number from 1 on"})};
  }
  settings_.Check();
}

void Params::Apply(Host* host, CTVXView* view) const {
  if (jobs_) host->app.cores = static_cast<unsigned>(*jobs_);
  if (condition_) {
    const std::string path = host->ReadablePath(*condition_);
    const Status read =
        ReadConditionFile(path, &view->job, &host->app.rememberedSpindle, host->files.get());
    ThrowIfUnread(*condition_, read);
  }
  settings_.Apply(&view->job);
  if (adjusts_) view->job.AfaEnabled = 1;
  if (master_) {
    view->masterGrid = ReadModel(*master_, *host);
    view->job.AfaByMaster = 1;
  }
}

MasterGrid ReadModel(const std::string& argument, const Host& host) {
  MasterGrid grid;
  const Status read = ReadMasterFile(host.ReadablePath(argument), &grid, host.files.get());
  switch (read.kind()) {
    case StatusKind::kOk:
      return grid;
    case StatusKind::kNoMemory:
      throw Failure{argument, read.Text(ToolLanguage())};
    case StatusKind::kWrongFormat:
      throw Failure{argument, Say({"마스터 모델 화일이 아닙니다", "is no master model file"})};
    default:
      throw Failure{argument, ReadProblem(read), read};
  }
}

JobRecord DefaultRecord(const CTVXApp& app) {
  JobRecord record;
  record.WorkDir = app.configuration.WorkDir;
  record.ConditionDir = app.configuration.AFADir;
  return record;
}

}  // namespace tvx
