// Fuzzes the reader of job lists, with and without a drive letter, and the operations of the job
// dialog on the list. The input is the content of the list file and of every other file.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "fuzz_world.h"
#include "jobs/transfer_dialog.h"
#include "platform/processes/programs.h"

namespace {

using namespace tvx;

// The dialog parses a line again at each press: long ones are left to the reader, so that there are
// thousands of runs a second.
constexpr size_t kMostForTheDialog = 300;  // bytes
constexpr size_t kTriedRows = 2;

bool SameLists(const JobList& a, const JobList& b) {
  return a.names == b.names && a.lines == b.lines;
}

void CheckLengths(const JobList& list) {
  Require(list.names.size() == list.lines.size() && list.size() <= kJobListSlots);
}

void CheckShape(const JobList& list) {
  CheckLengths(list);
  for (size_t i = 0; i < list.size(); ++i) {
    Require(!list.names[i].empty() && list.names[i].find_first_of(" /\\:") == std::string::npos);
    Require(list.lines[i].empty() || list.lines[i].back() == ' ');
  }
}

JobList CheckReader(std::string_view text) {
  const ListReading reading = ReadJobList(text, std::nullopt);
  const JobList& list = reading.list;
  CheckShape(list);
  if (reading.problem != ListProblem::kNone) Require(list.size() == 0 && reading.line > 0);
  Require(SameLists(ReadJobList(PrintJobList(list), std::nullopt).list, list));

  const JobList moved = ReadJobList(text, 'd').list;
  if (moved.size() == 0 || list.size() == 0) return list;  // "X:..." may be refused in one of them
  CheckShape(moved);
  Require(moved.names == list.names);
  for (size_t i = 0; i < moved.size(); ++i) {
    Require(moved.lines[i].find("X:") == std::string::npos);
    Require(moved.lines[i].size() == list.lines[i].size());
  }
  return list;
}

// Presses the key-code buttons with each of the last rows of the information list selected. The key
// codes are the last rows.
void PressKeyCodeButtons(CTransferDlg* dialog) {
  for (const CTransferDlg::Button& button : CTransferDlg::KeyCodeButtons()) {
    const size_t rows = dialog->information.size();
    for (size_t row = rows - std::min(rows, kTriedRows); row < rows; ++row) {
      if (row >= dialog->information.size()) break;
      dialog->selectedInformation = static_cast<int>(row);
      (dialog->*button.press)();
      CheckLengths(dialog->list);
    }
  }
}

void CheckDialog(const JobList& list, FuzzFiles* files, FuzzUi* ui) {
  const std::vector<std::string> userKeys(100);
  const std::vector<std::string> extensions = {"*.nc"};
  JobRecord slot, working;
  working.FirstEditable = 0;
  CTransferDlg dialog(&userKeys, files, ui);
  dialog.Open({&slot, &working, "c:", "", &extensions, NoPrograms()});
  dialog.ReadList();
  Require(SameLists(dialog.list, list));
  dialog.Accept();
  dialog.Open({&slot, &working, "c:", "", &extensions, NoPrograms()});
  CheckLengths(dialog.list);

  if (dialog.list.size() > 0) {
    dialog.SelectEntry(static_cast<int>(dialog.list.size() / 2));
    Require(dialog.information.size() > 3);
    PressKeyCodeButtons(&dialog);
    dialog.Preview();
    dialog.EditEntry();
  }
  dialog.SaveList();
  const size_t size = dialog.list.size();
  dialog.DeleteEntry();
  Require(dialog.list.size() + (size > 0 ? 1 : 0) == size);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes = AsText(data, size);
  FuzzFiles files(bytes);
  FuzzUi ui;
  const JobList list = CheckReader(DecodeCp949(bytes));
  if (size <= kMostForTheDialog) CheckDialog(list, &files, &ui);
  return 0;
}
