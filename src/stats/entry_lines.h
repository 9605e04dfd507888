// The lines in which a result is told. The windows and files that show one differ in little things,
// and those are the arguments here.
#pragma once

#include <string>
#include <vector>

#include "base/message.h"
#include "model/option_fields.h"
#include "model/result_entry.h"

namespace tvx {

// A restart position as the windows show it, without its label; empty if the kind is not one of 1
// to 4.
std::string RestartPosition(const RestartOptions& options, Language language);

// The same as reports and information lists show it: three decimals, the upper bound of the Z area
// first, and the tolerance of a point on a separate line. No line for any other kind.
std::vector<std::string> RestartReportLines(const RestartOptions& options, Language language);

// The restart options as the windows show them: whether there is one, and a line for its position
// if the kind is one of 1 to 4.
std::vector<std::string> RestartLines(const RestartOptions& options, Language language);

// A parameter as lists show it: its label in a language, and its value with so many decimals.
std::string LabelledText(const FeedOptions& options, const FeedField& field, int decimals,
                         Language language);

// Whether the feed adjustment was on and, if so, its conditions. `weightIndent` precedes the lines
// of weights.
std::vector<std::string> ConditionLines(const CutTimeEntry& entry, const char* weightIndent,
                                        Language language);

// The seven figures.
std::vector<std::string> FigureLines(const CutTimeEntry& entry, int rapidLengthDecimals,
                                     Language language);

// A length in metres. The factor is a 32-bit value.
double Metres(float millimetres);

}  // namespace tvx
