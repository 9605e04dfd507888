// The variables of word-address programs.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

namespace tvx {

// What was never assigned. All other values are finite.
inline constexpr double kVacant = std::numeric_limits<double>::quiet_NaN();

inline bool IsVacant(double value) {
  return std::isnan(value);
}

// The variables #1 to #33 of one call.
using LocalVariables = std::array<double, 34>;

// All variables vacant.
LocalVariables VacantLocals();

// #1 to #33 belong to a call, the others to the program.
class Variables {
 public:
  Variables();

  // A variable by its number, which is rounded; vacant if nothing was assigned. *isUnknown becomes
  // true if nothing was assigned to a variable that may be one of the control's own.
  double Read(double number, bool* isUnknown) const;

  // False, and nothing assigned, for #0 and below, and once there is no room for further variables.
  bool Assign(double number, double value);

  // A call with variables of its own, and its end.
  void Enter(const LocalVariables& locals) { locals_.push_back(locals); }
  void Leave() { locals_.pop_back(); }

 private:
  static constexpr size_t kCommons = 1000;
  // A program that assigns more is not after variables.
  static constexpr size_t kMostOthers = 1'000'000;

  std::vector<LocalVariables> locals_;
  std::array<double, kCommons> commons_;       // those that are the program's own
  std::unordered_map<int64_t, double> other_;  // that were assigned
};

}  // namespace tvx
