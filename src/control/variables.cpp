#include "control/variables.h"

namespace tvx {
namespace {

constexpr int64_t kLastLocal = 33;

int64_t WholeNumber(double number) {
  constexpr double kLimit = 1e15;
  if (IsVacant(number)) return 0;
  return static_cast<int64_t>(std::round(std::fmax(-kLimit, std::fmin(kLimit, number))));
}

// Vacant variables of a program. What lies outside belongs to the control.
bool IsOwn(int64_t number) {
  return (number >= 0 && number <= kLastLocal) || (number >= 100 && number <= 199) ||
         (number >= 500 && number <= 999);
}

}  // namespace

LocalVariables VacantLocals() {
  LocalVariables locals;
  locals.fill(kVacant);
  return locals;
}

Variables::Variables() : locals_{VacantLocals()} {
  commons_.fill(kVacant);
}

double Variables::Read(double number, bool* isUnknown) const {
  const int64_t whole = WholeNumber(number);
  double value = kVacant;
  if (whole > 0 && whole <= kLastLocal) {
    value = locals_.back()[static_cast<size_t>(whole)];
  } else if (whole > 0 && whole < static_cast<int64_t>(kCommons)) {
    value = commons_[static_cast<size_t>(whole)];
  } else if (const auto found = far_.find(whole); found != far_.end()) {
    value = found->second;
  }
  if (IsVacant(value) && !IsOwn(whole)) *isUnknown = true;
  return value;
}

bool Variables::Assign(double number, double value) {
  const int64_t whole = WholeNumber(number);
  if (whole <= 0) return false;
  if (whole <= kLastLocal) {
    locals_.back()[static_cast<size_t>(whole)] = value;
  } else if (whole < static_cast<int64_t>(kCommons)) {
    commons_[static_cast<size_t>(whole)] = value;
  } else if (far_.size() < kMostFarVariables || far_.contains(whole)) {
    far_[whole] = value;
  } else {
    return false;
  }
  return true;
}

}  // namespace tvx
