#include "getfeed/calculation.h"

#include <cmath>

#include "getfeed/condition_tables.h"
#include "platform/numbers.h"

namespace tvx {

namespace {

constexpr float kPi = 3.14F;  // what the figures of the shops were made with
constexpr float kPowerScale = 1.0262515e-05F;

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

}  // namespace

std::span<const GetFeedField> GetFeedFields() {
  return kFields;
}

void StartCalculation(GetFeedState* state) {
  if (state->toolDiameter != 0) {
    state->lengthRatio = state->toolLength / state->toolDiameter;
    state->lengthFactor = LengthFactor(state->lengthRatio, state->lengthFactor);
  }
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
  state->speedBase = static_cast<float>(state->speedPercent) * state->speedBase * 0.01F;
  state->speedEffective = state->speedBase * state->lengthFactor;
  RecalcResult(state);
}

void RecalcTool(GetFeedState* state) {
  if (state->toolDiameter != 0) {
    state->lengthRatio = state->toolLength / state->toolDiameter;
    state->toolFormFactor =
        ToolFormFactor(state->toolMaterial, state->fluteLength, state->toolDiameter,
                       state->fluteCount, state->toolFormFactor);
    state->lengthFactor = LengthFactor(state->lengthRatio, state->lengthFactor);
  }
  state->speedEffective = state->lengthFactor * state->speedBase;
  RecalcToothFeed(state);
}

void RecalcToothFeed(GetFeedState* state) {
  state->toothFeed = ToothFeedLimit(state->toolDiameter, state->highSpeedRough != 0);
  RecalcResult(state);
}

void RecalcResult(GetFeedState* state) {
  const float perimeter = state->toolDiameter * kPi;
  const float section = state->stepover * state->cutDepth;
  if (perimeter == 0 || section == 0) return;

  float spindle = std::trunc(state->speedEffective * 1000.0F / perimeter);
  if (spindle > state->maxSpindle) spindle = state->maxSpindle;
  float feed = state->toolFormFactor * state->materialFactor * state->toolDiameter *
               state->speedEffective / section;
  if (feed > state->maxFeedRate) feed = state->maxFeedRate;
  const float teeth = spindle * state->fluteCount;
  if (teeth == 0) return;

  float toothFeed = feed / teeth;
  if (toothFeed > state->toothFeed) {
    toothFeed = state->toothFeed;
    feed = toothFeed * spindle * state->fluteCount;
  } else if (toothFeed > 0) {
    // The spindle comes down to the limit, so that the feed can stay.
    spindle = toothFeed * spindle / state->toothFeed;
    toothFeed = state->toothFeed;
  }

  const float perTurn = section * toothFeed * state->fluteCount;
  const float power = state->powerCoefficient *
                      static_cast<float>(std::pow(static_cast<double>(perTurn),
                                                  static_cast<double>(state->powerExponent))) *
                      spindle * kPowerScale;
  if (power + state->idlePower > state->ncPower) {
    if (power == 0) return;
    spindle = (state->ncPower - state->idlePower) * spindle / power;
    feed = toothFeed * spindle * state->fluteCount;
  }

  const auto percent = static_cast<float>(state->feedPercent);
  const float feedOut = percent * feed * 0.01F;
  const float removalOut = feedOut * percent * section * 0.01F;
  if (!std::isfinite(spindle) || !std::isfinite(feedOut) || !std::isfinite(removalOut)) return;
  state->spindleOut = TruncateToInt(spindle);
  state->feedOut = feedOut;
  state->removalOut = removalOut;
}

}  // namespace tvx
