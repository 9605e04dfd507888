#pragma once

#include <string>
#include <string_view>

#include "model/job_record.h"

namespace tvx {

// The fields of a record that differ from those of another, as "NAME=VALUE NAME=VALUE" in the order
// of the record; a list as "NAME=[WORD][WORD]". A test that compares this with a text also shows
// that every other field stayed as it was.
std::string Changes(const JobRecord& before, const JobRecord& after);

// The other way round: a record of defaults with such changes, all but those of lists.
JobRecord Record(std::string_view changes);

}  // namespace tvx
