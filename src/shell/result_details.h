// What a recorded result keeps for the job sheet and the workbook.
#pragma once

#include <memory>

#include "reports/entry_details.h"
#include "shell/tvx_view.h"

namespace tvx {

// The details of the program in the store, as far as the result table wants any; null if none are
// wanted. The remarks are left out. The program, its register and the view stay as they are.
std::shared_ptr<EntryDetails> MakeDetails(CTVXView* view);

// Adds to the details of all results what the checks of their programs found: the remarks, and the
// dwells and tool changes of the machine time. Checks that are under way are brought to their end
// first.
void CompleteDetails(CTVXView* view);

// The same for one result.
void AddCheck(const ProgramCheck& check, EntryDetails* details);

}  // namespace tvx
