// The fit of a machine profile: a search over one scale, with the best Factor for each.
#include "insight/machine_fit.h"

#include <cmath>
#include <numbers>

namespace tvx {

namespace {

// The search ends when the logarithm of the scale is known this well.
constexpr double kScalePrecision = 1e-6;

MachineProfile Scaled(const MachineProfile& profile, double scale, double factor) {
  MachineProfile scaled = profile;
  for (double& acceleration : scaled.Acceleration) acceleration *= scale;
  scaled.Factor = factor;
  return scaled;
}

std::vector<double> TotalMinutes(std::span<const MeasuredProgram> programs,
                                 const MachineProfile& profile) {
  std::vector<double> minutes;
  minutes.reserve(programs.size());
  for (const MeasuredProgram& program : programs) {
    minutes.push_back(ComputeMachineTime(program.store, profile, program.pauses).totalMinutes);
  }
  return minutes;
}

struct Trial {
  double factor = 1;
  double squaredErrors = 0;
};

// The factor f for which the sum of (f r - 1)^2 is smallest, r being the estimated time at Factor 1
// over the measured one: f = sum(r) / sum(r^2).
Trial TryScale(const MachineProfile& profile, std::span<const MeasuredProgram> programs,
               double scale) {
  const std::vector<double> minutes = TotalMinutes(programs, Scaled(profile, scale, 1));
  double sum = 0, squares = 0;
  for (size_t i = 0; i < programs.size(); ++i) {
    const double ratio = minutes[i] / programs[i].minutes;
    sum += ratio;
    squares += ratio * ratio;
  }
  Trial trial;
  if (squares > 0) trial.factor = sum / squares;
  for (size_t i = 0; i < programs.size(); ++i) {
    const double error = trial.factor * minutes[i] / programs[i].minutes - 1;
    trial.squaredErrors += error * error;
  }
  return trial;
}

// The scale with the smallest error, by golden section in its logarithm.
double BestScale(const MachineProfile& profile, std::span<const MeasuredProgram> programs) {
  const auto errorAt = [&](double logarithm) {
    return TryScale(profile, programs, std::exp(logarithm)).squaredErrors;
  };
  constexpr double kGolden = 1 / std::numbers::phi;
  double low = std::log(kLowestScale), high = -low;
  double left = high - kGolden * (high - low), right = low + kGolden * (high - low);
  double leftError = errorAt(left), rightError = errorAt(right);
  while (high - low > kScalePrecision) {
    if (leftError <= rightError) {
      high = right;
      right = left;
      rightError = leftError;
      left = high - kGolden * (high - low);
      leftError = errorAt(left);
    } else {
      low = left;
      left = right;
      leftError = rightError;
      right = low + kGolden * (high - low);
      rightError = errorAt(right);
    }
  }
  return std::exp((low + high) / 2);
}

}  // namespace

MachineFit FitMachine(const MachineProfile& profile, std::span<const MeasuredProgram> programs) {
  MachineFit fit;
  if (programs.size() > 1) fit.scale = BestScale(profile, programs);
  fit.profile = Scaled(profile, fit.scale, TryScale(profile, programs, fit.scale).factor);
  fit.before = TotalMinutes(programs, profile);
  fit.after = TotalMinutes(programs, fit.profile);
  return fit;
}

double RelativeError(std::span<const MeasuredProgram> programs, std::span<const double> minutes) {
  double squares = 0;
  for (size_t i = 0; i < programs.size(); ++i) {
    const double error = minutes[i] / programs[i].minutes - 1;
    squares += error * error;
  }
  return programs.empty() ? 0 : std::sqrt(squares / static_cast<double>(programs.size()));
}

}  // namespace tvx
