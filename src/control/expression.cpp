// A parser by recursive descent. Each bracket, and nothing else, goes one level deeper.
#include "control/expression.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "control/degrees.h"
#include "control/nc_text.h"

namespace tvx {
namespace {

// Values that agree within this, relative above 1, are equal.
constexpr double kEqual = 1e-9;

// Vacant values are 0 in computations.
double NumberOf(double value) {
  return IsVacant(value) ? 0 : value;
}

bool AreEqual(double a, double b) {
  if (IsVacant(a) || IsVacant(b)) return IsVacant(a) && IsVacant(b);
  return std::abs(a - b) <= kEqual * std::max({1.0, std::abs(a), std::abs(b)});
}

// The bits of a value for AND, OR and XOR.
int64_t BitsOf(double value) {
  constexpr double kLimit = 9e18;
  return std::llround(std::clamp(NumberOf(value), -kLimit, kLimit));
}

// A value that is within the tolerance of a whole number is that number.
double Whole(double value, double (*round)(double)) {
  const double nearest = std::round(value);
  return std::abs(value - nearest) <= kEqual ? nearest : round(value);
}

double AwayFromZero(double value) {
  return value < 0 ? std::floor(value) : std::ceil(value);
}

double CompareOrder(double a, double b) {
  const double x = NumberOf(a), y = NumberOf(b);
  return AreEqual(x, y) ? 0 : x - y;
}

double Bool(bool value) {
  return value ? 1 : 0;
}

struct NamedFunction {
  std::string_view name;
  double (*value)(double);
};

// clang-format off
constexpr NamedFunction kFunctions[] = {
    {"SIN", SineOf},
    {"COS", CosineOf},
    {"TAN", [](double x) { return std::tan(ToRadians(x)); }},
    {"ASIN", [](double x) { return ToDegrees(std::asin(x)); }},
    {"ACOS", [](double x) { return ToDegrees(std::acos(x)); }},
    {"SQRT", [](double x) { return std::sqrt(x); }},
    {"ABS", [](double x) { return std::abs(x); }},
    {"ROUND", [](double x) { return std::round(x); }},
    {"FIX", [](double x) { return Whole(x, [](double y) { return std::trunc(y); }); }},
    {"FUP", [](double x) { return Whole(x, AwayFromZero); }},
    {"LN", [](double x) { return std::log(x); }},
    {"EXP", [](double x) { return std::exp(x); }},
};
// clang-format on

struct OperatorRow {
  size_t level;  // the loosest is 0
  std::string_view name;
  double (*value)(double, double);
};

// clang-format off
constexpr OperatorRow kOperators[] = {
    {0, "AND", [](double a, double b) { return static_cast<double>(BitsOf(a) & BitsOf(b)); }},
    {0, "OR", [](double a, double b) { return static_cast<double>(BitsOf(a) | BitsOf(b)); }},
    {0, "XOR", [](double a, double b) { return static_cast<double>(BitsOf(a) ^ BitsOf(b)); }},
    {1, "EQ", [](double a, double b) { return Bool(AreEqual(a, b)); }},
    {1, "NE", [](double a, double b) { return Bool(!AreEqual(a, b)); }},
    {1, "GT", [](double a, double b) { return Bool(CompareOrder(a, b) > 0); }},
    {1, "GE", [](double a, double b) { return Bool(CompareOrder(a, b) >= 0); }},
    {1, "LT", [](double a, double b) { return Bool(CompareOrder(a, b) < 0); }},
    {1, "LE", [](double a, double b) { return Bool(CompareOrder(a, b) <= 0); }},
    {2, "+", [](double a, double b) { return NumberOf(a) + NumberOf(b); }},
    {2, "-", [](double a, double b) { return NumberOf(a) - NumberOf(b); }},
    {3, "*", [](double a, double b) { return NumberOf(a) * NumberOf(b); }},
    {3, "/", [](double a, double b) { return NumberOf(a) / NumberOf(b); }},
    {3, "MOD", [](double a, double b) { return std::fmod(NumberOf(a), NumberOf(b)); }},
};
// clang-format on
constexpr size_t kLevels = 4;

// Takes signs and blanks. True for an odd number of minus signs.
bool TakeSigns(const char** text) {
  bool isNegative = false;
  for (*text = SkipBlanks(*text); **text == '+' || **text == '-'; *text = SkipBlanks(*text + 1)) {
    if (**text == '-') isNegative = !isNegative;
  }
  return isNegative;
}

// Takes an operator of a level. Null if there is none at *text.
const OperatorRow* TakeOperator(const char** text, size_t level) {
  for (const OperatorRow& row : kOperators) {
    if (row.level == level && TakeName(text, row.name)) return &row;
  }
  return nullptr;
}

}  // namespace

bool Expressions::TakeExpression(const char** text, double* value) {
  return Binary(text, 0, value);
}

bool Expressions::Binary(const char** text, size_t level, double* value) {
  if (level == kLevels) return Factor(text, value);
  if (!Binary(text, level + 1, value)) return false;
  while (const OperatorRow* const row = TakeOperator(text, level)) {
    double right = 0;
    if (!Binary(text, level + 1, &right)) return false;
    *value = Finite(row->value(*value, right));
  }
  return true;
}

bool Expressions::Factor(const char** text, double* value) {
  const bool isNegative = TakeSigns(text);
  bool hasPoint = false;
  const bool isName = GlyphOf(**text) == Glyph::kLetter;
  if (!(isName ? Function(text, value) : Unsigned(text, value, &hasPoint))) return false;
  if (isNegative) *value = -*value;
  return true;
}

bool Expressions::TakeValue(const char** text, double* value, bool* hasPoint) {
  const bool isNegative = TakeSigns(text);
  if (!Unsigned(text, value, hasPoint)) return false;
  if (isNegative) *value = -*value;
  return true;
}

bool Expressions::Unsigned(const char** text, double* value, bool* hasPoint) {
  *hasPoint = false;
  if (**text == '[') return TakeBracketed(text, value);
  if (**text == '#') {
    double number = 0;
    if (!TakeVariableNumber(text, &number)) return false;
    *value = Read(number);
    return true;
  }
  const NcNumber number = TakeNumber(text);
  *value = Finite(number.value);
  *hasPoint = number.hasPoint;
  return !number.isEmpty;
}

bool Expressions::TakeBracketed(const char** text, double* value) {
  *text = SkipBlanks(*text);
  if (**text != '[' || depth_ == kDeepestNesting) return false;
  ++*text;
  ++depth_;
  const bool isRead = TakeExpression(text, value);
  --depth_;
  *text = SkipBlanks(*text);
  if (!isRead || **text != ']') return false;
  *text = SkipBlanks(*text + 1);
  return true;
}

bool Expressions::TakeVariableNumber(const char** text, double* number) {
  *text = SkipBlanks(*text);
  if (**text != '#') return false;
  *text = SkipBlanks(*text + 1);
  if (**text == '[') return TakeBracketed(text, number);
  const NcNumber digits = TakeNumber(text);
  *number = digits.value;
  return !digits.isEmpty && !digits.hasPoint;
}

bool Expressions::Function(const char** text, double* value) {
  if (TakeName(text, "ATAN")) {
    if (!TakeBracketed(text, value)) return false;
    double adjacent = 1;
    const char* next = *text;
    if (TakeName(&next, "/") && *SkipBlanks(next) == '[') {
      *text = next;
      if (!TakeBracketed(text, &adjacent)) return false;
    }
    *value = ToDegrees(std::atan2(NumberOf(*value), NumberOf(adjacent)));
    return true;
  }
  for (const NamedFunction& function : kFunctions) {
    if (!TakeName(text, function.name)) continue;
    if (!TakeBracketed(text, value)) return false;
    *value = Finite(function.value(NumberOf(*value)));
    return true;
  }
  return false;
}

double Expressions::Read(double number) {
  bool isUnknown = false;
  const double value = variables_ != nullptr ? variables_->Read(number, &isUnknown) : kVacant;
  if (isUnknown) hasFault_ = true;
  return value;
}

// The result of an operation; 0 if it has none.
double Expressions::Finite(double value) {
  if (std::isfinite(value)) return value;
  hasFault_ = true;
  return 0;
}

}  // namespace tvx
