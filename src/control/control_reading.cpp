#include "control/control_reading.h"

#include <memory>

#include "control/program_run.h"
#include "control/word_reader.h"

namespace tvx {

Status ReadAsControl(const std::string& path, const ReadingOptions& options, Files* files,
                     MoveReceiver* receiver, ReadingRemarks* remarks) {
  if (options.isConversational) return {StatusKind::kWrongFormat, path};
  const Result<std::unique_ptr<InputFile>> file = files->OpenForReading(path);
  if (!file.ok()) return file.status;

  ProgramRun run(file.value.get(), options, receiver, remarks);
  RunWordProgram(&run, options.isIntegerData);
  if (run.limit.IsExceeded()) run.path.Remark(ReadingRemarkId::kEndless, "");

  if (options.progress->IsStopped()) return {StatusKind::kStopped, path};
  Status read = file.value->status();
  return read.ok() && run.text.IsShort() ? Status(StatusKind::kChanged, path) : read;
}

}  // namespace tvx
