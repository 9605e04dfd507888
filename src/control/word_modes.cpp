// Modal groups: what the G words of a line change for it and the lines after it.
#include "control/word_state.h"

namespace tvx {
namespace {

using enum GGroup;

constexpr double kInch = 25.4;  // mm

void SetMotion(uint16_t tenths, WordState* state) {
  WordModes& modes = state->modes;
  const CycleKind* const cycle = FindCycle(tenths);
  if (cycle == nullptr) {
    modes.motion = static_cast<Motion>(tenths / 10);
    if (modes.cycle.kind != nullptr) modes.cycle = {};
    return;
  }
  if (modes.cycle.kind == nullptr) {
    modes.cycle.initialLevel = modes.coordinates.LessShift(state->path.Position(), 2);
  }
  modes.cycle.kind = cycle;
}

void EndCycle(WordModes* modes) {
  if (modes->cycle.kind == nullptr) return;
  modes->cycle = {};
  if (modes->motion != Motion::kCut) modes->motion = Motion::kRapid;
}

// All offsets are taken as equal. A program that changes them between its moves knows better.
void SetWorkOffset(uint16_t tenths, WordState* state) {
  const bool hasNumber = tenths == 541 || tenths == 1540;
  const std::pair offset(tenths, hasNumber ? state->words.Or('P', 0) : 0);
  if (state->path.HasMoved() && offset != state->modes.workOffset) {
    state->Remark(ReadingRemarkId::kWorkOffset, WordText('G', tenths / 10.0));
  }
  state->modes.workOffset = offset;
}

}  // namespace

void FindGroups(WordState* state) {
  state->groups.Clear();
  for (const double g : state->words.gWords) {
    const GWord& word = FindGWord(g);
    if (word.group == kUnknown) state->Remark(ReadingRemarkId::kNotRead, WordText('G', g));
    state->groups.Add(word);
  }
}

void SetUnitsAndFeedMode(WordState* state) {
  const LineGroups& groups = state->groups;
  if (groups.Has(kUnits)) {
    const bool isInch = groups.Is(kUnits, 200) || groups.Is(kUnits, 700);
    state->SetUnit(isInch ? kInch : 1);
  }
  if (groups.Has(kFeedMode)) {
    state->modes.feedMode = groups.Is(kFeedMode, 930)   ? FeedMode::kInverseTime
                            : groups.Is(kFeedMode, 950) ? FeedMode::kPerTurn
                                                        : FeedMode::kPerMinute;
  }
}

void SetFeeds(WordState* state) {
  const WordLine& words = state->words;
  WordModes& modes = state->modes;
  if (!words.HasAny(Letters("FST"))) return;
  if (words.Has('F') && modes.feedMode != FeedMode::kInverseTime) {
    modes.feed = words['F'] * modes.units[1];
  }
  modes.spindle = words.Or('S', modes.spindle);
  modes.tool = words.Or('T', modes.tool);
}

void SetModes(WordState* state) {
  const LineGroups& groups = state->groups;
  WordModes& modes = state->modes;
  if (groups.IsOnly(kMotion)) return SetMotion(groups[kMotion].tenths, state);
  if (groups.Has(kPlane)) modes.plane = static_cast<Plane>((groups[kPlane].tenths - 170) / 10);
  if (groups.Has(kDistance)) modes.isIncremental = groups.Is(kDistance, 910);
  if (groups.Has(kArcDistance)) modes.isCentreAbsolute = groups.Is(kArcDistance, 901);
  if (groups.Has(kRetractLevel)) modes.toInitialLevel = groups.Is(kRetractLevel, 980);
  if (groups.Has(kPolar)) modes.polar = {.isOn = groups.Is(kPolar, 160)};
  if (groups.Has(kTurnEnd)) modes.coordinates.EndTurn();
  if (groups.Has(kOriginReset)) SetShift(&modes, &WordModes::originShift, {});
  if (groups.Has(kOffset)) SetWorkOffset(groups[kOffset].tenths, state);
  if (groups.Has(kCutterSide) && !groups.Is(kCutterSide, 400)) {
    state->Remark(ReadingRemarkId::kCompensation, WordText('G', groups[kCutterSide].tenths / 10.0));
  }
  if (groups.Has(kCycleEnd)) EndCycle(&modes);
  if (groups.Has(kMotion)) SetMotion(groups[kMotion].tenths, state);
}

}  // namespace tvx
