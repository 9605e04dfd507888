// The restart position of a file: the dialog that sets it and the texts that show it.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/message.h"
#include "model/job_record.h"
#include "model/option_fields.h"
#include "platform/user_interface.h"

namespace tvx {

// The decimal fields of the restart dialog.
inline std::span<const RestartField> RestartDecimals() {
  constexpr size_t kOthers = 3;  // the switch, the kind and the number come before them
  return RestartFields().subspan(kOthers);
}

// Sets the position at which the transfer of a file resumes after an interruption. Every file that
// enters the job list afterwards carries it. Only the transfer program interprets it, so no range
// is checked.
class CRestartDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "재전송";
  // Captions of the radio buttons of RestartKind 1 to 4. Kinds 1 and 2 have a field of the number,
  // kind 3 the first two of RestartDecimals, kind 4 the others.
  static constexpr std::array<const char*, 4> kKinds = {"시퀀스 번호", "NCDATA 블록", "Z 영역",
                                                        "X,Y,Z 좌표"};

  // Opens on a private copy of the record. `options` is kept until the dialog closes.
  void Open(JobRecord* options);

  // A radio button, 1 to 4.
  void SelectKind(int kind);
  // A change in one of the two number fields, which both show numberText. Text that is no number
  // counts as 0.
  void EditNumber(std::string_view text);
  // A change in a decimal field, by its position in RestartDecimals.
  void EditDecimal(size_t index, std::string_view text);

  // Switches the position on and copies the record back. With kind 4 and no point set it acts as
  // Cancel. Never stays open.
  Closing Accept();
  // Switches the position off.
  Closing Cancel();

  JobRecord own;  // RestartKind is the radio button's
  std::string numberText;
  std::vector<std::string> decimalTexts;

 private:
  JobRecord* options_ = nullptr;
};

// Caption of the job dialog's button after the dialog: with the position in `options` if the dialog
// was accepted, without one otherwise.
std::string RestartButtonText(const JobRecord& options, bool accepted, Language language);

// The rows of the information list for a position that is switched on: one for kinds 1 to 3, two
// for kind 4, none for any other.
std::vector<std::string> RestartInfoRows(const JobRecord& job, Language language);

}  // namespace tvx
