// The lines in which a result is told. The windows and files that show one differ in little things,
// and those are the arguments here.
#pragma once

#include <string>
#include <vector>

#include "model/result_entry.h"

namespace tvx {

// The restart options as the windows show them: whether there is one, and a line for its position
// if the kind is one of 1 to 4.
std::vector<std::string> RestartLines(const CutTimeEntry& entry);

// Whether the feed adjustment was on and, if so, its conditions. `weightIndent` stands before the
// two lines of weights.
std::vector<std::string> ConditionLines(const CutTimeEntry& entry, const char* weightIndent);

// The seven figures.
std::vector<std::string> FigureLines(const CutTimeEntry& entry, int rapidLengthDecimals);

// A line of FigureLines with its label in English; any other text as it is.
std::string EnglishFigure(const std::string& line);

// The three corner or slope weights, with a blank behind each.
std::string CornerWeightsText(const CutTimeEntry& entry);
std::string SlopeWeightsText(const CutTimeEntry& entry);

// A length in metres. The factor is a 32-bit value.
double Metres(float millimetres);

}  // namespace tvx
