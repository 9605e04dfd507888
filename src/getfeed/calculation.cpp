// The steps of the calculation, and the table of the record's fields.
#include "getfeed/calculation.h"

#include <cmath>

#include "base/numbers.h"
#include "getfeed/condition_tables.h"

namespace tvx {

namespace {

constexpr double kPi = 3.14;  // all proposals use this value, not the exact one
constexpr double kPowerScale = 1.0262515e-05F;

const GetFeedField kFields[] = {
    {"speedPercent", &GetFeedState::speedPercent},
    {"feedPercent", &GetFeedState::feedPercent},
    {"speedBase", &GetFeedState::speedBase},
    {"lengthFactor", &GetFeedState::lengthFactor},
    {"lengthRatio", &GetFeedState::lengthRatio},
    {"speedEffective", &GetFeedState::speedEffective},
    {"toothFeed", &GetFeedState::toothFeed},
    {"fluteCount", &GetFeedState::fluteCount},
    {"materialFactor", &GetFeedState::materialFactor},
    {"toolFormFactor", &GetFeedState::toolFormFactor},
    {"powerExponent", &GetFeedState::powerExponent},
    {"powerCoefficient", &GetFeedState::powerCoefficient},
    {"toolMaterial", &GetFeedState::toolMaterial},
    {"workMaterial", &GetFeedState::workMaterial},
    {"toolDiameter", &GetFeedState::toolDiameter},
    {"toolLength", &GetFeedState::toolLength},
    {"fluteLength", &GetFeedState::fluteLength},
    {"cutDepth", &GetFeedState::cutDepth},
    {"stepover", &GetFeedState::stepover},
    {"maxSpindle", &GetFeedState::maxSpindle},
    {"maxFeedRate", &GetFeedState::maxFeedRate},
    {"ncPower", &GetFeedState::ncPower},
    {"idlePower", &GetFeedState::idlePower},
    {"highSpeedRough", &GetFeedState::highSpeedRough},
    {"spindleOut", &GetFeedState::spindleOut},
    {"feedOut", &GetFeedState::feedOut},
    {"removalOut", &GetFeedState::removalOut},
};

// The diameter can be 0 while the user types. The last ratio and factor are then kept.
void UpdateLengthFactor(GetFeedState* state) {
  if (state->toolDiameter == 0) return;
  state->lengthRatio = state->toolLength / state->toolDiameter;
  state->lengthFactor = LengthFactor(state->lengthRatio, state->lengthFactor);
}

}  // namespace

std::span<const GetFeedField> GetFeedFields() {
  return kFields;
}

void StartCalculation(GetFeedState* state) {
  UpdateLengthFactor(state);
  RecalcSpeed(state);
  state->materialFactor =
      MaterialFactor(state->workMaterial, state->toolDiameter).value_or(state->materialFactor);
  RecalcTool(state);
  RecalcToothFeed(state);
}

void LookUpPower(GetFeedState* state) {
  const std::optional<PowerLaw> power = PowerConstants(state->workMaterial);
  if (!power) return;
  state->powerCoefficient = power->coefficient;
  state->powerExponent = power->exponent;
}

void RecalcSpeed(GetFeedState* state) {
  state->speedBase = BaseCutSpeed(state->toolMaterial, state->workMaterial);
  state->speedBase =
      static_cast<float>(state->speedPercent * static_cast<double>(state->speedBase) * 0.01);
  state->speedEffective = state->speedBase * state->lengthFactor;
  RecalcResult(state);
}

void RecalcTool(GetFeedState* state) {
  state->toolFormFactor =
      ToolFormFactor(state->toolMaterial, state->fluteLength, state->toolDiameter,
                     state->fluteCount, state->toolFormFactor);
  UpdateLengthFactor(state);
  state->speedEffective = state->lengthFactor * state->speedBase;
  RecalcToothFeed(state);
}

void RecalcToothFeed(GetFeedState* state) {
  state->toothFeed = ToothFeedLimit(state->toolDiameter, state->highSpeedRough != 0);
  RecalcResult(state);
}

void RecalcResult(GetFeedState* state) {
  const double diameter = state->toolDiameter;
  const double flutes = state->fluteCount;
  const float section = state->stepover * state->cutDepth;
  if (diameter == 0 || section == 0) return;

  auto spindle = static_cast<float>(std::trunc(state->speedEffective * 1000.0 / (diameter * kPi)));
  if (spindle > state->maxSpindle) spindle = state->maxSpindle;
  auto feed =
      static_cast<float>(static_cast<double>(state->toolFormFactor) * state->materialFactor *
                         diameter * state->speedEffective / section);
  if (feed > state->maxFeedRate) feed = state->maxFeedRate;
  if (spindle == 0 || flutes == 0) return;

  auto toothFeed = static_cast<float>(feed / (spindle * flutes));
  if (toothFeed > state->toothFeed) {
    toothFeed = state->toothFeed;
    feed = static_cast<float>(static_cast<double>(toothFeed) * spindle * flutes);
  } else if (toothFeed > 0) {
    // Below the limit the spindle speed falls until the tooth feed meets it; the feed stays.
    spindle = static_cast<float>(static_cast<double>(toothFeed) * spindle / state->toothFeed);
    toothFeed = state->toothFeed;
  }

  const double perTurn = static_cast<double>(section) * toothFeed * flutes;
  const auto power = static_cast<float>(
      state->powerCoefficient * std::pow(perTurn, static_cast<double>(state->powerExponent)) *
      spindle * kPowerScale);
  if (static_cast<double>(power) + state->idlePower > state->ncPower) {
    if (power == 0) return;
    spindle = static_cast<float>((static_cast<double>(state->ncPower) - state->idlePower) *
                                 spindle / power);
    feed = static_cast<float>(static_cast<double>(toothFeed) * spindle * flutes);
  }

  const double percent = state->feedPercent;
  const auto feedOut = static_cast<float>(percent * feed * 0.01);
  const auto removalOut = static_cast<float>(feedOut * percent * section * 0.01);
  if (!std::isfinite(spindle) || !std::isfinite(feedOut) || !std::isfinite(removalOut)) return;
  state->spindleOut = TruncateToInt(spindle);
  state->feedOut = feedOut;
  state->removalOut = removalOut;
}

}  // namespace tvx
