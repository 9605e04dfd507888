#pragma once

#include "platform/user_interface.h"

namespace tvx {

// The fixed texts of the job dialog, by number.
enum class JobMessage {
  kCannotOpen = 1,
  kNoFileSelected = 4,
  kEntryIsFrozen = 5,
  kCannotEnter = 6,
};

// A message of the table, with its caption.
Message MessageOf(JobMessage message);

}  // namespace tvx
