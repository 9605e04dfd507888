#include "control/control_reading.h"

#include <memory>

#include "control/program_run.h"
#include "control/word_reader.h"

namespace tvx {

ReadingResult ReadAsControl(const std::string& path, const ReadingOptions& options, Files* files,
                            MoveReceiver* receiver, ReadingRemarks* remarks) {
  if (options.isConversational) return ReadingResult::kNoReader;
  const std::unique_ptr<InputFile> file = files->OpenForReading(path);
  if (file == nullptr) return ReadingResult::kCannotOpen;

  ProgramRun run(file.get(), options, receiver, remarks);
  RunWordProgram(&run, options.isIntegerData);
  if (run.limit.IsExceeded()) run.path.Remark(ReadingRemarkId::kEndless, "");

  if (options.progress->IsStopped()) return ReadingResult::kStopped;
  const int error = file->Error() == 0 && run.text.IsShort() ? kFileChanged : file->Error();
  if (error == 0) return ReadingResult::kRead;
  files->Fail(error);
  return ReadingResult::kReadFailed;
}

}  // namespace tvx
