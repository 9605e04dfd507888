// The programs named on the command line, and the steps of each with its progress on the terminal.
#pragma once

#include <string>
#include <vector>

#include "cli/host.h"
#include "feed/feed_pass.h"
#include "model/loader.h"
#include "session/tvx_view.h"

namespace tvx {

// The help texts that several commands have.
inline constexpr Message kFileHelp{"NC 프로그램", "NC program"};
inline constexpr Message kFilesHelp{"차례로 읽을 NC 프로그램",
                                    "NC programs, read one after the other"};
inline constexpr Message kJsonHelp{"JSON 문서 하나로 출력", "print one JSON document"};
inline constexpr Message kFreshHelp{
    "프로그램마다 앞 프로그램의 모달 상태를 이어받지 않고 새로 읽기",
    "read each program with the modal state of a new process, not with that of the one before"};

// A program named on the command line.
struct ProgramFile {
  std::string argument;  // as the user named it
  std::string path;      // drive path
};

// The files of the arguments, kStandardInput among them. Throws Failure for the first one that
// cannot be read, so that nothing is printed after a wrong name.
std::vector<ProgramFile> FindProgramFiles(const Host& host,
                                          const std::vector<std::string>& arguments);

// Leaves what one program leaves for the next as it is in a new process.
void ForgetModalState(CTVXView* view);

// Loads a program into the view.
Status LoadProgramFile(const ProgramFile& file, CTVXView* view);

// Why a load failed, for an error line. `program` is what the load left.
std::string LoadProblem(const Status& load, const NcProgram& program);

// Loads a program of which a part is of no use. Throws Failure if it is not read as a whole.
void LoadWholeProgram(const ProgramFile& file, CTVXView* view);

// Adjusts the feeds of the program in the view; the trace receives each change.
void AdjustProgram(const ProgramFile& file, CTVXView* view, const FeedTrace& trace = {});

// Loads a whole program and adjusts its feeds if `adjusts`.
void PrepareProgram(const ProgramFile& file, bool adjusts, CTVXView* view);

// Makes the result of the program in the view, with what the view wants, after an adjustment of its
// feeds if `adjusts`.
ProgramResult EvaluateProgram(const ProgramFile& file, bool adjusts,
                              std::shared_ptr<const FileCheck> check, CTVXView* view);

// Prints a program as the command blocks does: a line with its name, its counts and what its load
// returned, then its records, one a line.
void PrintStore(const std::string& name, const NcProgram& program, const Status& load);

}  // namespace tvx
