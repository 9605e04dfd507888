// The dialog that shows the current result.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/message.h"
#include "model/result_entry.h"
#include "platform/user_interface.h"

namespace tvx {

// The lines in which a result is shown to the user before it is recorded: restart options,
// conditions of the feed adjustment if it is on, and the seven figures.
std::vector<std::string> FileInformationLines(const CutTimeEntry& entry, Language language);

// The file information dialog: shows a result and asks whether it goes into the table. Nothing is
// editable.
class CFileInfoDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "화일정보";
  static constexpr char kAccept[] = "Info list에추가";  // the accepting button
  static constexpr char kCancel[] = "Cancel";

  // The list box as filled when the dialog opens.
  std::vector<std::string> Lines(Language language) const {
    return FileInformationLines(entry, language);
  }

  CutTimeEntry entry;

  // Total time before the adjustment, minutes; shown beside the lines if there is one.
  std::optional<float> timeBefore;
};

}  // namespace tvx
