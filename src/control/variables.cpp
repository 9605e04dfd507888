#include "control/variables.h"

namespace tvx {
namespace {

constexpr int64_t kLastLocal = 33;

int64_t WholeNumber(double number) {
  constexpr double kLimit = 1e15;
  if (IsVacant(number)) return 0;
  return static_cast<int64_t>(std::round(std::fmax(-kLimit, std::fmin(kLimit, number))));
}

bool IsLocal(int64_t number) {
  return number >= 1 && number <= kLastLocal;
}

// The common variables that a control leaves to programs. All others may be its own.
bool IsOwnCommon(int64_t number) {
  return (number >= 100 && number <= 199) || (number >= 500 && number <= 999);
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
  if (whole == 0) return kVacant;
  if (IsLocal(whole)) return locals_.back()[static_cast<size_t>(whole)];
  if (IsOwnCommon(whole)) return commons_[static_cast<size_t>(whole)];
  const auto found = other_.find(whole);
  if (found != other_.end()) return found->second;
  *isUnknown = true;
  return kVacant;
}

bool Variables::Assign(double number, double value) {
  const int64_t whole = WholeNumber(number);
  if (whole <= 0) return false;
  if (IsLocal(whole)) {
    locals_.back()[static_cast<size_t>(whole)] = value;
  } else if (IsOwnCommon(whole)) {
    commons_[static_cast<size_t>(whole)] = value;
  } else if (other_.size() < kMostOthers || other_.contains(whole)) {
    other_[whole] = value;
  } else {
    return false;
  }
  return true;
}

}  // namespace tvx
