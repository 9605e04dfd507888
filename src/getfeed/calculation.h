// The calculation of spindle speed, feed and removal rate: a record, and steps that work on it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace tvx {

// The record of the calculator: the inputs, the values of the tables, and the results. The numbers
// are 32-bit floats; each assignment of a step is computed in double and rounded to a float once.
struct GetFeedState {
  int32_t speedPercent = 100;  // slider from tool protection to machining speed
  int32_t feedPercent = 100;   // slider from high quality to machining speed
  float speedBase = 300.0F;    // m/min, after the tables and speedPercent
  float lengthFactor = 1.0F;
  float lengthRatio = 0;     // toolLength / toolDiameter
  float speedEffective = 0;  // m/min, speedBase with the length factor
  float toothFeed = 0;       // mm per tooth, the limit
  float fluteCount = 2.0F;
  float materialFactor = 1.0F;
  float toolFormFactor = 1.0F;
  float powerExponent = 0.82F;
  float powerCoefficient = 12.11F;
  std::string toolMaterial = "초경";
  std::string workMaterial = "KP4";
  float toolDiameter = 10.0F;    // mm
  float toolLength = 50.0F;      // mm
  float fluteLength = 30.0F;     // mm
  float cutDepth = 0.2F;         // mm
  float stepover = 0.2F;         // mm
  float maxSpindle = 10000.0F;   // 1/min, limit of the machine
  float maxFeedRate = 10000.0F;  // mm/min, limit of the machine
  float ncPower = 10.0F;         // kW, limit of the machine
  float idlePower = 3.0F;        // kW, consumed without load
  int32_t highSpeedRough = 0;
  int32_t spindleOut = 0;  // 1/min
  float feedOut = 0;       // mm/min
  float removalOut = 0;    // mm3/min
};

struct GetFeedField {
  const char* name;
  std::variant<int32_t GetFeedState::*, float GetFeedState::*, std::string GetFeedState::*> member;
};

// All fields in their order.
std::span<const GetFeedField> GetFeedFields();

// The steps of the calculation. Each works on the whole record and ends by running the next one, so
// that the results are up to date after it. To change an input, set its field and run the step
// listed for it.

// Runs every step once, for a record with its start values and the caller's diameter and work
// material. This is the only step that looks up materialFactor, which does not follow later
// changes.
void StartCalculation(GetFeedState* state);

// Looks up the power constants of the work material. Runs no other step.
void LookUpPower(GetFeedState* state);

// After a change of work material, tool material or speedPercent. Runs RecalcResult.
void RecalcSpeed(GetFeedState* state);

// After a change of tool material, toolDiameter, toolLength or fluteLength. Runs RecalcToothFeed.
// With a diameter of 0 the length ratio and its factor do not change.
void RecalcTool(GetFeedState* state);

// After a change of highSpeedRough. Runs RecalcResult.
void RecalcToothFeed(GetFeedState* state);

// After a change of fluteCount, cutDepth, stepover, maxSpindle, maxFeedRate, ncPower, idlePower or
// feedPercent. While an input makes one of its divisions impossible, as can happen while the user
// types, the results do not change.
void RecalcResult(GetFeedState* state);

}  // namespace tvx
