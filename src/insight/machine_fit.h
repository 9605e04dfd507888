// Fits a machine profile to times that were measured at the machine.
#pragma once

#include <span>
#include <vector>

#include "insight/machine_profile.h"
#include "insight/machine_time.h"

namespace tvx {

// A program and the time that the machine took for it.
struct MeasuredProgram {
  BlockStore* store = nullptr;
  ProgramPauses pauses;
  double minutes = 0;  // measured, above 0
};

struct MachineFit {
  MachineProfile profile;      // the given one with new Acceleration and Factor
  double scale = 1;            // of Acceleration, kLowestScale to 1 / kLowestScale
  std::vector<double> before;  // minutes of each program with the given profile
  std::vector<double> after;   // and with the fitted one
};
inline constexpr double kLowestScale = 1.0 / 8;

// Finds the scale of Acceleration and the Factor for which the sum of the squared relative errors
// of the total times is smallest: the scale by golden section in its logarithm, the Factor for each
// scale in closed form. One program alone determines only the Factor; its scale stays 1. Programs
// that take no time have no influence.
MachineFit FitMachine(const MachineProfile& profile, std::span<const MeasuredProgram> programs);

// Root mean square of the relative errors of estimated times, as a fraction.
double RelativeError(std::span<const MeasuredProgram> programs, std::span<const double> minutes);

}  // namespace tvx
